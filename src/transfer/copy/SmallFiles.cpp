#include "transfer/copy/SmallFiles.h"

#include "base/log/DiagnosticsLogger.h"
#include "base/threads/CancellationError.h"
#include "transfer/copy/FileCopy.h"
#include "transfer/copy/FileStream.h"

#include <algorithm>

namespace tessary {

namespace {

/// A whole file as it was announced; no value when it cannot be read so.
std::optional<QByteArray> contentOf(PhoneFileSystem& files, const FileItem& file,
                                    const Call& call) {
    try {
        FileStream stream(files, file, FileStream::Way::readFirst, 0, call);
        QByteArray content(file.size, Qt::Uninitialized);
        const std::span<std::byte> to(reinterpret_cast<std::byte*>(content.data()),
                                      static_cast<std::size_t>(content.size()));
        std::size_t filled = 0;
        while (filled < to.size()) {
            const std::size_t count = stream.read(to.subspan(filled));
            if (count == 0)
                return std::nullopt;
            filled += count;
        }
        return content;
    } catch (const Error& error) {
        if (endsEverything(error))
            throw;
        return std::nullopt;
    }
}

bool isUnchanged(PhoneFileSystem& files, const FileItem& seen, const Call& call) {
    try {
        const auto now = files.find(seen.path, call);
        return now && isAsSeen(seen, *now);
    } catch (const Error& error) {
        if (endsEverything(error))
            throw;
        return false;
    }
}

} // namespace

std::vector<std::optional<QByteArray>> SmallFiles::contents(PhoneFileSystem& from,
                                                            const Call& call) const {
    std::vector<FileItem> files;
    for (const One& one : files_)
        files.push_back(one.file);
    try {
        if (from.capabilities(call).readsTogether)
            return from.readTogether(files, call);
    } catch (const Error& error) {
        if (endsEverything(error))
            throw;
        return std::vector<std::optional<QByteArray>>(files_.size());
    }
    std::vector<std::optional<QByteArray>> contents;
    for (const FileItem& file : files)
        contents.push_back(contentOf(from, file, call));
    return contents;
}

/// One that has been read already, where files are written one by one.
std::optional<FileItem> SmallFiles::put(PhoneFileSystem& to, const QString& folder,
                                        const SmallFile& file, const Call& call) {
    const FilePut put{folder, file.name, file.content.size(), file.modified, {}};
    qsizetype at = 0;
    const auto source = [&](std::span<std::byte> into) {
        const auto count = std::min(static_cast<qsizetype>(into.size()), file.content.size() - at);
        std::copy_n(reinterpret_cast<const std::byte*>(file.content.constData()) + at, count,
                    into.begin());
        at += count;
        return static_cast<std::size_t>(count);
    };
    try {
        return putFile(to, put, source, {}, {}, call);
    } catch (const Error& error) {
        if (endsEverything(error))
            throw;
        return std::nullopt;
    }
}

void SmallFiles::copy(PhoneFileSystem& from, PhoneFileSystem& to, const QString& folder,
                      bool checksSource, const Made& made, const ByteProgress& progress,
                      const Call& call) const {
    std::vector<SmallFile> sent;
    std::vector<std::size_t> places; // in files_, of those that are sent
    std::vector<std::optional<QByteArray>> read = contents(from, call);
    for (std::size_t n = 0; n < files_.size(); ++n) {
        if (!read[n])
            continue;
        sent.push_back({files_[n].name, *std::move(read[n]), files_[n].file.modifiedDate});
        places.push_back(n);
    }
    const auto isWanted = [&](std::size_t n) {
        return !checksSource || isUnchanged(from, files_[places[n]].file, call);
    };
    if (!to.capabilities(call).writesTogether) {
        for (std::size_t n = 0; n < sent.size(); ++n) {
            throwIfStopped(call.stop);
            if (!isWanted(n))
                continue;
            if (const auto file = put(to, folder, sent[n], call))
                made(places[n], *file);
        }
        return;
    }
    std::vector<std::optional<FileItem>> results;
    try {
        results = to.writeTogether(folder, sent, isWanted, progress, call);
    } catch (const Error& error) {
        if (endsEverything(error))
            throw;
        DiagnosticsLogger::shared().transfer.standard("files go one by one: %s", {error.logText()});
    }
    for (std::size_t n = 0; n < results.size(); ++n)
        if (results[n])
            made(places[n], *results[n]);
}

} // namespace tessary
