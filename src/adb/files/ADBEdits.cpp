#include "adb/files/ADBEdits.h"

#include "adb/files/ADBListing.h"
#include "adb/protocol/ADBError.h"
#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "phone/PartNames.h"

#include <QTimeZone>

#include <algorithm>
#include <exception>
#include <limits>

namespace tessary {

std::uint32_t ADBEdits::secondsOf(const std::optional<QDateTime>& date) {
    constexpr qint64 last = std::numeric_limits<std::uint32_t>::max();
    const qint64 seconds =
        (date && date->isValid() ? *date : QDateTime::currentDateTimeUtc()).toSecsSinceEpoch();
    return static_cast<std::uint32_t>(std::clamp<qint64>(seconds, 0, last));
}

void ADBEdits::requireKind(const FileItem& item, const std::optional<ADBFacts>& facts) {
    if (!facts)
        throw Error(PhoneError::notFound, {item.path});
    if (!facts->isLink() && facts->isFolder() != item.isDirectory)
        throw Error(PhoneError::changed, {item.path});
}

void ADBEdits::requireFolder(const QString& path, const std::optional<ADBFacts>& facts) {
    if (!facts)
        throw Error(PhoneError::notFound, {path});
    if (!facts->isFolder())
        throw Error(PhoneError::notAFolder, {path});
}

void ADBEdits::requireName(const QString& name) {
    if (!NameRules().accepts(name))
        throw Error(PhoneError::nameNotAllowed, {name});
}

/// True when the name is `own` in another spelling.
bool ADBEdits::requireFree(const QString& folder, const QString& name,
                           const std::optional<ADBFacts>& there, const QString& own) {
    if (!there)
        return false;
    const auto listed = spellingInFolder(session_, folder, name, stop_);
    if (!listed || *listed == name)
        throw Error(PhoneError::taken, {name});
    if (*listed != own)
        throw Error(PhoneError::sameName, {*listed, name});
    return true;
}

FileItem ADBEdits::makeFolder(const QString& parent, const QString& name) {
    requireName(name);
    const QString path = joinPath(parent, name);
    const QByteArray bytes = phonePath(path);
    const auto before = session_.facts({{phonePath(parent), true}, {bytes, false}}, stop_);
    requireFolder(parent, before[0]);
    (void)requireFree(parent, name, before[1], {});
    session_.run({"mkdir", bytes}, ADBSession::patience, stop_);
    const auto after = session_.facts(bytes, false, stop_);
    if (!after || !after->isFolder())
        throw Error(PhoneError::notDone, {path});
    return itemOf(name, path, *after);
}

void ADBEdits::remove(const FileItem& item) {
    const QByteArray path = phonePath(item.path);
    const auto before = session_.facts(path, false, stop_);
    requireKind(item, before);
    if (!before->isFolder())
        session_.run({"rm", "-f", path}, ADBSession::longPatience, stop_);
    else
        session_.run({"rmdir", path}, ADBSession::patience, stop_);
    if (session_.facts(path, false, stop_))
        throw Error(PhoneError::notDone, {item.path});
}

FileItem ADBEdits::rename(const FileItem& item, const QString& folder, const QString& name,
                          TakenName taken) {
    requireName(name);
    const QString newPath = joinPath(folder, name);
    const QByteArray from = phonePath(item.path);
    const QByteArray to = phonePath(newPath);
    const auto before =
        session_.facts({{from, false}, {to, false}, {phonePath(folder), true}}, stop_);
    requireKind(item, before[0]);
    requireFolder(folder, before[2]);
    if (from == to)
        return item;
    const bool mayReplace = taken == TakenName::replaced && before[1] && !before[1]->isFolder() &&
                            !before[0]->isFolder();
    const QString own = parentPath(item.path) == folder ? item.name : QString();
    if (before[1]) {
        const auto listed =
            mayReplace ? spellingInFolder(session_, folder, name, stop_) : std::optional<QString>();
        const bool isTwin = mayReplace && listed && *listed != name;
        if ((!mayReplace || isTwin) && requireFree(folder, name, before[1], own))
            return respell(item, newPath);
    }
    session_.run({"mv", mayReplace ? "-f" : "-n", from, to}, ADBSession::longPatience, stop_);
    const auto after = session_.facts({{from, false}, {to, false}}, stop_);
    // "mv -n" says nothing of a name that was taken in between, and puts an item into a folder that
    // has got its name.
    if (after[0] || !after[1] || after[1]->isFolder() != before[0]->isFolder())
        throw Error(PhoneError::notDone, {item.path});
    return itemOf(name, newPath, *after[1]);
}

/// To a phone that ignores case a name's other spelling is taken by the item itself: it goes there
/// by way of a third name, in one command, and by one that is not taken for something of ours
/// should the phone not live to see its end.
FileItem ADBEdits::respell(const FileItem& item, const QString& newPath) {
    const QByteArray from = phonePath(item.path);
    const QByteArray to = phonePath(newPath);
    const QByteArray between =
        phonePath(joinPath(parentPath(newPath), respellingName(lastComponent(newPath))));
    const ADBCommandResult result =
        session_.tryRunLine(ADBSession::lineOf({"mv", "-n", from, between}) + " && " +
                                ADBSession::lineOf({"mv", "-n", between, to}),
                            ADBSession::patience, stop_);
    // A stop that comes now leaves nothing under the third name, but does not wait long for it.
    const std::chrono::milliseconds limit =
        stop_.stop_requested() ? ADBSession::finishLimit : ADBSession::patience;
    return ADBSession::finish(limit, [&](const std::stop_token& stop) {
        const auto after = session_.facts({{between, false}, {to, false}}, stop);
        if (!after[0] && after[1])
            return itemOf(lastComponent(newPath), newPath, *after[1]);
        session_.run({"mv", "-n", between, from}, ADBSession::patience, stop);
        session_.throwIfFailed("mv", result);
        throw Error(PhoneError::notDone, {item.path});
    });
}

void ADBEdits::setModified(const FileItem& file, const QDateTime& date) {
    const QByteArray path = phonePath(file.path);
    requireKind(file, session_.facts(path, false, stop_));
    const QByteArray stamp = date.toUTC().toString(QStringLiteral("yyyyMMddHHmm.ss")).toLatin1();
    const ADBCommandResult result = session_.shell(stop_).run(
        "TZ=UTC0 " + ADBSession::lineOf({"touch", "-m", "-t", stamp, path}),
        {stop_, ADBSession::patience});
    session_.throwIfFailed("touch", result);
    const auto after = session_.facts(path, false, stop_);
    constexpr qint64 step = 2; // of a card's file system, in seconds
    if (!after || std::abs(after->modified - date.toSecsSinceEpoch()) >= step)
        throw Error(PhoneError::notDone, {file.path});
}

FileItem ADBEdits::write(const NewFile& file, const ByteSource& content,
                         const ByteProgress& progress) {
    requireName(file.name);
    const QString path = joinPath(file.folder, file.name);
    const QByteArray bytes = phonePath(path);
    const auto before = session_.facts({{phonePath(file.folder), true}, {bytes, false}}, stop_);
    requireFolder(file.folder, before[0]);
    (void)requireFree(file.folder, file.name, before[1], {});
    if (file.staysWhenBroken && file.size >= appendsFrom && session_.shell(stop_).isExact())
        return fill(file, 0, content, progress);
    std::uint64_t done = 0;
    try {
        const ADBFacts facts = session_.apart(stop_, false, [&](ADBSyncClient& sync) {
            const auto sent = [&](std::uint64_t bytesSent) {
                done = bytesSent;
                if (progress)
                    progress(static_cast<qint64>(bytesSent));
            };
            try {
                return sync.send(bytes, newFileMode, content, secondsOf(file.modified), sent,
                                 {stop_, ADBSession::patience});
            } catch (...) {
                sync.end(ADBSession::endPatience);
                throw;
            }
        });
        const std::uint64_t size =
            facts.isOld ? (done & ~std::uint64_t{0xFFFFFFFF}) + facts.size : facts.size;
        if (facts.error != 0)
            throw Error(PhoneError::notDone, {path});
        if (size != done || done != static_cast<std::uint64_t>(file.size))
            throw Error(PhoneError::wrongSize, {path, static_cast<qint64>(size), file.size});
        ADBFacts whole = facts;
        whole.size = size;
        return itemOf(file.name, path, whole);
    } catch (...) {
        const std::exception_ptr failure = std::current_exception();
        removeRest(bytes);
        std::rethrow_exception(failure);
    }
}

FileItem ADBEdits::append(const FileItem& begun, qint64 keptBytes, const NewFile& whole,
                          const ByteSource& content, const ByteProgress& progress) {
    const auto before = session_.facts(phonePath(begun.path), false, stop_);
    requireKind(begun, before);
    if (!before->isFile() || before->size < static_cast<std::uint64_t>(keptBytes))
        throw Error(PhoneError::changed, {begun.path});
    return fill(whole, keptBytes, content, progress);
}

/// By a command, since the sync service removes what it did not get whole. Each byte goes to its
/// own place: what an earlier command has still under way does no harm.
FileItem ADBEdits::fill(const NewFile& file, qint64 keptBytes, const ByteSource& content,
                        const ByteProgress& progress) {
    const QString path = joinPath(file.folder, file.name);
    const QByteArray bytes = phonePath(path);
    qint64 block = 64 * 1024;
    while (keptBytes % block != 0)
        block /= 2;
    qint64 done = keptBytes;
    const auto sent = [&](std::uint64_t bytesSent) {
        done = keptBytes + static_cast<qint64>(bytesSent);
        if (progress)
            progress(done);
    };
    ADBShellClient shell = session_.shell(stop_); // others may use the session meanwhile
    const ADBCommandResult result = shell.feed(
        ADBSession::lineOf({"dd", "of=" + bytes, "bs=" + QByteArray::number(block),
                            "seek=" + QByteArray::number(keptBytes / block), "conv=notrunc"}),
        content, sent, {stop_, ADBSession::patience});
    session_.throwIfFailed("dd", result);
    auto after = session_.facts(bytes, false, stop_);
    if (!after || !after->isFile())
        throw Error(PhoneError::notDone, {path});
    if (after->size != static_cast<std::uint64_t>(file.size) || done != file.size)
        throw Error(PhoneError::wrongSize, {path, static_cast<qint64>(after->size), file.size});
    FileItem made = itemOf(file.name, path, *after);
    if (!file.modified)
        return made;
    try {
        setModified(made, *file.modified);
        made.modifiedDate = QDateTime::fromSecsSinceEpoch(secondsOf(file.modified));
    } catch (const Error& error) {
        if (!error.is(PhoneError::notDone) && !error.is(ADBError::commandFailed))
            throw;
        // A copy is whole without its date.
    }
    return made;
}

/// A phone removes what was not sent whole by itself, but not what it took and we refuse.
void ADBEdits::removeRest(const QByteArray& path) {
    try {
        ADBSession::finish(ADBSession::finishLimit, [&](const std::stop_token& stop) {
            (void)session_.tryRun({"rm", "-f", path}, ADBSession::endPatience, stop);
        });
    } catch (const Error&) {
        // the link is lost: the phone's own part of it has to do
    }
}

} // namespace tessary
