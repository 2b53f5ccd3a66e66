#include "cli/terminal/CommandLine.h"

#include "base/log/Product.h"

#include <CLI/CLI.hpp>
#include <QDir>
#include <QFileInfo>

#include <array>
#include <string>

namespace tessary {

namespace {

constexpr int wrongUsage = 2;

QString text(const std::string& bytes) {
    return QFile::decodeName(QByteArray::fromStdString(bytes));
}

/// What CLI11 fills while it parses.
struct Raw {
    bool json = false;
    bool demo = false;
    std::string demoFolder;
    std::string protocol;
    std::vector<std::string> usb;
    std::string device;
    std::string app;
    bool media = false;
    bool onlyNew = false;
    bool verify = false;
    std::string pattern;
    bool skip = false;
    bool replace = false;
    bool keepBoth = false;
    std::vector<std::string> paths;
    std::string path;
    std::string target;
    std::string local;
    std::string mode;
    bool move = false;
    bool noDelete = false;
    bool yes = false;
    bool yesAll = false;
    bool keep = false;
    bool dryRun = false;
    std::vector<std::string> excludes;
    bool byDate = false;
    bool deleteFetched = false;
};

struct ModeName {
    const char* name;
    SyncMode mode;
};

constexpr std::array modeNames{ModeName{"both", SyncMode::biDirectional},
                               ModeName{"to-device", SyncMode::toPhone},
                               ModeName{"to-computer", SyncMode::toComputer},
                               ModeName{"to-mac", SyncMode::toComputer}}; // as it was called

/// "VID:PID" in hexadecimal.
std::optional<USBIds> parseIds(const std::string& ids) {
    const QStringList parts = text(ids).split(QLatin1Char(':'));
    if (parts.size() != 2)
        return std::nullopt;
    bool vendorOk = false;
    bool productOk = false;
    const USBIds parsed{parts[0].toUShort(&vendorOk, 16), parts[1].toUShort(&productOk, 16)};
    if (!vendorOk || !productOk)
        return std::nullopt;
    return parsed;
}

/// An empty word is what a script's unset variable leaves: it means nothing, and never "all" or
/// "/".
std::string refuseEmpty(const std::string& value) {
    return value.empty() ? "it must not be empty" : "";
}

void refuseEmptyWords(CLI::App& app) {
    for (CLI::Option* option : app.get_options())
        option->check(refuseEmpty);
    for (CLI::App* sub : app.get_subcommands(nullptr))
        refuseEmptyWords(*sub);
}

struct Subcommand {
    CLI::App* app = nullptr;
    CliRequest::Command command = CliRequest::Command::devices;
};

template <typename AddDevice>
void addSync(CLI::App& sync, Raw& raw, const AddDevice& addDevice) {
    addDevice(sync);
    sync.add_option("LOCAL", raw.local, "Folder here")->required();
    sync.add_option("PATH", raw.path, "Folder on the device")->required();
    std::vector<std::string> names;
    for (const ModeName& mode : modeNames)
        names.emplace_back(mode.name);
    sync.add_option("--mode", raw.mode, "Which way files flow")
        ->required()
        ->check(CLI::IsMember(names));
    sync.add_flag("--move", raw.move, "One way only: delete each file that has arrived");
    sync.add_flag("--no-delete", raw.noDelete, "Copy back what was deleted on one side");
    CLI::Option* yes =
        sync.add_flag("--yes", raw.yes, "Delete without asking; refuse what looks like a mistake");
    CLI::Option* yesAll = sync.add_flag("--yes-all", raw.yesAll, "Delete without asking at all");
    CLI::Option* keep = sync.add_flag("--keep", raw.keep, "Delete nothing in this run");
    yes->excludes(yesAll)->excludes(keep);
    yesAll->excludes(keep);
    sync.add_flag("--dry-run", raw.dryRun, "Print what would be done, and do nothing");
    sync.add_option("--exclude", raw.excludes, "Leave out what matches, as .gitignore has it")
        ->type_name("PATTERN")
        ->allow_extra_args(false);
}

std::vector<Subcommand> addSubcommands(CLI::App& app, Raw& raw) {
    using Command = CliRequest::Command;
    std::vector<Subcommand> commands;
    const auto add = [&](const char* name, const char* help, Command command,
                         const char* jsonHelp = "Print one JSON document") -> CLI::App& {
        CLI::App* sub = app.add_subcommand(name, help);
        sub->add_flag("--json", raw.json, jsonHelp);
        commands.push_back({sub, command});
        return *sub;
    };
    const auto addAnyDevice = [&](CLI::App& sub) {
        sub.add_option("DEVICE", raw.device, "udid, a unique prefix of one, or a unique name")
            ->required();
    };
    const auto addDevice = [&](CLI::App& sub) {
        addAnyDevice(sub);
        CLI::Option* oneApp =
            sub.add_option("--app", raw.app, "Bundle identifier of the iPhone app to work in");
        sub.add_flag("--media", raw.media, "Work in the photos and videos of an iPhone")
            ->excludes(oneApp);
    };
    const auto addClashes = [&](CLI::App& sub) {
        sub.add_flag("--new", raw.onlyNew, "Leave what is there with the same size and date");
        sub.add_flag("--verify", raw.verify, "Compare each copy with its source");
        CLI::Option* skip = sub.add_flag("--skip", raw.skip, "Leave files whose name is taken");
        CLI::Option* replace =
            sub.add_flag("--replace", raw.replace, "Replace files whose name is taken (as usual)");
        CLI::Option* both =
            sub.add_flag("--keep-both", raw.keepBoth, "Give such a copy a number: \"a (2).txt\"");
        skip->excludes(replace)->excludes(both);
        replace->excludes(both);
    };

    add("devices", "List the devices that are attached", Command::devices);
    add("watch", "Print attach, detach and changes as they happen", Command::watch,
        "Print one JSON object a line");

    CLI::App& apps = add("apps", "List the apps of an iPhone that share files", Command::apps);
    addAnyDevice(apps);

    CLI::App& list = add("ls", "List a folder of a device", Command::list);
    addDevice(list);
    list.add_option("PATH", raw.path, "Folder on the device; / when left out");

    CLI::App& info =
        add("info", "Show what is known of a device, or of one path on it", Command::info);
    addDevice(info);
    info.add_option("PATH", raw.path, "File or folder on the device");

    CLI::App& find =
        add("find", "Search a folder of a device, and all below it, by name", Command::find);
    addDevice(find);
    find.add_option("PATTERN", raw.pattern, "Part of a name, or a pattern: \"*.jpg\"")->required();
    find.add_option("PATH", raw.path, "Folder on the device; / when left out");

    CLI::App& mount =
        add("mount", "Show a device's files as a folder here, to read, until it is unmounted",
            Command::mount);
    addDevice(mount);
    mount.add_option("FOLDER", raw.local, "Empty folder here")->required();

    CLI::App& get = add("get", "Copy a file or folder from a device", Command::get);
    addDevice(get);
    get.add_option("PATH", raw.path, "File or folder on the device")->required();
    get.add_option("LOCAL", raw.local, "Folder here, or the name of the copy")->required();
    addClashes(get);

    CLI::App& put = add("put", "Copy a file or folder into a folder of a device", Command::put);
    addDevice(put);
    put.add_option("LOCAL", raw.local, "File or folder here")->required();
    put.add_option("PATH", raw.path, "Folder on the device")->required();
    addClashes(put);

    CLI::App& makeFolder = add("mkdir", "Make folders on a device", Command::makeFolder);
    addDevice(makeFolder);
    makeFolder.add_option("PATH", raw.paths, "The new folders")->required();

    CLI::App& remove =
        add("rm", "Delete files, and folders with everything in them", Command::remove);
    addDevice(remove);
    remove.add_option("PATH", raw.paths, "Files and folders on the device")->required();

    CLI::App& move = add("mv", "Rename or move a file or folder on a device", Command::move);
    addDevice(move);
    move.add_option("PATH", raw.path, "File or folder on the device")->required();
    move.add_option("TARGET", raw.target, "A new name, a new path, or a folder that exists")
        ->required();

    addSync(add("sync", "Keep a folder here and a folder on a device in step", Command::sync), raw,
            addDevice);

    CLI::App& photos =
        add("import", "Copy the photos and videos that were not copied from a phone yet",
            Command::importPhotos);
    addAnyDevice(photos);
    photos.add_option("LOCAL", raw.local, "Folder here; made when it is missing")->required();
    photos.add_flag("--by-date", raw.byDate, "Into folders by date: 2026/2026-10-31");
    CLI::Option* dryRun =
        photos.add_flag("--dry-run", raw.dryRun, "Print what would be copied, and do nothing");
    photos
        .add_flag("--delete", raw.deleteFetched,
                  "Then delete from the phone what lies here whole, compared once more")
        ->excludes(dryRun);
    return commands;
}

CliRequest requestOf(const Raw& raw, CliRequest::Command command) {
    CliRequest request;
    request.command = command;
    request.json = raw.json;
    request.demo = raw.demo || !raw.demoFolder.empty();
    if (!raw.demoFolder.empty())
        request.demoFolder = QFileInfo(text(raw.demoFolder)).absoluteFilePath();
    request.device = text(raw.device);
    request.app = text(raw.app);
    request.media = raw.media;
    request.onlyNew = raw.onlyNew;
    request.verifies = raw.verify;
    request.pattern = text(raw.pattern);
    request.clash = raw.skip       ? ClashAnswer::skip
                    : raw.keepBoth ? ClashAnswer::keepBoth
                                   : ClashAnswer::replace;
    for (const std::string& path : raw.paths)
        request.paths.append(text(path));
    if (!raw.path.empty())
        request.paths.append(text(raw.path));
    const bool startsAtTop =
        command == CliRequest::Command::list || command == CliRequest::Command::find;
    if (startsAtTop && raw.path.empty())
        request.paths.append(QStringLiteral("/"));
    if (!raw.target.empty())
        request.paths.append(text(raw.target));
    for (const ModeName& mode : modeNames)
        if (raw.mode == mode.name)
            request.mode = mode.mode;
    request.moves = raw.move;
    request.deletes = !raw.noDelete;
    request.isDryRun = raw.dryRun;
    request.byDate = raw.byDate;
    request.deletesFromPhone = raw.deleteFetched;
    request.answer = raw.yesAll ? CliRequest::Answer::yesAll
                     : raw.yes  ? CliRequest::Answer::yes
                     : raw.keep ? CliRequest::Answer::keep
                                : CliRequest::Answer::ask;
    for (const std::string& pattern : raw.excludes)
        request.excludes.append(text(pattern));
    if (!raw.local.empty())
        request.localPath = QFileInfo(text(raw.local)).absoluteFilePath();
    return request;
}

} // namespace

std::variant<CliRequest, CliUsage> parseCommandLine(const QStringList& arguments) {
    CLI::App app("Browse phones and copy files to and from them.", "tessary-cli");
    app.require_subcommand(1);
    app.fallthrough();
    app.set_version_flag("--version", "tessary-cli " + productVersion().toStdString(),
                         "Print the version and end");
    Raw raw;
    app.add_option("--usb", raw.usb,
                   "Also accept this USB device (VID:PID, hexadecimal) as an MTP phone")
        ->allow_extra_args(false);
    app.add_option("--protocol", raw.protocol, "Reach an Android phone in this way: mtp or adb")
        ->check(CLI::IsMember({"mtp", "adb"}));
    app.add_flag("--demo", raw.demo, "Start virtual phones, and use only those");
    app.add_option("--demo-folder", raw.demoFolder,
                   "The same, with the phones' files kept in this folder from run to run");
    const std::vector<Subcommand> commands = addSubcommands(app, raw);
    refuseEmptyWords(app);

    std::vector<std::string> reversed;
    for (auto it = arguments.crbegin(); it != arguments.crend(); ++it)
        reversed.push_back(QFile::encodeName(*it).toStdString());
    try {
        app.parse(reversed);
    } catch (const CLI::CallForVersion& version) {
        return CliUsage{0, text(version.what()) + QLatin1Char('\n')};
    } catch (const CLI::Success&) {
        for (const Subcommand& sub : commands)
            if (sub.app->parsed())
                return CliUsage{0, text(sub.app->help("tessary-cli"))};
        return CliUsage{0, text(app.help())};
    } catch (const CLI::ParseError& error) {
        return CliUsage{wrongUsage,
                        text(std::string(error.what()) + "\nRun tessary-cli --help for help.\n")};
    }
    for (const Subcommand& sub : commands) {
        if (!sub.app->parsed())
            continue;
        CliRequest request = requestOf(raw, sub.command);
        if (request.moves && request.mode == SyncMode::biDirectional)
            return CliUsage{wrongUsage,
                            QStringLiteral("--move goes one way: not with --mode both.\n")};
        if (!raw.protocol.empty())
            request.protocol = raw.protocol == "adb" ? ProtocolMode::adbTurbo : ProtocolMode::mtp;
        for (const std::string& ids : raw.usb) {
            const auto parsed = parseIds(ids);
            if (!parsed)
                return CliUsage{wrongUsage,
                                QStringLiteral("--usb takes VID:PID in hexadecimal, not \"%1\".\n")
                                    .arg(text(ids))};
            request.alsoAccept.push_back(*parsed);
        }
        return request;
    }
    return CliUsage{wrongUsage, text(app.help())};
}

} // namespace tessary
