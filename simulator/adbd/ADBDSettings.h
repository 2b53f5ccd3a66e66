#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <set>
#include <vector>

namespace tessary {

/// A card or stick of a phone, seen as /storage/<id>.
struct ADBDCard {
    QString id = QStringLiteral("1234-ABCD");
    QString folder = {};
    bool isStick = false;                             ///< else an SD card
    std::uint64_t capacity = std::uint64_t{32} << 30; ///< bytes
    std::uint64_t free = std::uint64_t{16} << 30;
};

struct ADBDConfig {
    QString folder; ///< what is seen as /sdcard; created when it is missing
    QString serialNumber = QStringLiteral("VIRTUAL");
    QString product = QStringLiteral("panther");
    QString model = QStringLiteral("Pixel 7");
    QString device = QStringLiteral("panther");
    bool hasShellV2 = true;                    ///< else no exit status reaches the host
    bool hasStatV2 = true;                     ///< else sizes have 32 bits
    bool hasLsV2 = true;                       ///< the same in listings
    bool isFirstVersion = false;               ///< of the wire: checksums, and small payloads
    int apiLevel = 33;                         ///< of Android
    std::set<QByteArray> missingCommands = {}; ///< that its shell does not know
    std::vector<ADBDCard> cards = {};
    bool asksForKeys = false;                          ///< else any computer is let in
    bool ignoresCase = false;                          ///< in names of files
    std::uint64_t capacity = std::uint64_t{128} << 30; ///< bytes
    std::uint64_t free = std::uint64_t{64} << 30;
    double megabytesPerSecond = 0; ///< of 10^6 bytes, for contents of files; 0 for no limit
};

} // namespace tessary
