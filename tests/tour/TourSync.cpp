#include "tour/Tour.h"

#include <QAction>
#include <QDialog>
#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace tessary {

using namespace Qt::StringLiterals;

void tourSync(TourStage& stage) {
    MainWindow& window = stage.window();
    SyncViewModel& sync = window.sync();
    stage.open(u"/sdcard/Documents"_s);
    stage.actions().sync->trigger();
    auto* panel = window.findChild<QWidget*>(u"syncPanel"_s);
    panel->hide();

    const auto front = [&](const char* name) -> QDialog* {
        for (QDialog* dialog : window.findChildren<QDialog*>(QString::fromLatin1(name)))
            if (dialog->isVisible())
                return dialog;
        return nullptr;
    };
    const auto shown = [&](const char* name) {
        stage.waitFor(name, [&] { return front(name) != nullptr; });
        return front(name);
    };
    QMetaObject::invokeMethod(
        panel, [panel] { panel->findChild<QPushButton*>(u"makePair"_s)->click(); },
        Qt::QueuedConnection);
    QDialog* form = shown("syncPairDialog");
    const QString local = stage.local().filePath(u"Documents"_s);
    QDir().mkpath(local);
    form->findChild<QLineEdit*>(u"syncLocalFolder"_s)->setText(local);
    stage.shoot(u"sync-sheet"_s);
    form->accept();
    QDialog* preview = shown("syncPreview");
    stage.waitFor("the preview", [&] { return sync.preview() && sync.preview()->plan; });
    stage.shoot(u"sync-preview"_s);
    preview->accept();
    const auto hasRun = [&] { return !sync.manager().isRunning(); };
    stage.waitFor("the sync", hasRun);

    const QStringList files = QDir(local).entryList(QDir::Files);
    if (!files.isEmpty())
        QFile::remove(local + QLatin1Char('/') + files.front());
    const QUuid pair = sync.manager().syncPairs().front().id;
    sync.run(pair);
    QDialog* question = shown("syncQuestion");
    stage.shoot(u"sync-question"_s);
    question->reject();
    stage.waitFor("the sync", hasRun);
    stage.actions().sync->trigger();
    stage.waitFor("the sync menu", [&] { return panel->isVisible(); });
    stage.shoot(u"sync-menu"_s);
    panel->hide();

    // A deletion and a conflict, to be decided one by one, and what cannot be synced at all.
    const QDir here(local);
    const QDir there(stage.phones().demo().androids().front()->config().storages.front().folder +
                     u"/Documents"_s);
    here.mkpath(u"Letters"_s);
    TourStage::write(here.filePath(u"Letters/To Ann.txt"_s), "Dear Ann");
    TourStage::write(there.filePath(u"Letters"_s), "a file");
    TourStage::write(here.filePath(u"Plan.txt"_s), "as it is here");
    TourStage::write(there.filePath(u"Plan.txt"_s), "as it is on the phone");
    TourStage::write(here.filePath(u"New.txt"_s), "new");
    sync.requestPreview(*sync.manager().pair(pair));
    preview = shown("syncPreview");
    stage.waitFor("the preview", [&] { return sync.preview() && sync.preview()->plan; });
    stage.shoot(u"sync-decisions"_s);
    preview->accept();
    stage.waitFor("the sync", hasRun);
    stage.waitFor("the banner", [&] { return sync.troubledPair().has_value(); });
    stage.shoot(u"sync-banner"_s);
    sync.requestReports(pair);
    QDialog* reports = shown("syncReports");
    stage.waitFor("the report", [&] {
        auto* runs = reports->findChild<QListWidget*>();
        return runs != nullptr && runs->count() > 0;
    });
    stage.shoot(u"sync-report"_s);
    reports->reject();
    sync.requestEdit(pair);
    form = shown("syncPairDialog");
    stage.shoot(u"sync-edit"_s);
    form->reject();
}

} // namespace tessary
