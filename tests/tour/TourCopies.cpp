#include "tour/TourCopies.h"

#include "support/CopyNow.h"
#include "views/dialogs/ClashQuestion.h"
#include "views/tabs/GeneralNotices.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <stdexcept>

namespace tessary {

void tourTransfers(TourStage& stage) {
    MainWindow& window = stage.window();
    TourPhones& phones = stage.phones();
    FileBrowserViewModel& browser = window.browser();
    CopyQueue& transfers = window.copyQueue();
    const QTemporaryDir target;
    const QTemporaryDir source;
    QStringList videos;
    for (const char* name : {"Sunset.mp4", "Concert.mp4"})
        videos.append(TourStage::writeSample(source.filePath(QString::fromLatin1(name))));
    phones.setSpeed(TourStage::slowSpeed);
    stage.open(QStringLiteral("/sdcard"));
    stage.selectNamed(
        {QStringLiteral("Music"), QStringLiteral("DCIM"), QStringLiteral("Documents")});
    QStringList ids;
    for (const FileItem& item : browser.selection().entries())
        ids.append(item.id());
    downloadNow(browser, ids, target.path());
    uploadNow(browser, videos);
    stage.waitFor("a running transfer", [&] {
        return std::any_of(transfers.jobs().begin(), transfers.jobs().end(),
                           [](const CopyJob& job) {
                               return job.status == CopyJob::Status::running &&
                                      job.bytesPerSecond > 0 && job.fractionDone() > 0.25;
                           });
    });
    stage.shoot(QStringLiteral("transfer-running"));
    phones.setSpeed(0);
    stage.waitFor("the end of the transfers", [&] { return transfers.summary().isIdle(); });
    stage.shoot(QStringLiteral("transfer-finished"));
    transfers.clearFinished();
}

void tourBrokenCopy(TourStage& stage) {
    MainWindow& window = stage.window();
    TourPhones& phones = stage.phones();
    CopyQueue& transfers = window.copyQueue();
    const QTemporaryDir target;
    phones.setSpeed(TourStage::slowSpeed);
    stage.open(QStringLiteral("/sdcard"));
    stage.selectNamed({QStringLiteral("Music"), QStringLiteral("Documents")});
    QStringList ids;
    for (const FileItem& item : window.browser().selection().entries())
        ids.append(item.id());
    downloadNow(window.browser(), ids, target.path());
    stage.waitFor("a copy under way", [&] {
        return !transfers.jobs().empty() && transfers.jobs().back().fractionDone() > 0.25;
    });
    phones.unplugAndroid();
    phones.setSpeed(0);
    stage.waitFor("the end of the copy", [&] { return transfers.summary().isIdle(); });
    phones.plugInAndroid();
    QAbstractButton* goOn = nullptr;
    stage.waitFor("the offer to go on", [&] {
        for (QAbstractButton* button : window.findChildren<QAbstractButton*>())
            if (button->isVisible() && button->text() == GeneralNotices::tr("Continue Copying"))
                goOn = button;
        return goOn != nullptr;
    });
    stage.shoot(QStringLiteral("copy-offered-again"));
    window.showCopyHistory();
    stage.shoot(QStringLiteral("copy-history"));
    window.findChild<QDialog*>(QStringLiteral("copyHistory"))->close();
    goOn->click();
    stage.waitFor("the rest of the copy", [&] { return transfers.summary().isIdle(); });
    transfers.clearFinished();
}

/// The questions before a copy: each is a dialog that runs its own loop, and is shot from within.
void tourCopyQuestions(TourStage& stage) {
    MainWindow& window = stage.window();
    FileBrowserViewModel& browser = window.browser();
    const QTemporaryDir local;
    stage.open(QStringLiteral("/sdcard/Documents/Travel"));
    const auto ask = [&](const QString& name, qint64 size) {
        QFile file(local.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || !file.resize(size))
            throw std::runtime_error("cannot write a sample file");
        file.close();
        bool wasAsked = false;
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, &window, [&] {
            QWidget* question = QApplication::activeModalWidget();
            if (question == nullptr)
                return;
            look.stop();
            stage.shoot(question->objectName() == QStringLiteral("spaceQuestion")
                            ? QStringLiteral("not-enough-space")
                            : QStringLiteral("name-taken"));
            question->close();
            wasAsked = true;
        });
        look.start(TourStage::settleTime);
        browser.copies().prepareUpload({file.fileName()}, {}, [&](const PreparedCopy& copy) {
            const auto answers = askAboutClashes(&window, copy);
            (void)(answers && askAboutSpace(&window, copy, *answers));
        });
        stage.waitFor("a question before a copy", [&] { return wasAsked; });
    };
    ask(QStringLiteral("Packing list.md"), 2048);
    ask(QStringLiteral("All videos.mkv"), qint64{214} << 30); // sparse
}

void tourFailures(TourStage& stage) {
    MainWindow& window = stage.window();
    TourPhones& phones = stage.phones();
    CopyQueue& transfers = window.copyQueue();
    phones.setStorageFull(true);
    stage.open(QStringLiteral("/sdcard/Download"));
    window.browser().createFolder(QStringLiteral("Backup"));
    stage.waitFor("an error", [&] { return window.browser().problem().has_value(); });
    stage.shoot(QStringLiteral("error-banner"));
    window.browser().dismissProblem();
    const QTemporaryDir source;
    uploadNow(window.browser(),
              {TourStage::writeSample(source.filePath(QStringLiteral("Holiday.mp4")))});
    stage.waitFor("a failed transfer", [&] {
        return !transfers.jobs().empty() && transfers.jobs().back().isFinished();
    });
    stage.shoot(QStringLiteral("transfer-failed"));
    phones.setStorageFull(false);
    transfers.clearFinished();

    phones.setHeld(true);
    stage.waitFor("the other program", [&] {
        const auto buttons = window.findChildren<QAbstractButton*>();
        return std::any_of(buttons.begin(), buttons.end(), [](const QAbstractButton* button) {
            return button->isVisible() && button->text() == MainWindow::tr("Release the Phone");
        });
    });
    stage.shoot(QStringLiteral("held-by-another-program"));
    phones.setHeld(false);
}

} // namespace tessary
