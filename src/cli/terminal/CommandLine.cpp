#include "cli/terminal/CommandLine.h"

#include "base/log/Product.h"

#include <CLI/CLI.hpp>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <iterator>
#include <string>
#include <string_view>

namespace tessary {

namespace {

constexpr int wrongUsage = 2;

QString text(const std::string& bytes) {
    return QFile::decodeName(QByteArray::fromStdString(bytes));
}

struct ModeName {
    std::string_view name;
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

// The options of CLI11 that fill a request while it parses.

CLI::Option* addWord(CLI::App& app, const char* name, QString& word, const char* help) {
    return app.add_option_function<std::string>(
        name, [&word](const std::string& given) { word = text(given); }, help);
}

/// A path on this machine.
CLI::Option* addLocal(CLI::App& app, const char* name, QString& path, const char* help) {
    return app.add_option_function<std::string>(
        name,
        [&path](const std::string& given) { path = QFileInfo(text(given)).absoluteFilePath(); },
        help);
}

/// A path on the device, behind those before it.
CLI::Option* addPath(CLI::App& app, const char* name, QStringList& paths, const char* help) {
    return app.add_option_function<std::string>(
        name, [&paths](const std::string& given) { paths.append(text(given)); }, help);
}

CLI::Option* addWords(CLI::App& app, const char* name, QStringList& words, const char* help) {
    return app.add_option_function<std::vector<std::string>>(
        name,
        [&words](const std::vector<std::string>& given) {
            std::transform(given.begin(), given.end(), std::back_inserter(words), text);
        },
        help);
}

/// A flag that chooses one of several values.
template <typename T>
CLI::Option* addChoice(CLI::App& app, const char* name, T& chosen, T value, const char* help) {
    return app.add_flag_callback(
        name, [&chosen, value] { chosen = value; }, help);
}

void addAnyDevice(CLI::App& sub, CliRequest& request) {
    addWord(sub, "DEVICE", request.device, "udid, a unique prefix of one, or a unique name")
        ->required();
}

void addDevice(CLI::App& sub, CliRequest& request) {
    addAnyDevice(sub, request);
    CLI::Option* app =
        addWord(sub, "--app", request.app, "Bundle identifier of the iPhone app to work in");
    sub.add_flag("--media", request.media, "Work in the photos and videos of an iPhone")
        ->excludes(app);
}

void addClashes(CLI::App& sub, CliRequest& request) {
    sub.add_flag("--new", request.onlyNew, "Leave what is there with the same size and date");
    sub.add_flag("--verify", request.verifies, "Compare each copy with its source");
    ClashAnswer& clash = request.clash;
    CLI::Option* skip =
        addChoice(sub, "--skip", clash, ClashAnswer::skip, "Leave files whose name is taken");
    CLI::Option* replace = addChoice(sub, "--replace", clash, ClashAnswer::replace,
                                     "Replace files whose name is taken (as usual)");
    CLI::Option* both = addChoice(sub, "--keep-both", clash, ClashAnswer::keepBoth,
                                  "Give such a copy a number: \"a (2).txt\"");
    skip->excludes(replace)->excludes(both);
    replace->excludes(both);
}

void addSync(CLI::App& sync, CliRequest& request) {
    using Answer = CliRequest::Answer;
    addDevice(sync, request);
    addLocal(sync, "LOCAL", request.localPath, "Folder here")->required();
    addPath(sync, "PATH", request.paths, "Folder on the device")->required();
    std::vector<std::string> names;
    for (const ModeName& mode : modeNames)
        names.emplace_back(mode.name);
    sync.add_option_function<std::string>(
            "--mode",
            [&request](const std::string& name) {
                request.mode = std::ranges::find(modeNames, name, &ModeName::name)->mode;
            },
            "Which way files flow")
        ->required()
        ->check(CLI::IsMember(names));
    sync.add_flag("--move", request.moves, "One way only: delete each file that has arrived");
    addChoice(sync, "--no-delete", request.deletes, false,
              "Copy back what was deleted on one side");
    CLI::Option* yes = addChoice(sync, "--yes", request.answer, Answer::yes,
                                 "Delete without asking; refuse what looks like a mistake");
    CLI::Option* yesAll = addChoice(sync, "--yes-all", request.answer, Answer::yesAll,
                                    "Delete without asking at all");
    CLI::Option* keep =
        addChoice(sync, "--keep", request.answer, Answer::keep, "Delete nothing in this run");
    yes->excludes(yesAll)->excludes(keep);
    yesAll->excludes(keep);
    sync.add_flag("--dry-run", request.isDryRun, "Print what would be done, and do nothing");
    addWords(sync, "--exclude", request.excludes, "Leave out what matches, as .gitignore has it")
        ->type_name("PATTERN")
        ->allow_extra_args(false);
}

void addSubcommands(CLI::App& app, CliRequest& request) {
    using Command = CliRequest::Command;
    const auto add = [&](const char* name, const char* help, Command command,
                         const char* jsonHelp = "Print one JSON document") -> CLI::App& {
        CLI::App* sub = app.add_subcommand(name, help);
        sub->add_flag("--json", request.json, jsonHelp);
        sub->callback([&request, command] { request.command = command; });
        return *sub;
    };

    add("devices", "List the devices that are attached", Command::devices);
    add("watch", "Print attach, detach and changes as they happen", Command::watch,
        "Print one JSON object a line");

    CLI::App& apps = add("apps", "List the apps of an iPhone that share files", Command::apps);
    addAnyDevice(apps, request);

    CLI::App& list = add("ls", "List a folder of a device", Command::list);
    addDevice(list, request);
    addPath(list, "PATH", request.paths, "Folder on the device; / when left out");

    CLI::App& info =
        add("info", "Show what is known of a device, or of one path on it", Command::info);
    addDevice(info, request);
    addPath(info, "PATH", request.paths, "File or folder on the device");

    CLI::App& find =
        add("find", "Search a folder of a device, and all below it, by name", Command::find);
    addDevice(find, request);
    addWord(find, "PATTERN", request.pattern, "Part of a name, or a pattern: \"*.jpg\"")
        ->required();
    addPath(find, "PATH", request.paths, "Folder on the device; / when left out");

    CLI::App& mount =
        add("mount", "Show a device's files as a folder here, to read, until it is unmounted",
            Command::mount);
    addDevice(mount, request);
    addLocal(mount, "FOLDER", request.localPath, "Empty folder here")->required();

    CLI::App& get = add("get", "Copy a file or folder from a device", Command::get);
    addDevice(get, request);
    addPath(get, "PATH", request.paths, "File or folder on the device")->required();
    addLocal(get, "LOCAL", request.localPath, "Folder here, or the name of the copy")->required();
    addClashes(get, request);

    CLI::App& put = add("put", "Copy a file or folder into a folder of a device", Command::put);
    addDevice(put, request);
    addLocal(put, "LOCAL", request.localPath, "File or folder here")->required();
    addPath(put, "PATH", request.paths, "Folder on the device")->required();
    addClashes(put, request);

    CLI::App& makeFolder = add("mkdir", "Make folders on a device", Command::makeFolder);
    addDevice(makeFolder, request);
    addWords(makeFolder, "PATH", request.paths, "The new folders")->required();

    CLI::App& remove =
        add("rm", "Delete files, and folders with everything in them", Command::remove);
    addDevice(remove, request);
    addWords(remove, "PATH", request.paths, "Files and folders on the device")->required();

    CLI::App& move = add("mv", "Rename or move a file or folder on a device", Command::move);
    addDevice(move, request);
    addPath(move, "PATH", request.paths, "File or folder on the device")->required();
    addPath(move, "TARGET", request.paths, "A new name, a new path, or a folder that exists")
        ->required();

    addSync(add("sync", "Keep a folder here and a folder on a device in step", Command::sync),
            request);

    CLI::App& photos =
        add("import", "Copy the photos and videos that were not copied from a phone yet",
            Command::importPhotos);
    addAnyDevice(photos, request);
    addLocal(photos, "LOCAL", request.localPath, "Folder here; made when it is missing")
        ->required();
    photos.add_flag("--by-date", request.byDate, "Into folders by date: 2026/2026-10-31");
    CLI::Option* dryRun = photos.add_flag("--dry-run", request.isDryRun,
                                          "Print what would be copied, and do nothing");
    photos
        .add_flag("--delete", request.deletesFromPhone,
                  "Then delete from the phone what lies here whole, compared once more")
        ->excludes(dryRun);
}

} // namespace

std::variant<CliRequest, CliUsage> parseCommandLine(const QStringList& arguments) {
    CLI::App app("Browse phones and copy files to and from them.", "tessary-cli");
    app.require_subcommand(1);
    app.fallthrough();
    app.set_version_flag("--version", "tessary-cli " + productVersion().toStdString(),
                         "Print the version and end");
    CliRequest request;
    std::vector<std::string> usb;
    app.add_option("--usb", usb,
                   "Also accept this USB device (VID:PID, hexadecimal) as an MTP phone")
        ->allow_extra_args(false);
    app.add_option_function<std::string>(
           "--protocol",
           [&request](const std::string& name) {
               request.protocol = name == "adb" ? ProtocolMode::adbTurbo : ProtocolMode::mtp;
           },
           "Reach an Android phone in this way: mtp or adb")
        ->check(CLI::IsMember({"mtp", "adb"}));
    app.add_flag("--demo", request.demo, "Start virtual phones, and use only those");
    addLocal(app, "--demo-folder", request.demoFolder,
             "The same, with the phones' files kept in this folder from run to run");
    addSubcommands(app, request);
    refuseEmptyWords(app);

    std::vector<std::string> reversed;
    for (auto it = arguments.crbegin(); it != arguments.crend(); ++it)
        reversed.push_back(QFile::encodeName(*it).toStdString());
    try {
        app.parse(reversed);
    } catch (const CLI::CallForVersion& version) {
        return CliUsage{0, text(version.what()) + QLatin1Char('\n')};
    } catch (const CLI::Success&) {
        const auto chosen = app.get_subcommands();
        return CliUsage{0, text(chosen.empty() ? app.help() : chosen.front()->help("tessary-cli"))};
    } catch (const CLI::ParseError& error) {
        return CliUsage{wrongUsage,
                        text(std::string(error.what()) + "\nRun tessary-cli --help for help.\n")};
    }
    using Command = CliRequest::Command;
    const bool startsAtTop = request.command == Command::list || request.command == Command::find;
    if (startsAtTop && request.paths.isEmpty())
        request.paths.append(QStringLiteral("/"));
    if (!request.demoFolder.isEmpty())
        request.demo = true;
    if (request.moves && request.mode == SyncMode::biDirectional)
        return CliUsage{wrongUsage, QStringLiteral("--move goes one way: not with --mode both.\n")};
    for (const std::string& ids : usb) {
        const auto parsed = parseIds(ids);
        if (!parsed)
            return CliUsage{
                wrongUsage,
                QStringLiteral("--usb takes VID:PID in hexadecimal, not \"%1\".\n").arg(text(ids))};
        request.alsoAccept.push_back(*parsed);
    }
    return request;
}

} // namespace tessary
