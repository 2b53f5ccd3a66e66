#pragma once

#include "base/values/Bytes.h"
#include "phone/ByteSource.h"
#include "phone/NameRules.h"
#include "phone/PhoneCall.h"
#include "phone/PhoneError.h"
#include "phone/records/DeviceInfo.h"
#include "phone/records/FileItem.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

namespace tessary {

class PhoneQueue;

/// What a file system can do beyond listing, reading, writing, making folders and removing.
struct FileSystemCapabilities {
    bool renames = true;           ///< files and folders, within their folder
    bool renamesOntoTaken = false; ///< a file takes another's name in one step, and that one goes
    bool moves = true;             ///< into other folders, without a copy
    bool setsDates = false;        ///< of files that are there; `write` may set one without it
    bool readsRanges = false;      ///< from an offset on without sending what lies before it
    bool hasHashes = false;        ///< works a file's SHA-256 out without sending the file
    bool hasThumbnails = false;
    bool writes = true;
    bool appends = false; ///< goes on with a file that broke off
    /// Of files below this many bytes nothing stays when they break off.
    qint64 appendsFrom = 0;
    /// So many bytes at the end of what broke off may never have been written out.
    qint64 doubtedEnd = qint64{1} << 20;
    bool readsTogether = false;  ///< many small files in a few steps
    bool writesTogether = false; ///< makes many small files in a few steps
    /// The steps in which listed dates go; a file's own date may be anywhere within one.
    std::chrono::milliseconds dateStep{1000};
    /// One file of this many bytes is too large; 0: no limit that is known.
    qint64 largestFile = 0;

    bool operator==(const FileSystemCapabilities&) const = default;
};

/// The top of a browsable tree.
struct FileTreeRoot {
    QString path;
    QString name; ///< as the path bar shows it

    bool operator==(const FileTreeRoot&) const = default;
};

/// An entry that is there and cannot be read: it is never taken for absent.
struct UnreadableEntry {
    QString path; ///< as far as it is known; the name may be a stand-in
    Error error;
    bool isNamed = true; ///< else nobody knows what it is called: any name may be its own
};

/// Where a listing goes as it arrives, on the thread of the call.
struct ListingReceiver {
    std::function<void(std::vector<FileItem>&&)> rows;
    std::function<void(UnreadableEntry&&)> unreadable; ///< may be empty: left out and logged
};

/// A whole listing.
struct Listing {
    std::vector<FileItem> items;
    std::vector<UnreadableEntry> unreadable;
};

/// A file that is to be made.
struct NewFile {
    QString folder; ///< is there
    QString name;   ///< is not
    qint64 size = 0;
    std::optional<QDateTime> modified; ///< set where the way to the phone can
    /// What has arrived stays when the writing breaks off; only where `appends`.
    bool staysWhenBroken = false;
};

/// A file that is to be made together with others.
struct SmallFile {
    QString name; ///< is free
    QByteArray content;
    std::optional<QDateTime> modified; ///< set where the way to the phone can
};

/// What lies where in a file. A negative length means: to its end.
struct ByteRange {
    qint64 offset = 0;
    qint64 length = -1;
};

/// Takes the bytes of a file as they arrive. What it throws ends the reading and is passed on.
using ByteSink = std::function<void(ByteView)>;
/// Bytes of one file that are across; called after each piece, on the thread of the call.
using ByteProgress = std::function<void(qint64 done)>;

/// What becomes of a file that has a wanted name already.
enum class TakenName { refused, replaced };

/// The files of one phone by one way to it (MTP, adb, an app's documents, the media folder), as
/// single steps; this computer's disk answers to it, too. Trees, part names, clashes, counting and
/// resuming stand above it.
///
/// Thread-safe. Each call takes its turn in the phone's queue for as long as it lasts, so that
/// calls of others get in between two steps of a copy. `identity`, `displayName`, `appName`,
/// `rootOf`, `canonicalPath` and `queue` answer at once on any thread; all else blocks, never
/// without end, and is called off the main thread only.
///
/// What fails throws Error with a code of PhoneError (LocalError for this computer's disk), with
/// the protocol's own status as its cause, and CancellationError soon after `call.stop` asks for
/// it. What the caller's own callbacks throw passes through as it is. A path that does not resolve
/// is PhoneError::notFound, wherever it is used. Calls that take a FileItem check first that it
/// still is what was listed (its kind, and its handle where there is one): if not,
/// PhoneError::changed.
class PhoneFileSystem {
public:
    virtual ~PhoneFileSystem() = default;

    /// Tells these files from those of any other phone and way; the same at every attachment.
    [[nodiscard]] virtual QString identity() const = 0;
    /// The phone (or app) as the user knows it.
    [[nodiscard]] virtual QString displayName() const = 0;
    /// The name of the app whose documents these are; empty for all others.
    [[nodiscard]] virtual QString appName() const {
        return {};
    }
    /// The root of the tree that a path lies in.
    [[nodiscard]] virtual FileTreeRoot rootOf(const QString& path) const = 0;
    /// The one form of a path that is shown and kept: below its root, without a "/" at the end.
    [[nodiscard]] virtual QString canonicalPath(const QString& path) const = 0;
    /// What orders the calls to this phone; null where there is no need (this computer's disk).
    [[nodiscard]] virtual std::shared_ptr<PhoneQueue> queue() const {
        return nullptr;
    }

    /// Asks the phone when it has to, at the first call.
    [[nodiscard]] virtual FileSystemCapabilities capabilities(const Call& call) = 0;
    /// What the storage of a folder does with names. Asks the phone when it has to, once a storage.
    [[nodiscard]] virtual NameRules nameRules(const QString& folder, const Call& call) = 0;

    /// The entries of a folder, each once, in the phone's order. Returns only when all were handed
    /// over; a listing that breaks off throws.
    virtual void list(const QString& folder, const ListingReceiver& receiver, const Call& call) = 0;
    /// The entry at a path; the root is a folder called after itself. No value when nothing is
    /// there.
    [[nodiscard]] virtual std::optional<FileItem> find(const QString& path, const Call& call) = 0;

    /// Hands a file's bytes from `range.offset` on to `sink`. Returns their number. Where ranges
    /// cannot be read, `offset` is 0; a length then ends the reading early.
    virtual qint64 read(const FileItem& file, ByteRange range, const ByteSink& sink,
                        const Call& call) = 0;
    /// The same bytes from `offset` on, as they are wanted: for files that need no turn and are
    /// never waited for long; empty for any other. This and drawing throw as `read` does.
    [[nodiscard]] virtual ByteSource draw(const FileItem& file, qint64 offset, const Call& call);
    /// The whole contents of small files, in a few steps for all of them. What has no value could
    /// not be read as it was announced: `read` says why. PhoneError::notSupported without
    /// `readsTogether`.
    [[nodiscard]] virtual std::vector<std::optional<QByteArray>>
    readTogether(const std::vector<FileItem>& files, const Call& call);
    /// Makes a file and returns it as the phone shows it then. A name that is taken by the phone's
    /// rules is PhoneError::taken or ::sameName. What a failed or cancelled call has made is
    /// removed again while the link lasts.
    virtual FileItem write(const NewFile& file, const ByteSource& content,
                           const ByteProgress& progress, const Call& call) = 0;

    /// Goes on with a file that `write` left behind: keeps its first bytes and has `content` follow
    /// them. `whole` is what the file is to become; `progress` counts from the file's beginning.
    /// What has arrived stays when it fails. PhoneError::notSupported without `appends`.
    virtual FileItem append(const FileItem& begun, qint64 keptBytes, const NewFile& whole,
                            const ByteSource& content, const ByteProgress& progress,
                            const Call& call);

    /// Makes files in a folder that is there, in a few steps for all of them, and returns them as
    /// the phone shows them then. `isWanted` is asked about each one, by its place in `files`, when
    /// all bytes are across and before it gets its name. What has no value was not made, for a
    /// reason of its own that `write` tells, and nothing is left of it; after an error that is so
    /// for all. `progress` counts the bytes of all. PhoneError::notSupported without
    /// `writesTogether`.
    virtual std::vector<std::optional<FileItem>>
    writeTogether(const QString& folder, const std::vector<SmallFile>& files,
                  const std::function<bool(std::size_t)>& isWanted, const ByteProgress& progress,
                  const Call& call);

    /// Makes a folder in one that is there. PhoneError::taken or ::sameName as above.
    virtual FileItem makeFolder(const QString& parent, const QString& name, const Call& call) = 0;
    /// Removes a file, or a folder that is empty; PhoneError::folderNotEmpty for any other. A link
    /// goes itself, never what it leads to.
    virtual void remove(const FileItem& item, const Call& call) = 0;
    /// Removes an item and all in it. Here one by one, deepest first, until the first failure;
    /// overridden where the phone does it in one step.
    virtual void removeTree(const FileItem& item, const Call& call);
    /// Gives an item another name in its folder and returns it so. With TakenName::replaced a file
    /// that has the name goes in the same step: only where `renamesOntoTaken`.
    virtual FileItem rename(const FileItem& item, const QString& newName, TakenName taken,
                            const Call& call) = 0;
    /// Moves an item into another folder, under its name. A taken name is refused.
    virtual FileItem move(const FileItem& item, const QString& newFolder, const Call& call) = 0;
    /// PhoneError::notSupported without `setsDates`.
    virtual void setModified(const FileItem& file, const QDateTime& date, const Call& call);
    /// Returns once all that was written lies there for good. A phone sees to that by itself.
    virtual void flush() {}

    /// Bytes that still fit on the storage of a folder; no value when nobody knows.
    [[nodiscard]] virtual std::optional<std::uint64_t> freeBytes(const QString& folder,
                                                                 const Call& call) = 0;
    /// Battery and storages, asked without ever waiting for whoever uses the phone: no value while
    /// somebody does. Never throws but Error with `endsEverything`.
    [[nodiscard]] virtual std::optional<LiveDeviceInfo> liveInfo(const std::stop_token&) {
        return std::nullopt;
    }
    /// A small picture of a file, encoded, where the phone has one; hostile, and at most
    /// `maxBytes`.
    [[nodiscard]] virtual std::optional<QByteArray> thumbnail(const FileItem& file, qint64 maxBytes,
                                                              const Call& call);
    /// SHA-256 of a file's content, worked out on the phone; no value without `hasHashes`.
    [[nodiscard]] virtual std::optional<QByteArray> hash(const FileItem& file, const Call& call);
    /// The programs that keep this one from the phone right now; never throws.
    [[nodiscard]] virtual QStringList programsHolding() {
        return {};
    }
};

/// A whole listing at once.
[[nodiscard]] Listing listAll(PhoneFileSystem& files, const QString& folder, const Call& call);
/// find(), or PhoneError::notFound.
[[nodiscard]] FileItem require(PhoneFileSystem& files, const QString& path, const Call& call);
/// The same for a folder; PhoneError::notAFolder for anything else.
[[nodiscard]] FileItem requireFolder(PhoneFileSystem& files, const QString& path, const Call& call);
/// Of this very file, for caches: 32 hexadecimal digits of phone, path, size and date. A file that
/// changed has another one. Does not block.
[[nodiscard]] QString fileKey(const PhoneFileSystem& files, const FileItem& item);

} // namespace tessary
