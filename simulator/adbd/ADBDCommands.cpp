#include "simulator/adbd/ADBDCommands.h"

#include "base/hash/ContentHash.h"
#include "base/local/FileHandle.h"

#include <QDateTime>
#include <QTimeZone>

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string_view>

namespace tessary {

namespace {

using Words = std::vector<std::string>;

ADBDShellResult failed(const std::string& text) {
    return {{}, text + '\n', 1};
}

std::string reason(int code) {
    return std::strerror(code); // NOLINT(concurrency-mt-unsafe): glibc's is safe for known codes
}

ADBDShellResult list(ADBDState& state, const Words& words) {
    const std::string& path = words[2];
    const ADBDFiles files(state.config);
    const std::int64_t lie = state.hooks->sizeLie();
    std::vector<ADBDEntry> entries;
    struct stat status = {};
    if (const int code = files.status(path, false, status))
        return failed("ls: " + path + ": " + reason(code));
    if (!S_ISDIR(status.st_mode)) {
        ADBDEntry self{path, status, S_ISLNK(status.st_mode) ? "/storage/self/primary" : ""};
        return {adbdListingLine(self, lie), {}, 0};
    }
    if (const int code = files.list(path, entries))
        return failed("ls: " + path + ": " + reason(code));
    std::string text = "total " + std::to_string(4 * entries.size()) + '\n';
    for (const ADBDEntry& entry : entries)
        text += adbdListingLine(entry, lie);
    return {text, {}, 0};
}

/// `ls -A FOLDER`
ADBDShellResult listNames(ADBDState& state, const Words& words) {
    std::vector<ADBDEntry> entries;
    if (const int code = ADBDFiles(state.config).list(words[2], entries))
        return failed("ls: " + words[2] + ": " + reason(code));
    std::string text;
    for (const ADBDEntry& entry : entries)
        if (entry.name != "." && entry.name != "..")
            text += entry.name + '\n';
    return {text, {}, 0};
}

/// `stat -f -c "MARK %a %S %b" FOLDER`
ADBDShellResult fileSystemStat(ADBDState& state, const Words& words) {
    constexpr std::uint64_t unit = 4096;
    const std::string& path = words[4];
    std::uint64_t free = state.config.free;
    std::uint64_t capacity = state.config.capacity;
    for (const ADBDCard& card : state.config.cards)
        if (path.starts_with("/storage/" + card.id.toStdString())) {
            free = card.free;
            capacity = card.capacity;
        }
    struct stat status = {};
    if (const int code = ADBDFiles(state.config).status(path, true, status))
        return failed("stat: '" + path + "': " + reason(code));
    std::string text;
    const std::string& format = words[3];
    for (std::size_t i = 0; i < format.size(); ++i) {
        if (format[i] != '%')
            text += format[i];
        else if (const char field = format[++i]; field == 'a')
            text += std::to_string(free / unit);
        else if (field == 'S')
            text += std::to_string(unit);
        else if (field == 'b')
            text += std::to_string(capacity / unit);
        else
            return failed("stat: bad format");
    }
    return {text + '\n', {}, 0};
}

/// `stat [-L] [-c FORMAT] PATH` with the field %s.
ADBDShellResult stat(ADBDState& state, const Words& words) {
    if (words.size() == 5 && words[1] == "-f" && words[2] == "-c")
        return fileSystemStat(state, words);
    std::size_t next = 1;
    const bool follow = next < words.size() && words[next] == "-L";
    next += follow ? 1 : 0;
    std::string format = "  Size: %s\n";
    if (next + 1 < words.size() && words[next] == "-c") {
        format = words[next + 1] + '\n';
        next += 2;
    }
    if (next + 1 != words.size())
        return failed("stat: needs 1 argument");
    const std::string& path = words[next];
    struct stat status = {};
    if (const int code = ADBDFiles(state.config).status(path, follow, status))
        return failed("stat: '" + path + "': " + reason(code));
    std::string text;
    for (std::size_t i = 0; i < format.size(); ++i) {
        if (format[i] != '%') {
            text += format[i];
            continue;
        }
        if (format[++i] != 's')
            return failed("stat: bad format");
        text += std::to_string(status.st_size + state.hooks->sizeLie());
    }
    return {text, {}, 0};
}

ADBDShellResult removeAll(ADBDState& state, const Words& words) {
    const int code =
        state.hooks->isReadOnly() ? EROFS : ADBDFiles(state.config).removeAll(words[2]);
    return code == 0 ? ADBDShellResult() : failed("rm: " + words[2] + ": " + reason(code));
}

ADBDShellResult removeFile(ADBDState& state, const Words& words) {
    const int code =
        state.hooks->isReadOnly() ? EROFS : ADBDFiles(state.config).removeFile(words[2]);
    return code == 0 ? ADBDShellResult() : failed("rm: " + words[2] + ": " + reason(code));
}

/// `mkdir PATH`
ADBDShellResult makeFolder(ADBDState& state, const Words& words) {
    const int code =
        state.hooks->isReadOnly() ? EROFS : ADBDFiles(state.config).makeFolder(words[1]);
    return code == 0 ? ADBDShellResult() : failed("mkdir: '" + words[1] + "': " + reason(code));
}

/// `mv -n FROM… FOLDER/`
ADBDShellResult moveInto(ADBDState& state, const Words& words) {
    ADBDShellResult all;
    for (std::size_t n = 2; n + 1 < words.size(); ++n) {
        const int code = state.hooks->isReadOnly()
                             ? EROFS
                             : ADBDFiles(state.config).move(words[n], words.back(), false);
        if (code == 0)
            continue;
        all.errors += "mv: bad '" + words[n] + "': " + reason(code) + '\n';
        all.status = 1;
    }
    return all;
}

/// `mv -f|-n FROM TO`
ADBDShellResult move(ADBDState& state, const Words& words) {
    if (words.back().ends_with('/'))
        return moveInto(state, words);
    const std::string& from = words[words.size() - 2];
    const int code = state.hooks->isReadOnly()
                         ? EROFS
                         : ADBDFiles(state.config).move(from, words.back(), words[1] != "-n");
    return code == 0 ? ADBDShellResult() : failed("mv: bad '" + from + "': " + reason(code));
}

/// `find FOLDER/ -maxdepth 1 -type f -size +BYTESc -print0`
ADBDShellResult findLarge(ADBDState& state, const Words& words) {
    std::vector<ADBDEntry> entries;
    if (const int code = ADBDFiles(state.config).list(words[1], entries))
        return failed("find: " + words[1] + ": " + reason(code));
    const std::int64_t least = std::atoll(words[7].c_str() + 1);
    ADBDShellResult all;
    for (const ADBDEntry& entry : entries)
        if (S_ISREG(entry.status.st_mode) && entry.status.st_size > least)
            all.output += words[1] + entry.name + '\0';
    return all;
}

/// `[toybox] sha256sum FILE`
ADBDShellResult hash(ADBDState& state, const Words& words) {
    const std::string& path = words.back();
    ContentHash sum;
    if (path != "/dev/null") {
        const auto local = ADBDFiles(state.config).resolve(path);
        std::ifstream file(local.value_or("/nowhere"), std::ios::binary);
        if (!file || std::filesystem::is_directory(*local))
            return failed("sha256sum: " + path + ": " + reason(ENOENT));
        Bytes piece(std::size_t{1} << 20);
        do {
            file.read(reinterpret_cast<char*>(piece.data()),
                      static_cast<std::streamsize>(piece.size()));
            sum.add(ByteView(piece).first(static_cast<std::size_t>(file.gcount())));
        } while (file);
    }
    return {sum.finish().toHex().toStdString() + "  " + path + '\n', {}, 0};
}

/// `touch -m -t YYYYMMDDhhmm.ss FILE` in the world's own time
ADBDShellResult touch(ADBDState& state, const Words& words) {
    const QDateTime date =
        QDateTime::fromString(QString::fromStdString(words[4]), QStringLiteral("yyyyMMddHHmm.ss"));
    const auto local = ADBDFiles(state.config).resolve(words[5]);
    if (!date.isValid() || !local)
        return failed("touch: bad '" + words[4] + "'");
    if (state.hooks->isReadOnly())
        return failed("touch: '" + words[5] + "': " + reason(EROFS));
    const QDateTime world(date.date(), date.time(), QTimeZone::utc());
    const std::array<timespec, 2> times{timespec{0, UTIME_OMIT},
                                        timespec{world.toSecsSinceEpoch(), 0}};
    return ::utimensat(AT_FDCWD, local->c_str(), times.data(), AT_SYMLINK_NOFOLLOW) == 0
               ? ADBDShellResult()
               : failed("touch: '" + words[5] + "': " + reason(errno));
}

/// `sm list-volumes public`
ADBDShellResult volumes(ADBDState& state, const Words&) {
    std::string text;
    for (const ADBDCard& card : state.config.cards)
        text += (card.isStick ? "public:8,1 mounted " : "public:179,65 mounted ") +
                card.id.toStdString() + '\n';
    return {text, {}, 0};
}

ADBDShellResult model(ADBDState& state, const Words&) {
    return {state.config.model.toStdString() + '\n', {}, 0};
}

ADBDShellResult apiLevel(ADBDState& state, const Words&) {
    return {std::to_string(state.config.apiLevel) + '\n', {}, 0};
}

ADBDShellResult removeFolder(ADBDState& state, const Words& words) {
    const int code =
        state.hooks->isReadOnly() ? EROFS : ADBDFiles(state.config).removeFolder(words[1]);
    return code == 0 ? ADBDShellResult() : failed("rmdir: '" + words[1] + "': " + reason(code));
}

ADBDShellResult battery(ADBDState& state, const Words&) {
    return {"Current Battery Service state:\n  AC powered: false\n  USB powered: true\n"
            "  Max charging current: 500000\n  status: 2\n  health: 2\n  present: true\n"
            "  level: " +
                std::to_string(state.battery) +
                "\n  scale: 100\n  voltage: 4123\n  temperature: 271\n  technology: Li-ion\n",
            {},
            0};
}

ADBDShellResult getProperty(ADBDState& state, const Words&) {
    return {state.config.serialNumber.toStdString() + '\n', {}, 0};
}

ADBDShellResult echo(ADBDState&, const Words& words) {
    return {words[1] + '\n', {}, 0};
}

/// A command with the words that it must begin with, and how many it has in all (0: any number).
struct Known {
    std::array<std::string_view, 3> front;
    std::size_t count;
    ADBDShellResult (*run)(ADBDState&, const Words&);
};

constexpr std::array knownCommands{
    Known{{"ls", "-la", ""}, 3, &list},
    Known{{"ls", "-A", ""}, 3, &listNames},
    Known{{"stat", "", ""}, 0, &stat},
    Known{{"mkdir", "", ""}, 2, &makeFolder},
    Known{{"rm", "-rf", ""}, 3, &removeAll},
    Known{{"rm", "-f", ""}, 3, &removeFile},
    Known{{"mv", "-f", ""}, 4, &move},
    Known{{"mv", "-n", ""}, 4, &move},
    Known{{"mv", "-n", ""}, 0, &moveInto},
    Known{{"find", "", "-maxdepth"}, 9, &findLarge},
    Known{{"sha256sum", "", ""}, 2, &hash},
    Known{{"toybox", "sha256sum", ""}, 3, &hash},
    Known{{"TZ=UTC0", "touch", "-m"}, 6, &touch},
    Known{{"sm", "list-volumes", "public"}, 3, &volumes},
    Known{{"getprop", "ro.build.version.sdk", ""}, 2, &apiLevel},
    Known{{"getprop", "ro.product.model", ""}, 2, &model},
    Known{{"dumpsys", "battery", ""}, 2, &battery},
    Known{{"getprop", "ro.serialno", ""}, 2, &getProperty},
    Known{{"echo", "", ""}, 2, &echo},
    Known{{"rmdir", "", ""}, 2, &removeFolder},
};

} // namespace

std::optional<ADBDShellResult> runADBDCommand(ADBDState& state, const Words& words) {
    if (state.config.missingCommands.contains(QByteArray::fromStdString(words.front())))
        return ADBDShellResult{{}, "/system/bin/sh: " + words.front() + ": not found\n", 127};
    for (const Known& known : knownCommands) {
        bool fits = known.count == 0 || words.size() == known.count;
        for (std::size_t n = 0; n < known.front.size() && fits; ++n)
            fits = known.front[n].empty() || (n < words.size() && words[n] == known.front[n]);
        if (fits)
            return known.run(state, words);
    }
    return std::nullopt;
}

} // namespace tessary
