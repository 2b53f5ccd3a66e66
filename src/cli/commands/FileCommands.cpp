#include "cli/commands/Commands.h"

#include "base/text/NameOrder.h"
#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "cli/commands/CopyRun.h"
#include "cli/terminal/CliFailure.h"
#include "cli/terminal/FileLine.h"
#include "cli/terminal/RecordJson.h"
#include "phone/PartNames.h"
#include "transfer/copy/TreeCopy.h"
#include "transfer/local/LocalFileSystem.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <memory>
#include <utility>

namespace tessary {

namespace {

/// Copies, with progress, and reports how it ended; what was left out makes it a failure.
void copy(CliSession& session, TreeCopyRequest request) {
    const bool isFolder = request.items.front().item.isDirectory;
    request.policy = [answer = session.request().clash](const Clash& clash) {
        return clash.coming.isDirectory && clash.existing.isDirectory ? ClashAnswer::merge : answer;
    };
    request.skipsSame = session.request().onlyNew;
    request.verifies = session.request().verifies;
    const CopyOutcome outcome = runCopy(session, std::move(request));
    if (session.request().json)
        session.print(isFolder || outcome.made.isEmpty()
                          ? toJson(outcome)
                          : QJsonObject{{QLatin1StringView("path"), outcome.made.front()},
                                        {QLatin1StringView("size"), outcome.bytes}});
    sayLeftOut(session, outcome);
}

} // namespace

void listFolder(CliSession& session) {
    Listing listing = listAll(session.files(), session.request().paths.front(), session.stop());
    std::vector<FileItem> items = std::move(listing.items);
    std::erase_if(items, [](const FileItem& item) { return isUnfinishedName(item.name); });
    const auto order = [names = nameCollator()](const FileItem& a, const FileItem& b) {
        return a.isDirectory != b.isDirectory ? a.isDirectory : names(a.name, b.name);
    };
    std::stable_sort(items.begin(), items.end(), order);
    if (session.request().json) {
        QJsonArray array;
        for (const FileItem& item : items)
            array.append(toJson(item));
        session.print(array);
    } else {
        for (const FileItem& item : items)
            session.printLine(fileLine(item, item.name));
    }
    // What is there and cannot be listed is not left out in silence.
    for (const UnreadableEntry& entry : listing.unreadable)
        session.fail("Not listed", entry.path, entry.error);
}

void getFiles(CliSession& session) {
    const FileItem item = require(session.files(), session.request().paths.front(), session.stop());
    const QString& target = session.request().localPath;
    const bool intoFolder = QFileInfo(target).isDir();
    const QString missing = target.endsWith(QLatin1Char('/')) ? target : parentPath(target);
    if (!intoFolder && !QFileInfo(missing).isDir())
        throw CliFailure(QStringLiteral("There is no folder \"%1\". Make it first.").arg(missing));
    if (intoFolder && !isSafeName(item.name))
        throw CliFailure(
            QStringLiteral("The name \"%1\" cannot be used on this computer. Give a name for the "
                           "copy.")
                .arg(item.name));
    const QString folder = intoFolder ? target : parentPath(target);
    const QString name = intoFolder ? item.name : lastComponent(target);
    copy(
        session,
        {session.sharedFiles(), std::make_shared<LocalFileSystem>(folder), {{item, name}}, folder});
}

void putFiles(CliSession& session) {
    LocalItem local = openLocalItem(session.request().localPath);
    const FileItem folder =
        requireFolder(session.files(), session.request().paths.front(), session.stop());
    const QString name = local.item.name;
    copy(session,
         {local.files, session.sharedFiles(), {{std::move(local.item), name}}, folder.path});
}

void makeFolders(CliSession& session) {
    for (const QString& path : session.request().paths)
        (void)session.files().makeFolder(parentPath(path), lastComponent(path), session.stop());
    if (session.request().json)
        session.print(QJsonArray::fromStringList(session.request().paths));
}

void removeFiles(CliSession& session) {
    for (const QString& path : session.request().paths)
        session.files().removeTree(require(session.files(), path, session.stop()), session.stop());
    if (session.request().json)
        session.print(QJsonArray::fromStringList(session.request().paths));
}

void moveFile(CliSession& session) {
    FileItem item = require(session.files(), session.request().paths[0], session.stop());
    const QString& target = session.request().paths[1];
    const QString oldFolder = parentPath(item.path);

    // A bare name renames; a folder that exists takes the item in; any other path does both.
    QString folder = oldFolder;
    QString name = target;
    if (target.contains(QLatin1Char('/'))) {
        folder = parentPath(target);
        name = lastComponent(target);
        const auto existing = session.files().find(target, session.stop());
        if (existing && existing->isDirectory) {
            folder = existing->path;
            name = item.name;
        } else if (existing && existing->path != item.path) {
            throw Error(PhoneError::taken, {name});
        }
        folder = require(session.files(), folder, session.stop()).path;
    }
    const QString oldName = item.name;
    const auto rename = [&](const QString& to, const Call& call) {
        if (to != item.name)
            item = session.files().rename(item, to, TakenName::refused, call);
    };
    const auto move = [&](const QString& to, const Call& call) {
        if (to != parentPath(item.path))
            item = session.files().move(item, to, call);
    };
    const Call call = session.stop();
    // Of the two names on its way, one may be taken.
    const bool isRenamedFirst =
        folder != oldFolder && session.files().find(joinPath(folder, oldName), call).has_value();
    try {
        if (isRenamedFirst)
            rename(name, call);
        move(folder, call);
        rename(name, call);
    } catch (...) {
        move(oldFolder, {}); // all or nothing, also after a stop request
        rename(oldName, {});
        throw;
    }
    if (session.request().json)
        session.print(QJsonObject{{QLatin1StringView("path"), item.path}});
}

} // namespace tessary
