#pragma once

#include "phone/TransferOutcome.h"
#include "phone/TransferProgress.h"

#include <QByteArray>
#include <QString>
#include <QUuid>

#include <chrono>
#include <exception>
#include <optional>
#include <vector>

namespace tessary {

/// One copy between this machine and a device, as the transfer panel shows it. A value.
struct TransferJob {
    enum class TransferType { upload, download };
    enum class TransferStatus { queued, inProgress, completed, failed, cancelled };

    QUuid id;
    TransferType type = TransferType::upload;
    QString sourcePath;      ///< local for uploads, on the device for downloads
    QString destinationPath; ///< the copy itself, its name included
    TransferStatus status = TransferStatus::queued;
    TransferProgress progress;
    std::optional<QString> error; ///< what went wrong with a failed job

    QString name;       ///< of what is copied
    QString deviceName; ///< the other side
    QString connection; ///< FileAccess::identity() of the other side
    bool isDirectory = false;
    /// The totals are not known yet: the folder is still being counted.
    bool isMeasuring = false;
    /// Every byte is across, and the phone still works on it.
    bool isFinishing = false;
    QString advice; ///< what to do about `error`; empty when there is nothing to do
    /// What a folder transfer left out. Then the job is `failed`, though the rest was copied.
    std::vector<SkippedItem> skipped;
    double bytesPerSecond = 0; ///< smoothed, of a running job; 0 while unknown
    std::optional<std::chrono::seconds> timeLeft;

    /// Completed, failed or cancelled.
    [[nodiscard]] bool isFinished() const;
    /// Between 0 and 1; 1 for a completed job even of no bytes.
    [[nodiscard]] double fractionDone() const;
    /// Bytes that are across, at most the total.
    [[nodiscard]] qint64 doneBytes() const;

    bool operator==(const TransferJob&) const = default;
};

/// The display text: "Upload" or "Download".
[[nodiscard]] QString rawValue(TransferJob::TransferType type);
/// The display text: "Queued", "In Progress", "Completed", "Failed" or "Cancelled".
[[nodiscard]] QString rawValue(TransferJob::TransferStatus status);

/// "3 of 200 files were not copied: a.txt (too large), b.txt (...)": what a folder transfer left
/// out, the first few by name. Empty without any.
[[nodiscard]] QString skippedDescription(const std::vector<SkippedItem>& skipped,
                                         qint64 copiedFiles);

/// How a folder transfer that left something out counts: as a failure that says what is missing.
class IncompleteTransferError : public std::exception {
public:
    explicit IncompleteTransferError(TransferOutcome outcome);

    [[nodiscard]] const TransferOutcome& outcome() const {
        return outcome_;
    }
    /// skippedDescription() in UTF-8.
    [[nodiscard]] const char* what() const noexcept override {
        return utf8_.constData();
    }

private:
    TransferOutcome outcome_;
    QByteArray utf8_;
};

} // namespace tessary
