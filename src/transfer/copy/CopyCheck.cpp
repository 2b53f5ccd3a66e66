#include "transfer/copy/CopyCheck.h"

#include "base/text/ByteCount.h"
#include "base/threads/CancellationError.h"
#include "base/threads/CombinedStopToken.h"
#include "phone/PartNames.h"
#include "transfer/copy/ContentCount.h"

#include <algorithm>

namespace tessary {

namespace {

/// What `ask` says; a value of its own where it fails.
template <typename Ask>
auto orNothing(Ask ask) -> decltype(ask()) {
    try {
        return ask();
    } catch (const Error&) {
        return {};
    }
}

/// Bytes of one thing as far as they can be counted.
qint64 bytesOf(PhoneFileSystem& files, const FileItem& item, bool& isPartial,
               const std::stop_token& stopCounting, const std::stop_token& stop) {
    if (!item.isDirectory)
        return std::max<qint64>(item.size, 0);
    const CombinedStopToken either(stopCounting, stop);
    ContentCount sofar;
    try {
        sofar = countContent(
            files, {item}, [&sofar](const ContentCount& count) { sofar = count; }, either.token());
    } catch (const CancellationError&) {
        throwIfStopped(stop);
        isPartial = true;
    } catch (const Error&) {
        isPartial = true;
    }
    return sofar.bytes;
}

} // namespace

qint64 CopyCheck::neededBytes(const CopyAnswers& answers) const {
    qint64 needed = 0;
    qint64 largestOld = 0;
    for (const CheckedItem& one : items) {
        const ClashAnswer answer = answers.value(one.item.item.id(), ClashAnswer::keepBoth);
        if (one.existing && answer == ClashAnswer::skip)
            continue;
        const bool replaces =
            one.existing && !one.existing->isDirectory && !one.item.item.isDirectory &&
            (answer == ClashAnswer::replace || answer == ClashAnswer::replaceOlder);
        const qint64 old = replaces ? std::clamp<qint64>(one.existing->size, 0, one.bytes) : 0;
        needed = addByteCounts(needed, one.bytes - old);
        largestOld = std::max(largestOld, old);
    }
    return addByteCounts(needed, largestOld);
}

CopyCheck checkCopy(const TreeCopyRequest& request, const CopyCheckFacts& facts,
                    const std::stop_token& stopCounting, const std::stop_token& stop) {
    PhoneFileSystem& to = *request.to;
    CopyCheck check;
    if (const auto free = orNothing([&] { return to.freeBytes(request.folder, stop); }))
        check.freeBytes = std::max<qint64>(clampedByteCount(*free) - facts.bytesOnTheWay, 0);
    const bool mayNotFit =
        check.freeBytes && (!facts.mostBytes || *facts.mostBytes > *check.freeBytes);
    const NameRules rules = orNothing([&] { return to.nameRules(request.folder, stop); });
    QHash<QString, FileItem> there;
    for (FileItem& item : orNothing([&] { return listAll(to, request.folder, stop); }).items)
        if (!isPartName(item.name))
            there.insert(rules.key(item.name), std::move(item));
    for (const CopyItem& item : request.items) {
        throwIfStopped(stop);
        CheckedItem one{item, {}, 0};
        const auto existing = there.constFind(rules.key(item.name));
        if (rules.accepts(item.name) && existing != there.constEnd())
            one.existing = *existing;
        if (!item.item.isDirectory || mayNotFit)
            one.bytes = bytesOf(*request.from, item.item, check.isPartial, stopCounting, stop);
        check.items.push_back(std::move(one));
    }
    return check;
}

ClashPolicy policyFor(CopyAnswers answers, ClashAnswer below) {
    return [answers = std::move(answers), below](const Clash& clash) {
        return answers.value(clash.coming.id(), below);
    };
}

} // namespace tessary
