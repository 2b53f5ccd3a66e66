#include "simulator/adbd/ADBDListing.h"

#include <sys/sysmacros.h>

#include <array>
#include <cstdio>
#include <ctime>
#include <string_view>

namespace tessary {

namespace {

char typeLetter(mode_t mode) {
    if (S_ISDIR(mode))
        return 'd';
    if (S_ISLNK(mode))
        return 'l';
    if (S_ISCHR(mode))
        return 'c';
    if (S_ISBLK(mode))
        return 'b';
    if (S_ISFIFO(mode))
        return 'p';
    return S_ISSOCK(mode) ? 's' : '-';
}

std::string permissions(mode_t mode) {
    constexpr std::string_view letters = "rwxrwxrwx";
    std::string text(1, typeLetter(mode));
    for (unsigned bit = 0; bit < letters.size(); ++bit)
        text += (mode & (0400U >> bit)) != 0 ? letters[bit] : '-';
    return text;
}

std::string dateText(std::time_t time) {
    std::tm local = {};
    localtime_r(&time, &local);
    std::array<char, 64> text{};
    (void)std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &local);
    return text.data();
}

} // namespace

std::string adbdListingLine(const ADBDEntry& entry, std::int64_t sizeLie) {
    const struct stat& status = entry.status;
    std::string size = std::to_string(status.st_size + sizeLie);
    if (S_ISCHR(status.st_mode) || S_ISBLK(status.st_mode))
        size = std::to_string(major(status.st_rdev)) + ", " + std::to_string(minor(status.st_rdev));
    std::array<char, 128> front{};
    (void)std::snprintf(front.data(), front.size(), " %2lu %s %s %8s ",
                        static_cast<unsigned long>(status.st_nlink), "u0_a167", "media_rw",
                        size.c_str());
    std::string line = permissions(status.st_mode) + front.data() +
                       dateText(status.st_mtim.tv_sec) + ' ' + entry.name;
    if (!entry.target.empty())
        line += " -> " + entry.target;
    return line + '\n';
}

} // namespace tessary
