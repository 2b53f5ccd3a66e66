#include "sync/plan/SyncReport.h"

#include "base/local/LocalError.h"
#include "phone/PhoneError.h"
#include "sync/plan/SyncError.h"

#include <algorithm>
#include <array>

namespace tessary {

namespace {

using Kind = SyncPlannedAction::Kind;

constexpr std::array deedNames{"upload",       "replaceOnDevice", "download",  "replaceHere",
                               "moveToDevice", "moveHere",        "keepBoth",  "deleteOnDevice",
                               "deleteHere",   "renameOnDevice",  "renameHere"};
static_assert(deedNames.size() == static_cast<std::size_t>(SyncDeed::renameHere) + 1);

SyncPreviewItem itemOf(const SyncPlannedAction& action) {
    const SyncFile* file = action.local != nullptr ? action.local : action.device;
    SyncPreviewItem item;
    item.path = action.relativePath;
    item.other = action.conflictName;
    item.size = std::max(action.bytes(), file != nullptr ? file->size : 0);
    item.reason = action.reason;
    item.deviceWins = action.deviceWins;
    if (action.isWork())
        item.deed = deedOf(action);
    else if (action.kind == Kind::leave)
        item.reason = std::make_shared<const Error>(SyncError::changedAtTarget,
                                                    QVariantList{action.relativePath});
    return item;
}

} // namespace

const char* deedName(SyncDeed deed) {
    return deedNames[static_cast<std::size_t>(deed)];
}

SyncDeed deedOf(const SyncPlannedAction& action) {
    switch (action.kind) {
    case Kind::upload:
        return action.deletesSource       ? SyncDeed::moveToDevice
               : action.device != nullptr ? SyncDeed::replaceOnDevice
                                          : SyncDeed::upload;
    case Kind::download:
        return action.deletesSource      ? SyncDeed::moveHere
               : action.local != nullptr ? SyncDeed::replaceHere
                                         : SyncDeed::download;
    case Kind::moveDeleteSourceOnly:
        return SyncDeed::moveToDevice;
    case Kind::moveDeleteRemoteSourceOnly:
        return SyncDeed::moveHere;
    case Kind::deleteLocal:
        return SyncDeed::deleteHere;
    case Kind::deleteRemote:
        return SyncDeed::deleteOnDevice;
    case Kind::conflict:
    case Kind::alreadyInSync:
    case Kind::leave:
    case Kind::skip:
        break;
    }
    return SyncDeed::keepBoth;
}

bool isForGood(const Error& reason) {
    const ErrorCode lasting[] = {PhoneError::nameNotAllowed, PhoneError::sameName,
                                 LocalError::nameNotUsable,  LocalError::nameTooLong,
                                 LocalError::link,           LocalError::leavesFolder,
                                 SyncError::sameNames,       SyncError::twice,
                                 SyncError::changedAtTarget, SyncError::undecided};
    return std::any_of(std::begin(lasting), std::end(lasting),
                       [&reason](const ErrorCode& code) { return reason.is(code); });
}

std::map<SyncDeed, qint64> SyncReport::counts() const {
    std::map<SyncDeed, qint64> counts;
    for (const SyncReportItem& item : items)
        ++counts[item.deed];
    return counts;
}

QStringList SyncReport::paths(std::initializer_list<SyncDeed> deeds) const {
    QStringList paths;
    for (const SyncReportItem& item : items)
        if (std::find(deeds.begin(), deeds.end(), item.deed) != deeds.end())
            paths.append(item.path);
    return paths;
}

std::map<SyncDeed, qint64> SyncPreview::counts() const {
    std::map<SyncDeed, qint64> counts;
    for (const SyncPreviewItem& item : items)
        if (item.deed)
            ++counts[*item.deed];
    return counts;
}

SyncPreview previewOf(const SyncPlan& plan, const std::vector<SyncRename>& renames,
                      const SyncGuard& guard) {
    SyncPreview preview;
    preview.guard = guard;
    preview.totalBytes = plan.totalBytes;
    for (const SyncRename& rename : renames) {
        SyncPreviewItem item;
        item.deed = rename.onDevice ? SyncDeed::renameOnDevice : SyncDeed::renameHere;
        item.path = rename.to;
        item.other = rename.from;
        preview.items.push_back(std::move(item));
    }
    for (const SyncPlannedAction& action : plan.actions) {
        if (action.kind == Kind::alreadyInSync)
            ++preview.inSync;
        else
            preview.items.push_back(itemOf(action));
    }
    return preview;
}

SyncAnswer SyncAnswer::deleteAll(const SyncQuestion& question) {
    SyncAnswer answer{true, {}};
    for (const DeletionCandidate& candidate : question.candidates)
        answer.deletions.insert(candidate.relativePath);
    return answer;
}

} // namespace tessary
