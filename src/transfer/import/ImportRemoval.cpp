#include "transfer/import/ImportRemoval.h"

#include "base/local/LocalError.h"
#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "transfer/copy/CopyErrors.h"
#include "transfer/copy/FileCopy.h"
#include "transfer/local/LocalFileSystem.h"

#include <algorithm>

namespace tessary {

namespace {

/// The content that was fetched, where it still lies in the copy's folder.
FileItem requireCopy(LocalFileSystem& here, const ImportRecord& record, const Call& call) {
    if (record.sha256.isEmpty() || record.copy.isEmpty())
        throw Error(LocalError::notFound, {record.copy});
    const auto holdsIt = [&](const FileItem& item) {
        return !item.isDirectory && item.size == record.size &&
               here.hash(item, call) == record.sha256;
    };
    if (const auto named = here.find(record.copy, call); named && holdsIt(*named))
        return *named;
    const std::vector<FileItem> all = listAll(here, here.folder(), call).items;
    const auto found = std::find_if(all.begin(), all.end(), holdsIt);
    if (found == all.end())
        throw Error(LocalError::notFound, {record.copy});
    return *found;
}

/// The files of a photo as they are on the phone now, all of them whole here, too.
std::vector<FileItem> removableFiles(PhoneFileSystem& from, const Photo& photo,
                                     const ImportLedger& ledger, ImportRemoval& result,
                                     const Call& call) {
    std::vector<FileItem> files;
    for (const FileItem& seen : photo.files) {
        try {
            const auto record = ledger.find(seen);
            if (!record)
                throw Error(LocalError::notFound, {seen.name});
            LocalFileSystem here(parentPath(record->copy));
            const FileItem copy = requireCopy(here, *record, call);
            // Another photo may be of this name, size and date. That this one was fetched is known
            // without reading it again only while it has not been out of sight.
            const bool isCompared = record->isJustCompared && record->path == seen.path &&
                                    record->modified && record->modified == seen.modifiedDate;
            if (!isCompared && !haveSameContent(from, seen, here, copy, call))
                throw Error(PhoneError::differs, {seen.path});
            const auto now = from.find(seen.path, call);
            if (!now || !isAsSeen(seen, *now))
                throw changedError(from, seen.path);
            files.push_back(*now);
        } catch (const Error& error) {
            if (endsEverything(error))
                throw;
            result.leftOut.push_back({{seen, seen.name}, error});
            return {};
        }
    }
    return files;
}

} // namespace

ImportRemoval removeImported(PhoneFileSystem& from, const std::vector<Photo>& photos,
                             const ImportLedger& ledger,
                             const std::function<void(qint64)>& progress, const Call& call) {
    ImportRemoval result;
    qint64 done = 0;
    try {
        for (const Photo& photo : photos) {
            throwIfStopped(call.stop);
            bool areGone = true;
            const auto files = removableFiles(from, photo, ledger, result, call);
            for (const FileItem& file : files) {
                try {
                    from.remove(file, call);
                    ++result.files;
                } catch (const Error& error) {
                    if (endsEverything(error))
                        throw;
                    areGone = false;
                    result.leftOut.push_back({{file, file.name}, error});
                    break; // rather whole than in parts
                }
            }
            result.photos += areGone && !files.empty() ? 1 : 0;
            if (progress)
                progress(++done);
        }
    } catch (const CancellationError&) {
        result.isCancelled = true;
    } catch (const Error& error) {
        result.failure = error;
    }
    return result;
}

} // namespace tessary
