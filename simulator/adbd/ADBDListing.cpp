#include "simulator/adbd/ADBDListing.h"

#include <sys/sysmacros.h>

#include <array>
#include <cstdio>
#include <ctime>
#include <string_view>

namespace tessary {

namespace {

constexpr std::array<const char*, 12> months{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                             "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

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

std::string dateText(std::time_t time, ADBDListingForm form) {
    constexpr std::time_t halfYear = 180L * 24 * 60 * 60;
    std::tm local = {};
    localtime_r(&time, &local);
    std::array<char, 64> text{};
    const int year = local.tm_year + 1900;
    const char* month = months[static_cast<std::size_t>(local.tm_mon)];
    if (form != ADBDListingForm::monthAndDay)
        (void)std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d", year,
                            local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min);
    else if (std::time(nullptr) - time < halfYear)
        (void)std::snprintf(text.data(), text.size(), "%s %2d %02d:%02d", month, local.tm_mday,
                            local.tm_hour, local.tm_min);
    else
        (void)std::snprintf(text.data(), text.size(), "%s %2d  %4d", month, local.tm_mday, year);
    std::string result = text.data();
    if (form == ADBDListingForm::seconds) {
        (void)std::snprintf(text.data(), text.size(), ":%02d", local.tm_sec);
        result += text.data();
    }
    return result;
}

} // namespace

std::string adbdListingLine(const ADBDEntry& entry, ADBDListingForm form, std::int64_t sizeLie) {
    const struct stat& status = entry.status;
    const bool isPlain = form == ADBDListingForm::plain;
    std::string size = std::to_string(status.st_size + sizeLie);
    if (S_ISCHR(status.st_mode) || S_ISBLK(status.st_mode))
        size = std::to_string(major(status.st_rdev)) + ", " + std::to_string(minor(status.st_rdev));
    else if (isPlain && (S_ISDIR(status.st_mode) || S_ISLNK(status.st_mode)))
        size.clear();
    std::array<char, 128> front{};
    if (isPlain)
        (void)std::snprintf(front.data(), front.size(), " %-8s %-8s %10s ", "root", "sdcard_rw",
                            size.c_str());
    else
        (void)std::snprintf(front.data(), front.size(), " %2lu %s %s %8s ",
                            static_cast<unsigned long>(status.st_nlink), "u0_a167", "media_rw",
                            size.c_str());
    std::string line = permissions(status.st_mode) + front.data() +
                       dateText(status.st_mtim.tv_sec, form) + ' ' + entry.name;
    if (!entry.target.empty())
        line += " -> " + entry.target;
    return line + '\n';
}

} // namespace tessary
