#include "adb/files/ADBFileSystem.h"

#include "adb/files/ADBEdits.h"
#include "adb/files/ADBListing.h"
#include "adb/files/ADBPhoneErrors.h"
#include "adb/files/ADBSmallFiles.h"
#include "base/log/DiagnosticsLogger.h"
#include "base/text/PathNames.h"
#include "phone/PassingTurn.h"

#include <algorithm>

namespace tessary {

namespace {

void letOthersIn(PassingTurn& turn) {
    if (turn.isDue())
        turn.pass();
}

/// Reads what lies in a range of a file by whole blocks. True when `sink` got all of it.
class RangeReader {
public:
    RangeReader(ByteRange range, const ByteSink& sink)
        : skip_(static_cast<std::uint64_t>(range.offset)),
          left_(range.length < 0 ? ~std::uint64_t{0} : static_cast<std::uint64_t>(range.length)),
          sink_(sink) {}

    /// The next bytes of the file from `skip_` on; false when that is all.
    bool take(ByteView bytes) {
        const std::size_t skipped = std::min<std::uint64_t>(skip_, bytes.size());
        skip_ -= skipped;
        bytes = bytes.subspan(skipped);
        bytes = bytes.first(std::min<std::uint64_t>(left_, bytes.size()));
        left_ -= bytes.size();
        done_ += static_cast<qint64>(bytes.size());
        if (!bytes.empty())
            sink_(bytes);
        return left_ > 0;
    }
    void skipBlocks(std::uint64_t bytes) {
        skip_ -= bytes;
    }
    [[nodiscard]] qint64 done() const {
        return done_;
    }

private:
    std::uint64_t skip_;
    std::uint64_t left_;
    qint64 done_ = 0;
    const ByteSink& sink_;
};

/// Progress after which others get their turn.
ByteProgress inTurns(const ByteProgress& progress, PassingTurn& turn) {
    return [&progress, &turn](qint64 done) {
        if (progress)
            progress(done);
        letOthersIn(turn);
    };
}

} // namespace

ADBFileSystem::ADBFileSystem(PhoneIdentity phone, std::shared_ptr<PhoneQueue> queue,
                             std::shared_ptr<ADBConnection> connection)
    : phone_(std::move(phone)),
      queue_(std::move(queue)),
      connection_(std::move(connection)),
      session_(connection_) {}

ADBFileSystem::~ADBFileSystem() {
    queue_->forget(this);
}

/// Runs `work()` by whoever has the turn, with its errors as the phone's.
template <typename Work>
auto ADBFileSystem::withSession(const QString& path, Work work) {
    try {
        if (!session_.isOpen())
            queue_->closeWhenIdle(this, [this] { session_.close(); });
        return work();
    } catch (const Error& error) {
        const Error translated = phoneErrorOf(error, path);
        if (endsEverything(translated))
            session_.close();
        throw translated;
    }
}

template <typename Work>
auto ADBFileSystem::inTurn(const QString& path, const Call& call, Work work) {
    const PhoneQueue::Turn turn = queue_->take(call);
    return withSession(path, work);
}

/// As inTurn(), with `work(edits)`.
template <typename Work>
auto ADBFileSystem::editing(const QString& path, const Call& call, Work work) {
    return inTurn(path, call, [&] {
        queue_->noteEdit();
        ADBEdits edits(session_, call.stop);
        return work(edits);
    });
}

/// As inTurn(), with `work(turn)`.
template <typename Work>
auto ADBFileSystem::inPassingTurn(const QString& path, const Call& call, Work work) {
    PassingTurn turn(*queue_, call);
    return withSession(path, [&] { return work(turn); });
}

QString ADBFileSystem::identity() const {
    return QStringLiteral("adb:") + phone_.udid;
}

QString ADBFileSystem::displayName() const {
    return phoneName(phone_, *queue_);
}

FileTreeRoot ADBFileSystem::rootOf(const QString& path) const {
    return storages_.rootOf(path);
}

QString ADBFileSystem::canonicalPath(const QString& path) const {
    return storages_.canonicalPath(path);
}

FileSystemCapabilities ADBFileSystem::capabilities(const Call& call) {
    return inTurn({}, call, [&] {
        FileSystemCapabilities can;
        can.renamesOntoTaken = true;
        can.setsDates = true;
        can.readsRanges = session_.shell(call.stop).isExact();
        can.appends = can.readsRanges;
        can.appendsFrom = ADBEdits::appendsFrom;
        can.readsTogether = true;
        can.writesTogether = can.readsRanges;
        can.hasHashes = !session_.hashCommand(call.stop).isEmpty();
        return can;
    });
}

NameRules ADBFileSystem::nameRules(const QString& folder, const Call& call) {
    const QString path = canonicalPath(folder);
    try {
        return inTurn(path, call, [&] { return storages_.nameRules(path, session_, call.stop); });
    } catch (const Error& error) {
        if (endsEverything(error) || error.is(PhoneError::busy))
            throw;
        DiagnosticsLogger::shared().adb.standard("Name rules unknown: %s", {error.logText()});
        NameRules careful;
        careful.ignoresCase = true;
        return careful;
    }
}

void ADBFileSystem::list(const QString& folder, const ListingReceiver& receiver, const Call& call) {
    const QString path = enteredPath(folder, call);
    inTurn(path, call, [&] { listADBFolder(session_, path, receiver, call.stop); });
}

std::optional<FileItem> ADBFileSystem::find(const QString& path, const Call& call) {
    const QString clean = enteredPath(path, call);
    return inTurn(clean, call, [&]() -> std::optional<FileItem> {
        const FileTreeRoot root = rootOf(clean);
        const QByteArray bytes = phonePath(clean);
        const auto facts = session_.facts({{bytes, false}, {bytes, true}}, call.stop);
        if (!facts[0])
            return std::nullopt;
        if (root.path == clean && !facts[1])
            throw Error(PhoneError::noStorage);
        return itemOf(root.path == clean ? root.name : lastComponent(clean), clean,
                      facts[1] ? *facts[1] : *facts[0]);
    });
}

qint64 ADBFileSystem::read(const FileItem& file, ByteRange range, const ByteSink& sink,
                           const Call& call) {
    constexpr qint64 block = 64 * 1024;
    constexpr qint64 shortRange = qint64{4} << 20;
    const QString path = canonicalPath(file.path);
    return inPassingTurn(path, call, [&](PassingTurn& turn) {
        RangeReader reader(range, sink);
        const auto take = [&](ByteView bytes) {
            const bool wantsMore = reader.take(bytes);
            letOthersIn(turn);
            return wantsMore;
        };
        const auto check = [&](const ADBFacts& facts) {
            if (facts.error == 0 && facts.isFolder())
                throw Error(PhoneError::changed, {path});
        };
        if (range.length == 0)
            return reader.done();
        ADBShellClient& shell = session_.shell(call.stop);
        // A command costs the phone a process, but sends no more than the range.
        const bool isPart = range.offset > 0 || (range.length > 0 && range.length <= shortRange &&
                                                 file.size - range.length > shortRange);
        if (!isPart || !shell.isExact()) {
            session_.apart(call.stop, true, [&](ADBSyncClient& sync) {
                return sync.receive(phonePath(path), check, take,
                                    {call.stop, ADBSession::patience});
            });
            return reader.done();
        }
        const auto facts = session_.facts(phonePath(path), true, call.stop);
        if (!facts)
            throw Error(PhoneError::notFound, {path});
        check(*facts);
        QByteArrayList words{"dd", "if=" + phonePath(path), "bs=" + QByteArray::number(block),
                             "skip=" + QByteArray::number(range.offset / block)};
        if (range.length > 0)
            words.append("count=" + QByteArray::number(
                                        (range.offset % block + range.length + block - 1) / block));
        reader.skipBlocks(static_cast<std::uint64_t>(range.offset / block * block));
        const ADBCommandResult result =
            shell.stream(ADBSession::lineOf(words), take, {call.stop, ADBSession::patience});
        session_.throwIfFailed("dd", result);
        return reader.done();
    });
}

FileItem ADBFileSystem::write(const NewFile& file, const ByteSource& content,
                              const ByteProgress& progress, const Call& call) {
    NewFile there = file;
    there.folder = canonicalPath(file.folder);
    return inPassingTurn(joinPath(there.folder, file.name), call, [&](PassingTurn& turn) {
        queue_->noteEdit();
        return ADBEdits(session_, call.stop).write(there, content, inTurns(progress, turn));
    });
}

FileItem ADBFileSystem::append(const FileItem& begun, qint64 keptBytes, const NewFile& whole,
                               const ByteSource& content, const ByteProgress& progress,
                               const Call& call) {
    const FileItem part = editable(begun);
    NewFile there = whole;
    there.folder = parentPath(part.path);
    there.name = part.name;
    return inPassingTurn(part.path, call, [&](PassingTurn& turn) {
        if (!session_.shell(call.stop).isExact())
            throw Error(PhoneError::notSupported, {part.path});
        queue_->noteEdit();
        return ADBEdits(session_, call.stop)
            .append(part, keptBytes, there, content, inTurns(progress, turn));
    });
}

std::vector<std::optional<QByteArray>>
ADBFileSystem::readTogether(const std::vector<FileItem>& files, const Call& call) {
    std::vector<ADBSyncClient::Wanted> wanted;
    for (const FileItem& file : files)
        wanted.push_back({phonePath(canonicalPath(file.path)), file.size});
    return inTurn({}, call, [&] {
        return session_.asking(call.stop, [&](ADBSyncClient& sync) {
            return sync.receiveTogether(wanted, {call.stop, ADBSession::patience});
        });
    });
}

std::vector<std::optional<FileItem>>
ADBFileSystem::writeTogether(const QString& folder, const std::vector<SmallFile>& files,
                             const std::function<bool(std::size_t)>& isWanted,
                             const ByteProgress& progress, const Call& call) {
    const QString path = canonicalPath(folder);
    return inTurn(path, call, [&] {
        if (!session_.shell(call.stop).isExact())
            throw Error(PhoneError::notSupported, {path});
        queue_->noteEdit();
        return ADBSmallFiles(session_, path, files, call).write(isWanted, progress);
    });
}

FileItem ADBFileSystem::makeFolder(const QString& parent, const QString& name, const Call& call) {
    const QString folder = canonicalPath(parent);
    return editing(joinPath(folder, name), call,
                   [&](ADBEdits& edits) { return edits.makeFolder(folder, name); });
}

/// The canonical path of a place that was kept, maybe while the phone was used over MTP.
QString ADBFileSystem::enteredPath(const QString& path, const Call& call) {
    QString clean = canonicalPath(path);
    if (!ADBStorages::isByNumber(clean))
        return clean;
    inTurn(clean, call, [&] { storages_.learn(session_, call.stop); });
    clean = canonicalPath(path);
    if (ADBStorages::isByNumber(clean))
        throw Error(PhoneError::notFound, {clean});
    return clean;
}

/// The item with its path as the phone has it. PhoneError::wholeStorage for a storage's root,
/// ::nameNotAllowed for one whose name is none, or whose path leads elsewhere.
FileItem ADBFileSystem::editable(const FileItem& item) const {
    FileItem there = item;
    there.path = canonicalPath(item.path);
    if (there.path == ADBStorages::rootPathOf(there.path) || there.path.count(u'/') < 2)
        throw Error(PhoneError::wholeStorage, {there.path});
    const QStringList components = item.path.split(u'/', Qt::SkipEmptyParts);
    if (!isSafeName(item.name) || components.contains(QStringLiteral("..")) ||
        components.contains(QStringLiteral(".")) || lastComponent(there.path) != item.name)
        throw Error(PhoneError::nameNotAllowed, {item.name});
    return there;
}

void ADBFileSystem::remove(const FileItem& item, const Call& call) {
    const FileItem there = editable(item);
    editing(there.path, call, [&](ADBEdits& edits) { edits.remove(there); });
}

void ADBFileSystem::removeTree(const FileItem& item, const Call& call) {
    if (!item.isDirectory)
        return remove(item, call);
    const FileItem there = editable(item);
    const QByteArray path = phonePath(there.path);
    const PhoneQueue::Job job = queue_->beginJob();
    const ADBShellClient shell = inTurn(there.path, call, [&] {
        queue_->noteEdit();
        ADBEdits::requireKind(there, session_.facts(path, false, call.stop));
        return session_.shell(call.stop);
    });
    (void)runApart(shell, {"rm", "-rf", path}, there.path, call);
    inTurn(there.path, call, [&] {
        queue_->noteEdit();
        if (session_.facts(path, false, call.stop))
            throw Error(PhoneError::notDone, {there.path});
    });
}

FileItem ADBFileSystem::rename(const FileItem& item, const QString& newName, TakenName taken,
                               const Call& call) {
    const FileItem there = editable(item);
    const QString folder = parentPath(there.path);
    // What a phone refuses here is the new name.
    return editing(joinPath(folder, newName), call,
                   [&](ADBEdits& edits) { return edits.rename(there, folder, newName, taken); });
}

FileItem ADBFileSystem::move(const FileItem& item, const QString& newFolder, const Call& call) {
    const FileItem there = editable(item);
    const QString folder = canonicalPath(newFolder);
    if (isAtOrBelow(folder, there.path))
        throw Error(PhoneError::insideItself, {there.path});
    if (ADBStorages::rootPathOf(folder) != ADBStorages::rootPathOf(there.path))
        throw Error(PhoneError::otherStorage, {there.path});
    return editing(there.path, call, [&](ADBEdits& edits) {
        return edits.rename(there, folder, there.name, TakenName::refused);
    });
}

void ADBFileSystem::setModified(const FileItem& file, const QDateTime& date, const Call& call) {
    const FileItem there = editable(file);
    editing(there.path, call, [&](ADBEdits& edits) { edits.setModified(there, date); });
}

std::optional<std::uint64_t> ADBFileSystem::freeBytes(const QString& folder, const Call& call) {
    const QString path = canonicalPath(folder);
    return inTurn(path, call, [&] { return storages_.freeBytes(path, session_, call.stop); });
}

std::optional<LiveDeviceInfo> ADBFileSystem::liveInfo(const std::stop_token& stop) {
    const auto turn = queue_->tryTake();
    if (!turn)
        return std::nullopt;
    try {
        return withSession({}, [&] { return storages_.ask(session_, stop); });
    } catch (const Error& error) {
        if (endsEverything(error))
            throw;
        DiagnosticsLogger::shared().adb.standard("Storage stats fetch notice: %s",
                                                 {error.logText()});
        return std::nullopt;
    }
}

std::optional<QByteArray> ADBFileSystem::hash(const FileItem& file, const Call& call) {
    const QString path = canonicalPath(file.path);
    constexpr qint64 longFile = qint64{16} << 20; // worth a shell of its own
    const PhoneQueue::Job job = queue_->beginJob();
    std::optional<ADBShellClient> apart;
    QByteArrayList words;
    QByteArray output;
    inTurn(path, call, [&] {
        words = session_.hashCommand(call.stop);
        if (words.isEmpty())
            return;
        words.append(phonePath(path));
        ADBEdits::requireKind(file, session_.facts(words.last(), true, call.stop));
        if (file.size >= longFile)
            apart.emplace(session_.shell(call.stop));
        else
            output = session_.run(words, ADBSession::longPatience, call.stop);
    });
    if (words.isEmpty())
        return std::nullopt;
    if (apart)
        output = runApart(*apart, words, path, call);
    if (output.startsWith('\\')) // a name with a "\" or a line break in it
        output.remove(0, 1);
    constexpr qsizetype digits = 64;
    const QByteArray hash = QByteArray::fromHex(output.left(digits));
    if (hash.size() != digits / 2 || hash.toHex() != output.left(digits))
        throw Error(PhoneError::nonsense);
    return hash;
}

/// Runs a command that works for long, in a shell of its own and without the turn: others use the
/// phone meanwhile. Returns its output.
QByteArray ADBFileSystem::runApart(ADBShellClient shell, const QByteArrayList& words,
                                   const QString& path, const Call& call) const {
    try {
        const ADBCommandResult result =
            shell.run(ADBSession::lineOf(words), {call.stop, ADBSession::longPatience});
        session_.throwIfFailed(words.first(), result);
        return result.output;
    } catch (const Error& error) {
        throw phoneErrorOf(error, path);
    }
}

QStringList ADBFileSystem::programsHolding() {
    return connection_->programsHolding();
}

} // namespace tessary
