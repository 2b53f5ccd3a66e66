#include "ios/AFCFileInfo.h"

#include "base/text/ByteCount.h"

#include <QTimeZone>

#include <charconv>
#include <cstdint>
#include <string_view>

namespace tessary {

namespace {

/// Digits only: no sign, no blanks, nothing behind.
std::optional<std::uint64_t> parseUnsigned(std::string_view text) {
    std::uint64_t value = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (failure != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

} // namespace

AFCFileInfo parseFileInfo(const char* const* texts) {
    constexpr std::uint64_t nanosecondsPerMillisecond = 1'000'000;
    AFCFileInfo info;
    for (; texts != nullptr && texts[0] != nullptr && texts[1] != nullptr; texts += 2) {
        const std::string_view key = texts[0];
        const std::string_view value = texts[1];
        if (key == "st_ifmt") {
            info.isDirectory = value == "S_IFDIR";
            info.isLink = value == "S_IFLNK";
            info.isFile = value == "S_IFREG";
        } else if (key == "st_size") {
            const auto size = parseUnsigned(value);
            info.size = size ? std::optional(clampedByteCount(*size)) : std::nullopt;
        } else if (key == "st_mtime") {
            const auto time = parseUnsigned(value);
            info.modifiedDate =
                time
                    ? std::optional(QDateTime::fromMSecsSinceEpoch(
                          static_cast<qint64>(*time / nanosecondsPerMillisecond), QTimeZone::utc()))
                    : std::nullopt;
        }
    }
    return info;
}

} // namespace tessary
