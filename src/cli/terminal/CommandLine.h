#pragma once

#include "devices/list/AndroidDevices.h"
#include "sync/pair/SyncPair.h"
#include "transfer/copy/CopyTypes.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <variant>
#include <vector>

namespace tessary {

/// What the command line asks for. Paths on this machine are absolute.
struct CliRequest {
    enum class Command {
        devices,
        watch,
        apps,
        list,
        info,
        get,
        put,
        makeFolder,
        remove,
        move,
        sync,
        importPhotos,
        find,
        mount
    };
    /// What a sync answers when it has something to delete.
    enum class Answer {
        ask,   ///< the user, at a terminal; refuse elsewhere
        keep,  ///< --keep: delete nothing
        yes,   ///< --yes: delete, but refuse what looks like a mistake
        yesAll ///< --yes-all: delete
    };

    Command command = Command::devices;
    QString device;     ///< udid, prefix of one, or name
    QStringList paths;  ///< on the device
    QString app;        ///< --app: bundle identifier of an iPhone app
    bool media = false; ///< --media: an iPhone's photos and videos
    QString localPath;
    QString pattern; ///< of a search, see NamePattern
    bool json = false;
    bool demo = false;
    QString demoFolder; ///< where the virtual phones keep their files; empty: a temporary folder
    std::vector<USBIds> alsoAccept;       ///< --usb
    std::optional<ProtocolMode> protocol; ///< --protocol, for Android phones

    // Of get and put:
    ClashAnswer clash = ClashAnswer::replace; ///< for files whose name is taken
    bool onlyNew = false;  ///< --new: what is there with the same size and date stays
    bool verifies = false; ///< --verify: each copy is compared with its source

    // Of an import:
    bool byDate = false;           ///< --by-date: into a folder a day
    bool deletesFromPhone = false; ///< --delete: what lies here whole

    // Of a sync (isDryRun of an import, too):
    SyncMode mode = SyncMode::biDirectional;
    bool moves = false;
    bool deletes = true;
    bool isDryRun = false;
    QStringList excludes; ///< --exclude: patterns beside the usual ones
    Answer answer = Answer::ask;
};

/// Why there is no request: help was asked for, or the usage was wrong.
struct CliUsage {
    int exitStatus = 0; ///< 0 for help, 2 for wrong usage
    QString text;
};

/// Reads the arguments (without the program's name). Pure but for the working directory.
[[nodiscard]] std::variant<CliRequest, CliUsage> parseCommandLine(const QStringList& arguments);

} // namespace tessary
