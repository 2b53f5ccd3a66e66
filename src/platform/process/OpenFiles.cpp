#include "platform/process/OpenFiles.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>
#include <vector>

namespace tessary {

namespace fs = std::filesystem;

namespace {

bool hasOpen(const fs::path& process, const fs::path& path) {
    // Processes end, and refuse to be looked into, at any moment: errors only mean "no".
    std::error_code error;
    for (fs::directory_iterator file(process / "fd", error), end; !error && file != end;
         file.increment(error)) {
        std::error_code unreadable;
        if (fs::read_symlink(file->path(), unreadable) == path)
            return true;
    }
    return false;
}

QString programName(const fs::path& process) {
    std::string name;
    std::ifstream file(process / "comm");
    std::getline(file, name);
    return QString::fromStdString(name);
}

} // namespace

QStringList programsWithOpenFile(const QByteArray& path) {
    std::vector<long> holders;
    std::error_code error;
    for (fs::directory_iterator process("/proc", error), end; !error && process != end;
         process.increment(error)) {
        const std::string name = process->path().filename();
        if (!std::ranges::all_of(name, [](char c) { return c >= '0' && c <= '9'; }))
            continue;
        const long number = std::stol(name);
        if (number != ::getpid() && hasOpen(process->path(), path.toStdString()))
            holders.push_back(number);
    }
    std::ranges::sort(holders);
    QStringList names;
    for (const long number : holders)
        names.append(QStringLiteral("%1 (%2)")
                         .arg(programName("/proc/" + std::to_string(number)))
                         .arg(number));
    return names;
}

} // namespace tessary
