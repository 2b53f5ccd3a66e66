#pragma once

#include "phone/TransferProgress.h"
#include "transfer/copy/CopyTypes.h"

#include <QString>
#include <QUuid>

#include <chrono>
#include <optional>
#include <vector>

namespace tessary {

/// One copy as the transfer panel shows it: what was asked for at one time, files and folders. A
/// value. It holds errors and no words.
struct CopyJob {
    enum class Direction { toPhone, toComputer, betweenPhones, onComputer };
    enum class Status {
        queued,
        paused,
        running,
        done,
        incomplete, ///< but for `leftOut`
        failed,     ///< by `error`; what was copied before stays
        cancelled,
    };

    QUuid id;
    Direction direction = Direction::toPhone;
    Status status = Status::queued;

    QString name;   ///< of the first thing that is copied
    int things = 1; ///< that were asked for
    bool isFolder = false;
    QString sourcePath;   ///< of the first thing
    QString targetFolder; ///< at the target
    QString phone;        ///< the phone's name, the target's when there are two
    QString sourcePhone;  ///< the other one's name then; else empty
    QString source;       ///< PhoneFileSystem::identity()
    QString target;       ///< the same
    QString sourceApp;    ///< PhoneFileSystem::appName()
    QString targetApp;    ///< the same

    TransferProgress progress;
    /// The totals grow still: folders are being listed.
    bool isMeasuring = false;
    /// Every byte is across, and the phone still works on it.
    bool isFinishing = false;
    double bytesPerSecond = 0; ///< smoothed, while it runs; 0 while unknown
    std::optional<std::chrono::seconds> timeLeft;

    std::optional<Error> error;
    std::vector<LeftOut> leftOut;
    qint64 alreadyThere = 0; ///< files that stayed as they were there
    QStringList made;        ///< paths at the target of what was asked for, as far as it is there
    EntryMarks entries;      ///< all that was made; no program run after this one knows it

    /// It has come to an end, whichever.
    [[nodiscard]] bool isFinished() const;
    /// Going on with it may bring what is missing.
    [[nodiscard]] bool canGoOn() const;
    /// Its phone was lost under it: it can go on when that is back.
    [[nodiscard]] bool hasLostPhone() const;
    /// Between 0 and 1; 1 for one that is done even of no bytes.
    [[nodiscard]] double fractionDone() const;
    /// Bytes that are across, at most the total.
    [[nodiscard]] qint64 doneBytes() const;
};

} // namespace tessary
