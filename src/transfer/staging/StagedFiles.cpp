#include "transfer/staging/StagedFiles.h"

#include "base/local/TreeRemoval.h"
#include "base/text/PathNames.h"
#include "transfer/copy/CopyErrors.h"
#include "transfer/copy/FileCopy.h"
#include "transfer/copy/Leftovers.h"
#include "transfer/local/LocalFileSystem.h"

#include <QFile>

#include <algorithm>
#include <vector>

namespace tessary {

namespace {

/// Nobody writes to a copy by mistake: no change would ever reach the phone.
void makeReadOnly(const QString& path) {
    QFile::setPermissions(path, QFileDevice::ReadOwner);
}

/// A name under which a copy can lie here: the file's own when it fits, else one with its
/// extension.
QString localNameOf(const FileItem& item) {
    constexpr qsizetype longest = 200; // bytes; file systems hold 255
    if (isSafeName(item.name) && item.name.isValidUtf16() && !isPartName(item.name) &&
        item.name.toUtf8().size() <= longest)
        return item.name;
    const QString extension = item.fileExtension();
    constexpr qsizetype longestExtension = 16;
    const bool isUsable = !extension.isEmpty() && extension.size() <= longestExtension &&
                          isSafeName(extension) && extension.isValidUtf16();
    return isUsable ? QStringLiteral("file.") + extension : QStringLiteral("file");
}

} // namespace

StagedFiles::StagedFiles(QString name, qint64 maxBytes)
    : name_(std::move(name)), maxBytes_(maxBytes) {}

StagedFiles::Place StagedFiles::placeOf(const PhoneFileSystem& files, const FileItem& item) {
    return {fileKey(files, item), localNameOf(item)};
}

QString StagedFiles::folder() {
    const std::scoped_lock lock(mutex_);
    if (!folder_)
        folder_ = std::make_unique<PrivateFolder>(PrivateFolder::Place::cache, name_);
    return folder_->path();
}

std::optional<QString> StagedFiles::find(const PhoneFileSystem& files, const FileItem& item) {
    if (item.isDirectory)
        return std::nullopt;
    const Place place = placeOf(files, item);
    LocalFileSystem here(folder());
    const auto copy = here.find(joinPath(joinPath(here.folder(), place.folder), place.name), {});
    if (!copy || copy->isDirectory || copy->size != item.size)
        return std::nullopt;
    here.setModified(*copy, QDateTime::currentDateTime(), {}); // it is used now
    return copy->path;
}

QString StagedFiles::fetch(PhoneFileSystem& files, const FileItem& item,
                           const ByteProgress& progress, const Call& call) {
    if (item.isDirectory)
        throw Error(PhoneError::notAFile, {item.path});
    if (auto known = find(files, item))
        return *std::move(known);
    if (item.size > maxBytes_ / 2)
        throw Error(PhoneError::tooLarge, {item.path});
    const Place place = placeOf(files, item);
    LocalFileSystem here(folder());
    const QString target = joinPath(here.folder(), place.folder);
    if (!here.find(target, call)) {
        try {
            here.makeFolder(here.folder(), place.folder, call);
        } catch (const Error& error) {
            if (!isTaken(error)) // by another who wants the same
                throw;
        }
    }
    // What somebody wrote to all the same is not the phone's file any more.
    if (const auto stale = here.find(joinPath(target, place.name), call);
        stale && stale->size != item.size)
        here.removeTree(*stale, call);
    FileCopy copy{.from = files, .file = item, .to = here, .folder = target, .name = place.name};
    copy.checksSource = false;
    try {
        const FileItem made = copyFile(copy, progress, call);
        here.setModified(made, QDateTime::currentDateTime(), call);
        makeReadOnly(made.path);
    } catch (const Error& error) {
        if (!isTaken(error)) // the other was faster
            throw;
    }
    makeRoom(place.folder);
    return joinPath(target, place.name);
}

/// Removes the copies that were not used for longest until the rest fits.
void StagedFiles::makeRoom(const QString& keep) {
    struct Copy {
        QString folder;
        qint64 size = 0;
        QDateTime used;
    };
    LocalFileSystem here(folder());
    const std::scoped_lock lock(mutex_);
    std::vector<Copy> copies;
    qint64 bytes = 0;
    for (const FileItem& one : listAll(here, here.folder(), {}).items) {
        Copy copy{one.name, 0, one.modifiedDateOrEpoch()};
        bool isUnderWay = one.name == keep;
        if (one.isDirectory)
            for (const FileItem& file : listAll(here, one.path, {}).items) {
                copy.size += file.size;
                copy.used = file.modifiedDateOrEpoch();
                isUnderWay = isUnderWay || PartInUse::has(file.name);
            }
        bytes += copy.size;
        if (!isUnderWay)
            copies.push_back(std::move(copy));
    }
    std::sort(copies.begin(), copies.end(),
              [](const Copy& a, const Copy& b) { return a.used < b.used; });
    for (const Copy& copy : copies) {
        if (bytes <= maxBytes_)
            break;
        if (removeTreeAt(folder_->descriptor(), copy.folder.toUtf8()) == 0)
            bytes -= copy.size;
    }
}

} // namespace tessary
