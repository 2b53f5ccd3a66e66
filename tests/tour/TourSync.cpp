#include "tour/TourSync.h"

#include <QAction>
#include <QDialog>
#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace tessary {

namespace {

void writeFile(const QString& path, const QByteArray& content) {
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(content);
}

} // namespace

void tourSync(TourStage& stage) {
    MainWindow& window = stage.window();
    SyncViewModel& sync = window.sync();
    stage.open(QStringLiteral("/sdcard/Documents"));
    window.browserView().actions().sync->trigger();
    auto* panel = window.findChild<QWidget*>(QStringLiteral("syncPanel"));
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
        panel,
        [panel] {
            for (QPushButton* button : panel->findChildren<QPushButton*>())
                if (button->objectName() == QStringLiteral("makePair"))
                    button->click();
        },
        Qt::QueuedConnection);
    QDialog* sheet = shown("syncPairSheet");
    const QString local = stage.local().filePath(QStringLiteral("Documents"));
    QDir().mkpath(local);
    sheet->findChild<QLineEdit*>(QStringLiteral("syncLocalFolder"))->setText(local);
    stage.shoot(QStringLiteral("sync-sheet"));
    sheet->accept();
    QDialog* preview = shown("syncPreview");
    stage.waitFor("the preview", [&] { return sync.preview() && sync.preview()->plan; });
    stage.shoot(QStringLiteral("sync-preview"));
    preview->accept();
    const auto hasRun = [&] { return !sync.manager().isRunning(); };
    stage.waitFor("the sync", hasRun);

    const QStringList files = QDir(local).entryList(QDir::Files);
    if (!files.isEmpty())
        QFile::remove(local + QLatin1Char('/') + files.front());
    const QUuid pair = sync.manager().syncPairs().front().id;
    sync.run(pair);
    QDialog* question = shown("syncQuestion");
    stage.shoot(QStringLiteral("sync-question"));
    question->reject();
    stage.waitFor("the sync", hasRun);
    window.browserView().actions().sync->trigger();
    stage.waitFor("the sync menu", [&] { return panel->isVisible(); });
    stage.shoot(QStringLiteral("sync-menu"));
    panel->hide();

    // A deletion and a conflict, to be decided one by one, and what cannot be synced at all.
    const QDir here(local);
    const QDir there(stage.phones().demo().androids().front()->config().storages.front().folder +
                     QStringLiteral("/Documents"));
    here.mkpath(QStringLiteral("Letters"));
    writeFile(here.filePath(QStringLiteral("Letters/To Ann.txt")), "Dear Ann");
    writeFile(there.filePath(QStringLiteral("Letters")), "a file");
    writeFile(here.filePath(QStringLiteral("Plan.txt")), "as it is here");
    writeFile(there.filePath(QStringLiteral("Plan.txt")), "as it is on the phone");
    writeFile(here.filePath(QStringLiteral("New.txt")), "new");
    sync.requestPreview(*sync.manager().pair(pair));
    preview = shown("syncPreview");
    stage.waitFor("the preview", [&] { return sync.preview() && sync.preview()->plan; });
    stage.shoot(QStringLiteral("sync-decisions"));
    preview->accept();
    stage.waitFor("the sync", hasRun);
    stage.waitFor("the banner", [&] { return sync.troubledPair().has_value(); });
    stage.shoot(QStringLiteral("sync-banner"));
    sync.requestReports(pair);
    QDialog* reports = shown("syncReports");
    stage.waitFor("the report", [&] {
        auto* runs = reports->findChild<QListWidget*>();
        return runs != nullptr && runs->count() > 0;
    });
    stage.shoot(QStringLiteral("sync-report"));
    reports->reject();
    sync.requestEdit(pair);
    sheet = shown("syncPairSheet");
    stage.shoot(QStringLiteral("sync-edit"));
    sheet->reject();
}

} // namespace tessary
