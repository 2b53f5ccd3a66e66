#include "mtp/files/MTPListing.h"

#include "base/log/DiagnosticsLogger.h"
#include "mtp/files/MTPFileItems.h"
#include "mtp/objects/MTPFailures.h"

#include <utility>

namespace tessary {

void MTPListing::read(MTPTree& tree, const std::stop_token& stop) {
    const MTPFound found = tree.requireFolder(folder_, stop);
    tree.list(
        found, [&](const MTPObjectInfo& info) { add(info, found.location); },
        [&](std::uint32_t handle, const MTPFailure& failure) {
            addUnreadable(handle, failure, found.location);
        },
        stop);
}

void MTPListing::handOver() {
    if (!rows_.empty())
        receiver_.rows(std::exchange(rows_, {}));
    handedOver_ = std::chrono::steady_clock::now();
}

void MTPListing::add(const MTPObjectInfo& info, const MTPLocation& folder) {
    constexpr std::size_t mostRows = 256;
    constexpr std::chrono::milliseconds patience{100};
    rows_.push_back(fileItemOf(info, folder, isBelowStorage(folder_)));
    if (rows_.size() >= mostRows || std::chrono::steady_clock::now() - handedOver_ >= patience)
        handOver();
}

void MTPListing::addUnreadable(std::uint32_t handle, const MTPFailure& failure,
                               const MTPLocation& folder) {
    const QString path = folder.child(QStringLiteral("(object %1)").arg(handle)).shownPath();
    UnreadableEntry entry{path, phoneErrorOf(failure, path), false};
    if (receiver_.unreadable)
        receiver_.unreadable(std::move(entry));
    else
        DiagnosticsLogger::shared().mtp.standard("An entry cannot be read: %s",
                                                 {entry.error.logText()});
}

} // namespace tessary
