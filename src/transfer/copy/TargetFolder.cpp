#include "transfer/copy/TargetFolder.h"

#include "base/local/LocalError.h"
#include "base/text/PathNames.h"
#include "phone/PhoneError.h"

#include <cstdlib>

namespace tessary {

FileItem broughtAs(const FileItem& source, FileItem made) {
    made.path = source.path + QChar::Null + made.path;
    return made;
}

bool areAlike(const FileItem& one, const FileItem& other, std::chrono::milliseconds dateStep) {
    return one.isDirectory == other.isDirectory && one.size == other.size && one.modifiedDate &&
           other.modifiedDate &&
           std::abs(one.modifiedDate->msecsTo(*other.modifiedDate)) <= dateStep.count();
}

void TargetFolder::addExisting(const FileItem& item) {
    existing_.insert(rules_.key(item.name), item);
}

void TargetFolder::addUnreadable(const QString& name, const Error& error) {
    unreadable_.insert(rules_.key(name), error);
}

bool TargetFolder::isTakenForSame(const CopyItem& item, const FileItem& existing,
                                  const Rules& rules) const {
    if (!rules.skipsSame || item.item.isDirectory || existing.isDirectory)
        return false;
    const bool isOurs =
        (item.isContinued && existing.name == item.name) ||
        (rules.brought != nullptr && rules.brought->contains(broughtAs(item.item, existing)));
    return areAlike(item.item, existing, dateStep_) || (isOurs && item.item.size == existing.size);
}

TargetFolder::Decision TargetFolder::place(const CopyItem& item, const Rules& rules) {
    if (!rules_.accepts(item.name))
        return Error(PhoneError::nameNotAllowed, {item.name});
    const QString key = rules_.key(item.name);
    if (const auto unreadable = unreadable_.constFind(key); unreadable != unreadable_.constEnd())
        return *unreadable;
    if (given_.contains(key))
        return numbered(item, rules);
    const auto there = existing_.constFind(key);
    if (there == existing_.constEnd()) {
        given_.insert(key);
        return Make{item.name};
    }
    const FileItem existing = *there;
    if (existing.path == rules.ownPath)
        return numbered(item, rules);
    const bool areFolders = existing.isDirectory && item.item.isDirectory;
    if (areFolders && item.isContinued) {
        given_.insert(key);
        return Merge{existing};
    }
    if (isTakenForSame(item, existing, rules)) {
        given_.insert(key);
        return Stay{existing};
    }
    return answered(item, existing, rules);
}

TargetFolder::Decision TargetFolder::answered(const CopyItem& item, const FileItem& existing,
                                              const Rules& rules) {
    const ClashAnswer answer = rules.policy({item.item, existing});
    const bool areFolders = existing.isDirectory && item.item.isDirectory;
    if (answer == ClashAnswer::keepBoth || (answer == ClashAnswer::merge && !areFolders))
        return numbered(item, rules);
    given_.insert(rules_.key(item.name));
    if (answer == ClashAnswer::skip)
        return Stay{};
    if (areFolders)
        return Merge{existing};
    if (existing.isDirectory != item.item.isDirectory) {
        const QString path = joinPath(path_, existing.name);
        return Error(existing.isDirectory ? LocalError::folderInTheWay : LocalError::fileInTheWay,
                     {path});
    }
    if (answer == ClashAnswer::replaceOlder) {
        const bool isOlder =
            existing.modifiedDate && item.item.modifiedDate &&
            existing.modifiedDate->msecsTo(*item.item.modifiedDate) > dateStep_.count();
        if (!isOlder)
            return Stay{};
    }
    return Replace{existing};
}

/// A number for the name; but a file that an earlier copy numbered is not copied again.
TargetFolder::Decision TargetFolder::numbered(const CopyItem& item, const Rules& rules) {
    std::optional<FileItem> same;
    const QString name =
        freeNameUnder(rules_, item.name, item.item.isDirectory, [&](const QString& key) {
            if (given_.contains(key) || unreadable_.contains(key))
                return true;
            const auto existing = existing_.constFind(key);
            if (existing == existing_.constEnd())
                return false;
            if (isTakenForSame(item, *existing, rules))
                same = *existing;
            return !same;
        });
    if (!rules_.accepts(name)) // too long for a number
        return Error(PhoneError::nameNotAllowed, {item.name});
    given_.insert(rules_.key(name));
    if (same)
        return Stay{std::move(same)};
    return Make{name};
}

} // namespace tessary
