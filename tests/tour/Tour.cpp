#include "tour/Tour.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <stdexcept>

namespace tessary {

namespace {

constexpr int stepLimit = 20'000; // ms that a step may take

/// What stands in front of the window; null when nothing does.
QWidget* openDialog(MainWindow& window) {
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    for (auto* dialog : window.findChildren<QDialog*>())
        if (dialog->isVisible())
            return dialog;
    return nullptr;
}

} // namespace

Tour::Tour(MainWindow& window, TourPhones& phones, const QString& folder)
    : window_(window), phones_(phones), folder_(folder) {}

bool Tour::run() {
    try {
        if (!QDir().mkpath(folder_))
            throw std::runtime_error("the folder for the screenshots cannot be made");
        watch_.emplace();
        welcome();
        browse();
        typePath();
        preview();
        properties();
        settings();
        wireless();
        languages();
        dark();
        edit();
        transfer();
        copyQuestions();
        sync();
        fail();
        lockAndLose();
        iPhone();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "tessary-tour: it stopped: %s\n", error.what());
        return false;
    }
    std::fprintf(
        stderr,
        "tessary-tour: %d screenshots are in %s; the window never stalled for over %lld ms\n",
        number_, qUtf8Printable(folder_), static_cast<long long>(watch_->longest()));
    return true;
}

void Tour::waitFor(const char* what, const std::function<bool()>& condition) {
    QElapsedTimer clock;
    clock.start();
    while (!condition()) {
        if (clock.elapsed() > stepLimit)
            throw std::runtime_error(std::string("waited in vain for ") + what);
        QApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
        QEventLoop pause;
        QTimer::singleShot(10, &pause, &QEventLoop::quit);
        pause.exec();
    }
}

void Tour::settle() {
    QEventLoop pause;
    QTimer::singleShot(settleTime, &pause, &QEventLoop::quit);
    pause.exec();
}

void Tour::shoot(const QString& name) {
    settle();
    const QString file = QStringLiteral("%1/%2-%3.png")
                             .arg(folder_)
                             .arg(++number_, 2, 10, QLatin1Char('0'))
                             .arg(name);
    // A dialog stands in front of the window: both are in the picture.
    QPixmap picture = window_.grab();
    if (QWidget* popup = QApplication::activePopupWidget()) {
        QPainter painter(&picture);
        painter.drawPixmap(window_.mapFromGlobal(popup->pos()), popup->grab());
    } else if (QWidget* dialog = openDialog(window_)) {
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillRect(picture.rect(), QColor(0, 0, 0, 70));
        const QPixmap front = dialog->grab();
        painter.drawPixmap((window_.width() - dialog->width()) / 2,
                           (window_.height() - dialog->height()) / 2, front);
    }
    if (!picture.save(file))
        throw std::runtime_error("cannot write " + file.toStdString());
    watch_->restart();
}

void Tour::open(const QString& path) {
    window_.browser().navigateTo(path);
    waitFor("a folder", [this] { return !window_.browser().isLoading(); });
}

void Tour::selectNamed(const QStringList& names) {
    FileBrowserViewModel& browser = window_.browser();
    SelectionChange how = SelectionChange::replace;
    for (const FileItem& item : browser.filteredItems()) {
        if (!names.contains(item.name))
            continue;
        browser.selectItem(item.id(), how);
        how = SelectionChange::toggle;
    }
}

void Tour::welcome() {
    shoot(QStringLiteral("welcome"));
    phones_.plugInAndroid();
    waitFor("the phone's storage", [this] {
        const auto& device = window_.browser().activeDevice();
        return device && device->isDataAccessible() && !window_.browser().isLoading();
    });
}

void Tour::lockAndLose() {
    phones_.setLocked(true);
    waitFor("the locked phone", [this] {
        const auto& device = window_.browser().activeDevice();
        return device && device->isLocked;
    });
    shoot(QStringLiteral("locked"));
    phones_.setLocked(false);
    waitFor("the unlocked phone", [this] {
        const auto& device = window_.browser().activeDevice();
        return device && device->isDataAccessible() && !window_.browser().isLoading();
    });
    phones_.unplugAndroid();
    waitFor("the loss of the phone",
            [this] { return window_.browser().state() == BrowserState::deviceLost; });
    shoot(QStringLiteral("phone-gone"));

    SyncManager& sync = window_.sync().manager();
    const QUuid pair = sync.syncPairs().front().id;
    window_.sync().run(pair);
    waitFor("the failed sync",
            [&] { return sync.pair(pair)->status.kind == SyncStatus::Kind::error; });
    window_.browserView().actions().sync->trigger();
    shoot(QStringLiteral("sync-error"));
    window_.findChild<QWidget*>(QStringLiteral("syncPanel"))->hide();
    sync.removeSyncPair(pair);
}

void Tour::sync() {
    SyncViewModel& sync = window_.sync();
    open(QStringLiteral("/sdcard/Documents"));
    window_.browserView().actions().sync->trigger();
    auto* panel = window_.findChild<QWidget*>(QStringLiteral("syncPanel"));
    panel->hide();

    const auto front = [this](const char* name) -> QDialog* {
        for (QDialog* dialog : window_.findChildren<QDialog*>(QString::fromLatin1(name)))
            if (dialog->isVisible())
                return dialog;
        return nullptr;
    };
    const auto shown = [&](const char* name) {
        waitFor(name, [&] { return front(name) != nullptr; });
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
    const QString local = syncFolder_.filePath(QStringLiteral("Documents"));
    QDir().mkpath(local);
    sheet->findChild<QLineEdit*>(QStringLiteral("syncLocalFolder"))->setText(local);
    shoot(QStringLiteral("sync-sheet"));
    sheet->accept();
    QDialog* preview = shown("syncPreview");
    waitFor("the preview", [&] { return sync.preview() && sync.preview()->plan; });
    shoot(QStringLiteral("sync-preview"));
    preview->accept();
    const auto hasRun = [&] { return !sync.manager().isRunning(); };
    waitFor("the sync", hasRun);

    const QStringList files = QDir(local).entryList(QDir::Files);
    if (!files.isEmpty())
        QFile::remove(local + QLatin1Char('/') + files.front());
    const QUuid pair = sync.manager().syncPairs().front().id;
    sync.run(pair);
    QDialog* question = shown("syncQuestion");
    shoot(QStringLiteral("sync-question"));
    question->reject();
    waitFor("the sync", hasRun);
    window_.browserView().actions().sync->trigger();
    waitFor("the sync menu", [&] { return panel->isVisible(); });
    shoot(QStringLiteral("sync-menu"));
    panel->hide();
}

void Tour::iPhone() {
    FileBrowserViewModel& browser = window_.browser();
    AppListViewModel& apps = window_.apps();
    phones_.setTrusted(false);
    phones_.plugInIPhone();
    waitFor("the untrusted iPhone", [&] { return apps.state() == AppListState::failed; });
    shoot(QStringLiteral("iphone-untrusted"));
    phones_.setTrusted(true);
    apps.reload();
    waitFor("the apps", [&] {
        const auto& device = apps.device();
        return apps.state() == AppListState::ready && device && device->totalStorageBytes;
    });
    shoot(QStringLiteral("iphone-apps"));
    window_.openApp(apps.apps().back(), QStringLiteral("/"));
    waitFor("the documents", [&] { return !browser.isLoading(); });
    browser.enterFolder(browser.items().front().id());
    waitFor("a folder of documents", [&] { return !browser.isLoading(); });
    shoot(QStringLiteral("iphone-documents"));
    const QTemporaryDir source;
    phones_.setSpeed(slowSpeed);
    browser.uploadFiles({writeSample(source.filePath(QStringLiteral("Talk.mp4")))});
    waitFor("a running transfer", [this] {
        const auto& jobs = window_.transfers().jobs();
        return !jobs.empty() && jobs.back().fractionDone() > 0.2;
    });
    shoot(QStringLiteral("iphone-transfer"));
    phones_.setSpeed(0);
    waitFor("the end of the transfer", [this] { return window_.transfers().summary().isIdle(); });
    window_.transfers().clearCompleted();
    phones_.unplugIPhone();
}

} // namespace tessary
