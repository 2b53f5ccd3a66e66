#include "app/TransferNotice.h"

#include "base/text/Printable.h"

#include <QPointer>

namespace tessary {

TransferNotice::TransferNotice(CopyQueue& queue, Setup setup)
    : queue_(queue), setup_(std::move(setup)) {
    connect(&queue, &CopyQueue::summaryChanged, this, &TransferNotice::follow);
    connect(&queue, &CopyQueue::jobFinished, this, &TransferNotice::count);
}

void TransferNotice::follow() {
    if (isRunning_ || queue_.summary().isIdle())
        return;
    isRunning_ = true;
    began_ = setup_.now();
    copied_ = 0;
    failed_ = 0;
}

void TransferNotice::count(const QUuid& jobId) {
    const int index = queue_.indexOf(jobId);
    if (index < 0)
        return;
    const CopyJob& job = queue_.jobs()[static_cast<std::size_t>(index)];
    using Status = CopyJob::Status;
    if (job.status == Status::done) {
        copied_ += job.things;
    } else if (job.status == Status::incomplete) { // folders count as what is in them
        copied_ += static_cast<int>(job.progress.completedFiles);
        failed_ += static_cast<int>(job.leftOut.size());
    } else if (job.status != Status::cancelled) {
        failed_ += job.things;
    }
    if (job.status != Status::cancelled)
        lastName_ = job.name;
    if (!queue_.summary().isIdle())
        return;
    isRunning_ = false;
    if (copied_ + failed_ > 0 && setup_.now() - began_ >= longQueue && !setup_.isWindowActive())
        tell();
}

void TransferNotice::tell() const {
    const int inAll = copied_ + failed_;
    const QString name = printable(lastName_);
    QString text;
    if (failed_ == 0)
        text = inAll == 1 ? tr("“%1” is copied.").arg(name)
                          : tr("%Ln items are copied.", nullptr, inAll);
    else
        text = inAll == 1 ? tr("“%1” was not copied.").arg(name)
                          : tr("%Ln of %1 items were not copied.", nullptr, failed_)
                                .arg(QLocale().toString(inAll));
    setup_.notifier->notify(failed_ == 0 ? tr("Copying has finished") : tr("Copying went wrong"),
                            text, [self = QPointer(this)] {
                                if (self)
                                    self->setup_.showWindow();
                            });
}

} // namespace tessary
