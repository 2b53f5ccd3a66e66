#include "transfer/import/ImportRecorder.h"

#include "base/log/DiagnosticsLogger.h"

namespace tessary {

namespace {

/// How long a record waits for others: each time the disk is waited for.
constexpr std::chrono::seconds longestWait(3);

} // namespace

void ImportRecorder::copied(const CopyItem& item, const FileItem& copy, const QByteArray& sha256) {
    const auto now = std::chrono::steady_clock::now();
    if (waiting_.empty())
        since_ = now;
    waiting_.push_back(
        {item.item.path, item.item.size, item.item.modifiedDate, copy.path, sha256, true});
    if (now - since_ >= longestWait && write())
        since_ = now; // it may go well later
}

std::optional<Error> ImportRecorder::ended() {
    return write();
}

std::optional<Error> ImportRecorder::write() {
    if (waiting_.empty())
        return std::nullopt;
    try {
        to_->flush();
        ledger_->add(waiting_);
        waiting_.clear();
        return std::nullopt;
    } catch (const Error& error) {
        DiagnosticsLogger::shared().transfer.error("The ledger of an import: %s",
                                                   {error.logText()});
        return error;
    }
}

} // namespace tessary
