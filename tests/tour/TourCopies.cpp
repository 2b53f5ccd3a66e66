#include "tour/Tour.h"
#include "views/dialogs/ClashQuestion.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <stdexcept>

namespace tessary {

namespace {

constexpr qint64 sampleSize = 9'000'000; // bytes

} // namespace

QString Tour::writeSample(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !file.resize(sampleSize))
        throw std::runtime_error("cannot write a sample file");
    return path;
}

void Tour::transfer() {
    FileBrowserViewModel& browser = window_.browser();
    TransferViewModel& transfers = window_.transfers();
    const QTemporaryDir target;
    const QTemporaryDir source;
    QStringList videos;
    for (const char* name : {"Sunset.mp4", "Concert.mp4"})
        videos.append(writeSample(source.filePath(QString::fromLatin1(name))));
    phones_.setSpeed(slowSpeed);
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
    phones_.setSpeed(0);
    waitFor("the end of the transfers", [&] { return transfers.summary().isIdle(); });
    shoot(QStringLiteral("transfer-finished"));
    transfers.clearCompleted();
}

/// The questions before a copy: each is a dialog that runs its own loop, and is shot from within.
void Tour::copyQuestions() {
    FileBrowserViewModel& browser = window_.browser();
    const QTemporaryDir local;
    open(QStringLiteral("/sdcard/Documents/Travel"));
    const auto ask = [&](const QString& name, qint64 size) {
        QFile file(local.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || !file.resize(size))
            throw std::runtime_error("cannot write a sample file");
        file.close();
        bool wasAsked = false;
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, &window_, [&] {
            QWidget* question = QApplication::activeModalWidget();
            if (question == nullptr)
                return;
            look.stop();
            shoot(question->objectName() == QStringLiteral("spaceQuestion")
                      ? QStringLiteral("not-enough-space")
                      : QStringLiteral("name-taken"));
            question->close();
            wasAsked = true;
        });
        look.start(settleTime);
        browser.surveyUpload({file.fileName()}, {}, [&](const CopyPlan& survey) {
            const auto choices = askAboutClashes(&window_, survey);
            (void)(choices && askAboutSpace(&window_, survey, *choices));
        });
        waitFor("a question before a copy", [&] { return wasAsked; });
    };
    ask(QStringLiteral("Packing list.md"), 2048);
    ask(QStringLiteral("All videos.mkv"), qint64{214} << 30); // sparse
}

void Tour::fail() {
    TransferViewModel& transfers = window_.transfers();
    phones_.setStorageFull(true);
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
    phones_.setStorageFull(false);
    transfers.clearCompleted();

    phones_.setHeld(true);
    waitFor("the other program", [this] {
        const auto buttons = window_.findChildren<QAbstractButton*>();
        return std::any_of(buttons.begin(), buttons.end(), [](const QAbstractButton* button) {
            return button->isVisible() && button->text() == MainWindow::tr("Release the Phone");
        });
    });
    shoot(QStringLiteral("held-by-another-program"));
    phones_.setHeld(false);
}

} // namespace tessary
