#include "support/CopyNow.h"
#include "tour/Tour.h"
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

using namespace Qt::StringLiterals;

namespace {

/// Copies what lies at the top of the phone and has these names, slowly.
void beginDownload(TourStage& stage, const QStringList& names, const QString& target) {
    stage.phones().setSpeed(TourStage::slowSpeed);
    stage.open(u"/sdcard"_s);
    stage.selectNamed(names);
    QStringList ids;
    for (const FileItem& item : stage.browser().selection().entries())
        ids.append(item.id());
    downloadNow(stage.browser(), ids, target);
}

/// A button that can be pressed; null when none has this text.
QAbstractButton* shownButton(const QWidget& window, const QString& text) {
    for (QAbstractButton* button : window.findChildren<QAbstractButton*>())
        if (button->isVisible() && button->text() == text)
            return button;
    return nullptr;
}

} // namespace

void tourTransfers(TourStage& stage) {
    const QTemporaryDir target;
    const QTemporaryDir source;
    QStringList videos;
    for (const char* name : {"Sunset.mp4", "Concert.mp4"})
        videos.append(TourStage::writeSample(source.filePath(QString::fromLatin1(name))));
    beginDownload(stage, {u"Music"_s, u"DCIM"_s, u"Documents"_s}, target.path());
    uploadNow(stage.browser(), videos);
    CopyQueue& transfers = stage.window().copyQueue();
    stage.waitFor("a running transfer", [&] {
        return std::ranges::any_of(transfers.jobs(), [](const CopyJob& job) {
            return job.status == CopyJob::Status::running && job.bytesPerSecond > 0 &&
                   job.fractionDone() > 0.25;
        });
    });
    stage.shoot(u"transfer-running"_s);
    stage.endCopies();
    stage.shoot(u"transfer-finished"_s);
    transfers.clearFinished();
}

void tourBrokenCopy(TourStage& stage) {
    MainWindow& window = stage.window();
    const QTemporaryDir target;
    beginDownload(stage, {u"Music"_s, u"Documents"_s}, target.path());
    stage.waitForCopy();
    stage.phones().android().unplug();
    stage.endCopies();
    stage.phones().plugIn(stage.phones().android());
    const QString text = GeneralNotices::tr("Continue Copying");
    stage.waitFor("the offer to go on", [&] { return shownButton(window, text) != nullptr; });
    stage.shoot(u"copy-offered-again"_s);
    window.showCopyHistory();
    stage.shoot(u"copy-history"_s);
    window.findChild<QDialog*>(u"copyHistory"_s)->close();
    shownButton(window, text)->click();
    stage.endCopies();
    window.copyQueue().clearFinished();
}

/// The questions before a copy: each is a dialog that runs its own loop, and is shot from within.
void tourCopyQuestions(TourStage& stage) {
    MainWindow& window = stage.window();
    const QTemporaryDir local;
    stage.open(u"/sdcard/Documents/Travel"_s);
    const auto ask = [&](const QString& name, qint64 size) {
        const QString file = TourStage::writeSample(local.filePath(name), size);
        bool wasAsked = false;
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, &window, [&] {
            QWidget* question = QApplication::activeModalWidget();
            if (question == nullptr)
                return;
            look.stop();
            stage.shoot(question->objectName() == u"spaceQuestion"_s ? u"not-enough-space"_s
                                                                     : u"name-taken"_s);
            question->close();
            wasAsked = true;
        });
        look.start(TourStage::settleTime);
        stage.browser().copies().prepareUpload({file}, {}, [&window](const PreparedCopy& copy) {
            const auto answers = askAboutClashes(&window, copy);
            (void)(answers && askAboutSpace(&window, copy, *answers));
        });
        stage.waitFor("a question before a copy", [&] { return wasAsked; });
    };
    ask(u"Packing list.md"_s, 2048);
    ask(u"All videos.mkv"_s, qint64{214} << 30); // sparse
}

void tourFailures(TourStage& stage) {
    CopyQueue& transfers = stage.window().copyQueue();
    stage.phones().setStorageFull(true);
    stage.open(u"/sdcard/Download"_s);
    stage.browser().createFolder(u"Backup"_s);
    stage.waitFor("an error", [&] { return stage.browser().problem().has_value(); });
    stage.shoot(u"error-banner"_s);
    stage.browser().dismissProblem();
    const QTemporaryDir source;
    uploadNow(stage.browser(), {TourStage::writeSample(source.filePath(u"Holiday.mp4"_s))});
    stage.waitFor("a failed transfer", [&] {
        return !transfers.jobs().empty() && transfers.jobs().back().isFinished();
    });
    stage.shoot(u"transfer-failed"_s);
    stage.phones().setStorageFull(false);
    transfers.clearFinished();

    stage.phones().setHeld(true);
    stage.waitFor("the other program", [&] {
        return shownButton(stage.window(), MainWindow::tr("Release the Phone")) != nullptr;
    });
    stage.shoot(u"held-by-another-program"_s);
    stage.phones().setHeld(false);
}

} // namespace tessary
