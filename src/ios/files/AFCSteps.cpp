#include "ios/files/AFCSteps.h"

#include "base/text/PathNames.h"
#include "ios/AFCStatus.h"
#include "phone/PartNames.h"

#include <QStringDecoder>

#include <cstdlib>

namespace tessary {

namespace {

using Opened = AFCSession::Opened;

/// What the facts of a path say. What is neither file nor folder, a file without a size and missing
/// facts make an entry that cannot be read.
AFCRow rowFrom(const QString& path, const std::optional<AFCFileInfo>& facts) {
    if (facts && facts->isLink)
        return UnreadableEntry{path, Error(PhoneError::notSupported, {path})};
    if (!facts || !(facts->isDirectory || (facts->isFile && facts->size)))
        return UnreadableEntry{path, Error(PhoneError::unreadable, {path})};
    return FileItem(lastComponent(path), path, facts->isDirectory,
                    facts->isDirectory ? 0 : *facts->size, facts->modifiedDate);
}

/// Whether an entry still is what was listed: its kind, and of a file its size and date.
bool isStill(const FileItem& listed, const FileItem& now) {
    // Whoever keeps dates may keep them to the second.
    constexpr qint64 dateSlack = 1000;
    if (listed.isDirectory || now.isDirectory)
        return listed.isDirectory == now.isDirectory;
    const bool hasDates = listed.modifiedDate && now.modifiedDate;
    return listed.size == now.size &&
           (!hasDates || std::abs(listed.modifiedDate->msecsTo(*now.modifiedDate)) < dateSlack);
}

} // namespace

std::optional<QString> textOfName(const QByteArray& bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = decoder(bytes);
    return decoder.hasError() ? std::nullopt : std::optional(std::move(text));
}

std::optional<AFCFileInfo> infoAt(const Opened& opened, const QString& path) {
    return opened.link->findInfo(opened.link->inContainer(path));
}

FileItem itemFrom(const QString& path, const std::optional<AFCFileInfo>& info) {
    if (!info)
        throw Error(PhoneError::notFound, {path});
    AFCRow row = rowFrom(path, info);
    if (const auto* unreadable = std::get_if<UnreadableEntry>(&row))
        throw unreadable->error;
    return std::get<FileItem>(std::move(row));
}

void requireStill(const Opened& opened, const FileItem& item, const QString& path) {
    if (opened.finishedBefore == item)
        return;
    const auto info = infoAt(opened, path);
    if (!info)
        throw Error(PhoneError::notFound, {path});
    const AFCRow row = rowFrom(path, info);
    const auto* now = std::get_if<FileItem>(&row);
    if (now == nullptr || !isStill(item, *now))
        throw Error(PhoneError::changed, {path});
}

void requireFolderAt(const Opened& opened, const QString& path) {
    const auto info = infoAt(opened, path);
    if (!info)
        throw Error(PhoneError::notFound, {path});
    if (!info->isDirectory)
        throw Error(PhoneError::notAFolder, {path});
}

void requireFree(const Opened& opened, const QString& path) {
    if (infoAt(opened, path))
        throw Error(PhoneError::taken, {lastComponent(path)});
}

/// Some phones have no status of their own for a folder that holds something.
void removeOne(const Opened& opened, const QString& path) {
    AFCLink& link = *opened.link;
    try {
        link.removePath(link.inContainer(path));
    } catch (const Error& error) {
        if (error.find<AFCStatus>() != AFCStatus::unknown || link.isLost())
            throw;
        const auto info = infoAt(opened, path);
        if (!info || !info->isDirectory || link.readNames(link.inContainer(path)).empty())
            throw;
        throw Error(PhoneError::folderNotEmpty, {path}, error);
    }
}

std::vector<QByteArray> namesIn(const Opened& opened, const QString& folder) {
    AFCLink& link = *opened.link;
    try {
        std::vector<QByteArray> names = link.readNames(link.inContainer(folder));
        if (names.empty())
            link.requireLink();
        return names;
    } catch (const Error& error) {
        if (!error.is(PhoneError::notFound) || !infoAt(opened, folder))
            throw;
        throw Error(PhoneError::notAFolder, {folder}, error);
    }
}

std::vector<AFCRow> rowsOf(const Opened& opened, const QString& folder,
                           std::span<const QByteArray> names) {
    // So few that a slow phone answers them within the patience for one message.
    constexpr qsizetype atOnce = 8;
    std::vector<AFCRow> rows;
    QStringList asked;
    std::vector<std::size_t> places;
    const auto ask = [&] {
        const auto found = opened.link->findInfos(opened.link->inContainer(folder), asked);
        for (std::size_t n = 0; n < found.size(); ++n) {
            const QString path = joinPath(folder, asked[static_cast<qsizetype>(n)]);
            const auto* error = std::get_if<Error>(&found[n]);
            if (error != nullptr && endsEverything(*error))
                throw Error(*error);
            rows[places[n]] = error != nullptr
                                  ? AFCRow(UnreadableEntry{path, *error})
                                  : rowFrom(path, std::get<std::optional<AFCFileInfo>>(found[n]));
        }
        asked.clear();
        places.clear();
    };
    for (const QByteArray& bytes : names) {
        const auto name = textOfName(bytes);
        const QString path = joinPath(folder, name.value_or(QString::fromUtf8(bytes)));
        rows.emplace_back(
            UnreadableEntry{path, Error(PhoneError::nameNotAllowed, {lastComponent(path)})});
        if (!name || !isSafeName(*name))
            continue;
        asked.append(*name);
        places.push_back(rows.size() - 1);
        if (asked.size() == atOnce)
            ask();
    }
    if (!asked.isEmpty())
        ask();
    return rows;
}

void create(Opened& opened, const QString& path) {
    // Nobody else has these names, and each is used once.
    const auto part = partNameOf(lastComponent(path), {});
    if (!part || part->kind != PartName::Kind::arriving)
        requireFree(opened, path);
    AFCLink& link = *opened.link;
    try {
        opened.file = link.openFile(link.inContainer(path), AFCFileMode::create);
    } catch (const Error& error) {
        if (error.is(PhoneError::notFound))
            requireFolderAt(opened, parentPath(path)); // nothing lies in a file, either
        throw;
    }
}

void goOn(Opened& opened, const QString& path, qint64 offset) {
    const FileItem now = itemFrom(path, infoAt(opened, path));
    if (now.isDirectory || now.size < offset)
        throw Error(PhoneError::changed, {path});
    AFCLink& link = *opened.link;
    opened.file = link.openFile(link.inContainer(path), AFCFileMode::change);
    if (offset > 0)
        opened.file->seek(offset);
}

void closeFile(Opened& opened) {
    opened.file->close();
    opened.file.reset();
}

FileItem finish(Opened& opened, const QString& path, qint64 size,
                const std::optional<QDateTime>& date) {
    closeFile(opened);
    try {
        if (date)
            opened.link->setModifiedDate(opened.link->inContainer(path), *date);
    } catch (const Error&) {
        // A copy is whole without its date. A lost link shows at the next request.
    }
    const auto info = infoAt(opened, path);
    if (!info)
        throw Error(PhoneError::notDone, {path});
    FileItem item = itemFrom(path, info);
    if (item.isDirectory || item.size != size)
        throw Error(PhoneError::wrongSize, {path, item.size, size});
    opened.finished = item;
    return item;
}

} // namespace tessary
