#include "app/views/Tour.h"

#include "app/views/PreviewWindow.h"
#include "app/views/PropertiesDialog.h"
#include "app/views/StatusBanner.h"
#include "app/views/ThumbnailStore.h"

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

constexpr int stepLimit = 20'000;        // ms that a step may take
constexpr int settleTime = 250;          // ms for layouts and animations
constexpr double slowSpeed = 4;          // MB/s, so that a transfer can be seen running
constexpr qint64 sampleSize = 9'000'000; // bytes

/// Makes a local file that takes a while to copy.
QString writeSample(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !file.resize(sampleSize))
        throw std::runtime_error("cannot write a sample file");
    return path;
}

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

Tour::Tour(MainWindow& window, TourPhone phone, TourIPhone iPhone, const QString& folder)
    : window_(window), phone_(std::move(phone)), iPhone_(std::move(iPhone)), folder_(folder) {}

bool Tour::run() {
    try {
        if (!QDir().mkpath(folder_))
            throw std::runtime_error("the folder for the screenshots cannot be made");
        welcome();
        browse();
        preview();
        properties();
        settings();
        languages();
        dark();
        edit();
        transfer();
        sync();
        fail();
        lockAndLose();
        iPhone();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "tessary: the tour stopped: %s\n", error.what());
        return false;
    }
    std::fprintf(stderr, "tessary: %d screenshots are in %s\n", number_, qUtf8Printable(folder_));
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
    phone_.plugIn();
    waitFor("the phone's storage", [this] {
        const auto& device = window_.browser().activeDevice();
        return device && device->isDataAccessible() && !window_.browser().isLoading();
    });
}

void Tour::browse() {
    FileBrowserViewModel& browser = window_.browser();
    shoot(QStringLiteral("storage"));
    open(QStringLiteral("/sdcard/DCIM/Camera"));
    const auto rows = browser.filteredItems();
    for (std::size_t i = 1; i < std::min<std::size_t>(rows.size(), 4); ++i)
        browser.selectItem(rows[i].id(),
                           i == 1 ? SelectionChange::replace : SelectionChange::extend);
    shoot(QStringLiteral("list"));
    browser.setViewMode(ViewMode::grid);
    window_.browserView().currentListing().setFocus();
    auto* thumbnails = window_.browserView().currentListing().findChild<ThumbnailStore*>();
    waitFor("the thumbnails",
            [thumbnails] { return thumbnails != nullptr && thumbnails->isIdle(); });
    shoot(QStringLiteral("grid"));
    browser.setViewMode(ViewMode::list);
    open(QStringLiteral("/sdcard/Download/Archive"));
    browser.setSearchText(QStringLiteral("12"));
    shoot(QStringLiteral("filter"));
    browser.setSearchText(QStringLiteral("no such name"));
    shoot(QStringLiteral("no-results"));
    browser.setSearchText({});
}

void Tour::preview() {
    open(QStringLiteral("/sdcard/DCIM/Camera"));
    window_.browser().selectItem(window_.browser().filteredItems().at(2).id());
    window_.browserView().actions().quickLook->trigger();
    const auto shows = [this](const char* page) {
        const auto* widget =
            window_.findChild<PreviewWindow*>()->findChild<QWidget*>(QString::fromLatin1(page));
        return widget != nullptr && widget->isVisible();
    };
    waitFor("the preview of a picture", [&] { return shows("previewPicture"); });
    shoot(QStringLiteral("preview-picture"));
    window_.browserView().actions().quickLook->trigger();
    open(QStringLiteral("/sdcard/Documents/Travel"));
    selectNamed({QStringLiteral("Packing list.md")});
    window_.browserView().actions().quickLook->trigger();
    waitFor("the preview of a text", [&] { return shows("previewText"); });
    shoot(QStringLiteral("preview-text"));
    window_.browserView().actions().quickLook->trigger();
    open(QStringLiteral("/sdcard/Music/First Songs"));
    window_.browser().selectItem(window_.browser().filteredItems().at(1).id());
    window_.browserView().actions().quickLook->trigger();
    shoot(QStringLiteral("preview-facts"));
    window_.browserView().actions().quickLook->trigger();
}

void Tour::properties() {
    open(QStringLiteral("/sdcard"));
    for (const QStringList& names :
         {QStringList{QStringLiteral("Documents")},
          QStringList{QStringLiteral("DCIM"), QStringLiteral("Music")}}) {
        selectNamed(names);
        window_.browserView().actions().properties->trigger();
        auto* dialog = window_.findChild<PropertiesDialog*>();
        waitFor("the count", [dialog] { return dialog != nullptr && !dialog->isCounting(); });
        shoot(QStringLiteral("properties"));
        delete dialog;
    }
}

void Tour::edit() {
    FileBrowserViewModel& browser = window_.browser();
    open(QStringLiteral("/sdcard/Documents"));
    bool isMade = false;
    const auto made = QObject::connect(&browser, &FileBrowserViewModel::folderCreated, &window_,
                                       [&isMade] { isMade = true; });
    browser.createFolder();
    waitFor("the new folder", [&isMade] { return isMade; });
    QObject::disconnect(made);
    shoot(QStringLiteral("new-folder"));
    window_.browserView().currentListing().setFocus();

    // The question is a dialog that runs its own loop: the picture is taken from within it.
    QTimer::singleShot(settleTime, &window_, [this] {
        if (QWidget* question = QApplication::activeModalWidget()) {
            shoot(QStringLiteral("delete-question"));
            question->close();
        }
    });
    window_.browserView().actions().remove->trigger();
}

void Tour::transfer() {
    FileBrowserViewModel& browser = window_.browser();
    TransferViewModel& transfers = window_.transfers();
    const QTemporaryDir target;
    const QTemporaryDir source;
    QStringList videos;
    for (const char* name : {"Sunset.mp4", "Concert.mp4"})
        videos.append(writeSample(source.filePath(QString::fromLatin1(name))));
    phone_.setSpeed(slowSpeed);
    open(QStringLiteral("/sdcard"));
    selectNamed({QStringLiteral("Music"), QStringLiteral("DCIM"), QStringLiteral("Documents")});
    QStringList ids;
    for (const FileItem& item : browser.selectedEntries())
        ids.append(item.id());
    browser.downloadItems(ids, target.path());
    browser.uploadFiles(videos);
    waitFor("a running transfer", [&] {
        return std::any_of(transfers.jobs().begin(), transfers.jobs().end(),
                           [](const TransferJob& job) {
                               return job.status == TransferJob::TransferStatus::inProgress &&
                                      job.bytesPerSecond > 0 && job.fractionDone() > 0.25;
                           });
    });
    shoot(QStringLiteral("transfer-running"));
    phone_.setSpeed(0);
    waitFor("the end of the transfers", [&] { return transfers.summary().isIdle(); });
    shoot(QStringLiteral("transfer-finished"));
    transfers.clearCompleted();
}

void Tour::fail() {
    TransferViewModel& transfers = window_.transfers();
    phone_.setStorageFull(true);
    open(QStringLiteral("/sdcard/Download"));
    window_.browser().createFolder(QStringLiteral("Backup"));
    waitFor("an error", [this] { return window_.browser().error().has_value(); });
    shoot(QStringLiteral("error-banner"));
    window_.browser().dismissError();
    const QTemporaryDir source;
    window_.browser().uploadFiles({writeSample(source.filePath(QStringLiteral("Holiday.mp4")))});
    waitFor("a failed transfer",
            [&] { return !transfers.jobs().empty() && transfers.jobs().back().isFinished(); });
    shoot(QStringLiteral("transfer-failed"));
    phone_.setStorageFull(false);
    transfers.clearCompleted();

    phone_.setHeld(true);
    waitFor("the other program", [this] {
        const auto* banner = window_.findChild<StatusBanner*>(QStringLiteral("statusBanner"));
        return banner != nullptr && banner->isVisible();
    });
    shoot(QStringLiteral("held-by-another-program"));
    phone_.setHeld(false);
}

void Tour::lockAndLose() {
    phone_.setLocked(true);
    waitFor("the locked phone", [this] {
        const auto& device = window_.browser().activeDevice();
        return device && device->isLocked;
    });
    shoot(QStringLiteral("locked"));
    phone_.setLocked(false);
    waitFor("the unlocked phone", [this] {
        const auto& device = window_.browser().activeDevice();
        return device && device->isDataAccessible() && !window_.browser().isLoading();
    });
    phone_.unplug();
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
    iPhone_.setTrusted(false);
    iPhone_.plugIn();
    waitFor("the untrusted iPhone", [&] { return apps.state() == AppListState::failed; });
    shoot(QStringLiteral("iphone-untrusted"));
    iPhone_.setTrusted(true);
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
    iPhone_.setSpeed(slowSpeed);
    browser.uploadFiles({writeSample(source.filePath(QStringLiteral("Talk.mp4")))});
    waitFor("a running transfer", [this] {
        const auto& jobs = window_.transfers().jobs();
        return !jobs.empty() && jobs.back().fractionDone() > 0.2;
    });
    shoot(QStringLiteral("iphone-transfer"));
    iPhone_.setSpeed(0);
    waitFor("the end of the transfer", [this] { return window_.transfers().summary().isIdle(); });
    window_.transfers().clearCompleted();
    iPhone_.unplug();
}

} // namespace tessary
