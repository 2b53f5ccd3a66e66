#include "transfer/copy/FileCopy.h"

#include "base/hash/ContentHash.h"
#include "base/local/LocalError.h"
#include "base/log/DiagnosticsLogger.h"
#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "transfer/copy/CopyErrors.h"
#include "transfer/copy/FileStream.h"
#include "transfer/copy/Leftovers.h"

#include <algorithm>

namespace tessary {

namespace {

/// A file under a part name, removed again unless it gets another.
class PartOnTarget {
public:
    PartOnTarget(PhoneFileSystem& files, FileItem item, const Call& call)
        : files_(files), item_(std::move(item)), urgency_(call.urgency) {}
    ~PartOnTarget() {
        if (!isOurs_)
            return;
        try {
            files_.remove(item_, {{}, urgency_}); // also when the copy was cancelled
        } catch (const Error& error) {
            if (!error.is(PhoneError::notFound) && !error.is(LocalError::notFound))
                tell(error);
        } catch (const std::exception& error) {
            tell(error);
        }
    }
    PartOnTarget(const PartOnTarget&) = delete;
    PartOnTarget& operator=(const PartOnTarget&) = delete;

    [[nodiscard]] const FileItem& item() const {
        return item_;
    }
    void setItem(FileItem item) {
        item_ = std::move(item);
    }
    /// From here on it is not removed.
    void keep() {
        isOurs_ = false;
    }

private:
    static void tell(const std::exception& error) {
        DiagnosticsLogger::shared().transfer.standard("a part stays: %s",
                                                      {QString::fromUtf8(error.what())});
    }

    PhoneFileSystem& files_;
    FileItem item_;
    const Urgency urgency_;
    bool isOurs_ = true;
};

/// What is to be replaced, when it still is what was seen.
FileItem lookAgain(PhoneFileSystem& files, const QString& folder, const FileItem& seen,
                   const Call& call) {
    const QString path = joinPath(folder, seen.name);
    auto now = files.find(path, call);
    if (!now || !isAsSeen(seen, *now))
        throw changedError(files, path);
    return *std::move(now);
}

FileItem giveName(PhoneFileSystem& to, const FilePut& put, bool renamesOntoTaken,
                  PartOnTarget& part, const Call& call) {
    if (!put.replaces) {
        FileItem named = to.rename(part.item(), put.name, TakenName::refused, call);
        part.keep();
        return named;
    }
    const auto look = [&] { return lookAgain(to, put.folder, *put.replaces, call); };
    const auto replaceAtOnce = [&] {
        FileItem named = to.rename(part.item(), put.name, TakenName::replaced, call);
        part.keep();
        return named;
    };
    if (renamesOntoTaken && !put.trash) {
        (void)look();
        return replaceAtOnce();
    }
    const QString waiting = waitingName(to.nameRules(put.folder, call), put.name, call.partOwner);
    const PartInUse use(waiting);
    part.setItem(to.rename(part.item(), waiting, TakenName::refused, call));
    // Nothing is cancelled between the removal and the new name.
    const Call whole{{}, call.urgency};
    throwIfStopped(call.stop);
    const FileItem old = look();
    if (put.trash && put.trash(old.path)) {
        part.keep();
        return to.rename(part.item(), put.name, TakenName::refused, whole);
    }
    if (renamesOntoTaken)
        return replaceAtOnce();
    try {
        to.remove(old, whole);
    } catch (const Error& error) {
        // A link that broke off may have taken the old one with it: then this is the only one.
        if (endsEverything(error))
            part.keep();
        throw;
    }
    part.keep();
    return to.rename(part.item(), put.name, TakenName::refused, whole);
}

/// Sets the date where writing did not.
FileItem dated(PhoneFileSystem& to, FileItem item, const FilePut& put,
               const FileSystemCapabilities& can, const Call& call) {
    if (!put.modified || !can.setsDates)
        return item;
    if (item.modifiedDate &&
        std::abs(item.modifiedDate->msecsTo(*put.modified)) < std::max(can.dateStep.count(), 1L))
        return item;
    try {
        to.setModified(item, *put.modified, call);
        if (const auto now = to.find(item.path, call)) // in the steps that dates go there
            item.modifiedDate = now->modifiedDate;
    } catch (const Error& error) {
        if (endsEverything(error))
            throw;
        // A date that the target cannot hold is no reason to lose the copy.
    }
    return item;
}

/// The progress of a file that goes across more than once, since it is read again for comparing:
/// each time is its share of the whole.
class SharedProgress {
public:
    SharedProgress(const ByteProgress& progress, qint64 size, int times)
        : progress_(progress), size_(size), times_(times) {}

    /// For the next time that the file goes across.
    [[nodiscard]] ByteProgress next() {
        const int later = times_ - ++begun_;
        return [this, later](qint64 done) {
            if (progress_)
                progress_(size_ - size_ / times_ * later -
                          std::max<qint64>(size_ - done, 0) / times_);
        };
    }

private:
    const ByteProgress& progress_;
    const qint64 size_;
    const int times_;
    int begun_ = 0;
};

} // namespace

QByteArray hashOf(PhoneFileSystem& files, const FileItem& item, const Call& call,
                  const ByteProgress& progress) {
    if (files.capabilities(call).hasHashes)
        if (auto known = files.hash(item, call))
            return *std::move(known);
    ContentHash hash;
    qint64 done = 0;
    files.read(
        item, {},
        [&](ByteView bytes) {
            hash.add(bytes);
            done += static_cast<qint64>(bytes.size());
            if (progress)
                progress(done);
        },
        call);
    return hash.finish();
}

bool haveSameContent(PhoneFileSystem& files, const FileItem& file, PhoneFileSystem& others,
                     const FileItem& other, const Call& call) {
    return hashOf(files, file, call) == hashOf(others, other, call);
}

bool isOneFolder(PhoneFileSystem& files, const QString& folder, PhoneFileSystem& others,
                 const QString& otherFolder, const Call& call) {
    const QString name = newPartName(call.partOwner);
    const PartOnTarget sign(
        files,
        files.write(
            {folder, name, 0, {}}, [](std::span<std::byte>) { return std::size_t{0}; }, {}, call),
        call);
    return others.find(joinPath(otherFolder, name), call).has_value();
}

bool isAsSeen(const FileItem& seen, const FileItem& now) {
    return seen.isDirectory == now.isDirectory && seen.size == now.size &&
           seen.modifiedDate == now.modifiedDate &&
           (!seen.handle || !now.handle || seen.handle == now.handle);
}

namespace {

/// Writes the part, or what is missing of it.
FileItem writePart(PhoneFileSystem& to, const FilePut& put, const QString& name, bool isDatedLater,
                   const ByteSource& content, const ByteProgress& progress, const Call& call) {
    NewFile whole{put.folder, name, put.size, put.modified, put.staysWhenBroken};
    // By the date of its last byte a part is told from an old one.
    if (put.staysWhenBroken && isDatedLater)
        whole.modified.reset();
    const auto removeBroken = [&] {
        const Call last{{}, call.urgency};
        if (const auto broken = to.find(joinPath(put.folder, name), last))
            to.remove(*broken, last);
    };
    try {
        if (put.begun)
            return to.append(*put.begun, put.keptBytes, whole, content, progress, call);
        return to.write(whole, content, progress, call);
    } catch (const Error& error) {
        // What the source says of itself makes its part worthless; a lost link does not. Another
        // program that goes on with it changes it.
        const bool isOthers = put.begun && saysChanged(error) &&
                              error.arguments().value(0).toString() == put.begun->path;
        if (put.staysWhenBroken && !isOthers && !endsEverything(error) && !isTaken(error))
            removeBroken();
        throw;
    }
}

/// What is there already of a copy that broke off.
struct Resumption {
    QString partName;
    std::optional<FileItem> begun;
    qint64 keptBytes = 0;
};

std::optional<Resumption> resumptionOf(const FileCopy& copy, const FileSystemCapabilities& can,
                                       const Call& call) {
    if (copy.file.size < resumableFrom || !copy.file.modifiedDate)
        return std::nullopt;
    if (!can.appends || copy.file.size < can.appendsFrom ||
        !copy.from.capabilities(call).readsRanges)
        return std::nullopt;
    Resumption found{resumableName(copy.from, copy.file), {}, 0};
    if (PartInUse::has(found.partName)) // the same file, copied twice at a time
        return std::nullopt;
    found.begun = copy.to.find(joinPath(copy.folder, found.partName), call);
    if (!found.begun)
        return found;
    constexpr qint64 step = 64 * 1024; // what some write in
    const qint64 kept = std::min(found.begun->size, copy.file.size) - can.doubtedEnd;
    found.keptBytes = std::max<qint64>(kept - kept % step, 0);
    return found;
}

} // namespace

FileItem putFile(PhoneFileSystem& to, const FilePut& put, const ByteSource& content,
                 const std::function<void(const FileItem& part)>& beforeNaming,
                 const ByteProgress& progress, const Call& call) {
    const FileSystemCapabilities can = to.capabilities(call);
    if (!can.renames && put.replaces)
        throw Error(PhoneError::notSupported, {joinPath(put.folder, put.name)});
    const QString writtenAs = !can.renames   ? put.name
                              : put.partName ? *put.partName
                                             : newPartName(call.partOwner);
    const PartInUse use(writtenAs);
    PartOnTarget part(to, writePart(to, put, writtenAs, can.setsDates, content, progress, call),
                      call);
    const auto keepForLater = [&] {
        if (put.staysWhenBroken && part.item().name == writtenAs)
            part.keep();
    };
    try {
        throwIfStopped(call.stop);
        if (beforeNaming)
            beforeNaming(part.item());
        part.setItem(dated(to, part.item(), put, can, call));
        if (can.renames)
            return giveName(to, put, can.renamesOntoTaken, part, call);
        part.keep();
        return part.item();
    } catch (const CancellationError&) {
        keepForLater();
        throw;
    } catch (const Error& error) {
        if (endsEverything(error))
            keepForLater();
        throw;
    }
}

FileItem copyFile(const FileCopy& copy, const ByteProgress& progress, const Call& call) {
    const FileSystemCapabilities can = copy.to.capabilities(call);
    if (can.largestFile > 0 && copy.file.size > can.largestFile)
        throw Error(PhoneError::tooLarge, {copy.file.path});
    FilePut put{
        copy.folder,   copy.name, std::max<qint64>(copy.file.size, 0), copy.file.modifiedDate,
        copy.replaces, copy.trash};
    if (const auto resumption = resumptionOf(copy, can, call)) {
        put.partName = resumption->partName;
        put.begun = resumption->begun;
        put.keptBytes = resumption->keptBytes;
        put.staysWhenBroken = true;
    }
    // A phone that waits for what another sends would have both waiting, when a second copy goes
    // the other way: what comes from a phone for a phone is read first.
    const bool areBothPhones = copy.from.queue() && copy.to.queue();
    // Only a disk here takes more bytes than it was told of.
    const qint64 mayGrowBy = copy.to.queue() ? 0 : FileStream::slack;
    // What a phone keeps of an earlier try is compared where that costs neither side a transfer.
    const bool verifies =
        copy.verifies || (put.keptBytes > 0 && can.hasHashes && !copy.from.queue());
    // Bytes may change on their way from a phone, too: it is asked again, by hash where it works
    // that out. Whoever removes the source afterwards has nothing else.
    const bool asksAgain = verifies && copy.from.queue();
    const auto isReadAgain = [&](PhoneFileSystem& files) {
        return verifies && files.queue() && !files.capabilities(call).hasHashes;
    };
    const bool isSourceReadAgain = isReadAgain(copy.from);
    const bool isCopyReadAgain = isReadAgain(copy.to);
    SharedProgress shared(progress, put.size, 1 + isSourceReadAgain + isCopyReadAgain);
    std::optional<ContentHash> hash;
    if (verifies && !asksAgain)
        hash.emplace();
    if (hash && put.keptBytes > 0)
        copy.from.read(
            copy.file, {0, put.keptBytes}, [&hash](ByteView bytes) { hash->add(bytes); }, call);
    FileStream stream(copy.from, copy.file,
                      areBothPhones ? FileStream::Way::readFirst : FileStream::Way::ahead,
                      mayGrowBy, call, put.keptBytes);
    if (hash)
        stream.beginHash(*std::move(hash));
    const auto check = [&](const FileItem& part) {
        if (copy.checksSource) {
            const auto now = copy.from.find(copy.file.path, call);
            if (!now || !isAsSeen(copy.file, *now))
                throw changedError(copy.from, copy.file.path);
        }
        // A phone may say "done" and keep less. Its figures may be late as well, and worth nothing
        // from 4 GiB on: what is there decides.
        constexpr qint64 most32Bits = 0xFFFFFFFF;
        const bool isDoubted = copy.to.queue() && put.size < most32Bits && part.size != put.size;
        if (!verifies && !isDoubted)
            return;
        const auto next = [&](bool isShown) { return isShown ? shared.next() : ByteProgress(); };
        const QByteArray wanted = asksAgain || !verifies
                                      ? hashOf(copy.from, copy.file, call, next(isSourceReadAgain))
                                      : stream.hash();
        if (hashOf(copy.to, part, call, next(isCopyReadAgain)) != wanted)
            throw Error(PhoneError::differs, {joinPath(copy.folder, copy.name)});
        if (copy.verified)
            copy.verified(wanted);
    };
    return putFile(copy.to, put, stream.source(), check, shared.next(), call);
}

} // namespace tessary
