#pragma once

#include "simulator/iphone/VirtualIPhoneHooks.h"

#include <QStringList>

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>

namespace tessary {

/// Happens once, when this many bytes more have moved over AFC connections in one direction, packet
/// headers included. What comes before it travels.
struct VirtualIPhoneByteFault {
    VirtualDirection direction = VirtualDirection::toHost;
    std::uint64_t bytes = 0;
    VirtualCut cut = VirtualCut::unplug;
};

/// Happens once, at the `nth` request of a name from when it was set, counted from 1.
struct VirtualIPhoneRequestFault {
    QString request; ///< as VirtualIPhoneLog names it
    unsigned nth = 1;
    bool afterwards = false; ///< the request is carried out, its answer lost; else it is not
    VirtualCut cut = VirtualCut::unplug;
};

/// An AFC status that a request is refused with.
struct VirtualAFCStatus {
    std::uint64_t status = 1;
    bool always = false; ///< else once
    unsigned before = 0; ///< so many requests of the name are carried out first
};

/// What a virtual iPhone does wrong: parameters, all off at first. Keys are requests as
/// VirtualIPhoneLog names them: "lockdown.StartSession", "afc.fileWrite".
struct VirtualIPhoneFaults {
    /// So many sessions are refused with `handshakeError`, "PasswordProtected" say; with an empty
    /// one the connection ends instead.
    unsigned handshakesToFail = 0;
    QString handshakeError;

    std::map<QString, VirtualAFCStatus> statuses;
    /// Status 18 for what would make a file longer than this.
    std::optional<std::uint64_t> storeFullAfter;
    bool garblesNext = false; ///< changes a byte of the next content that moves, either way
    /// May replace the keys and values of a file's information, given its path.
    std::function<QStringList(const QString& path, const QStringList& pairs)> rewriteFileInfo;
    /// Names on disk and what listings call them.
    std::map<QString, QString> nameOverrides;
    /// Answers to reads hold at most so many bytes; 0 for no limit.
    std::uint64_t longestRead = 0;

    std::set<QString> hang; ///< the request is not answered at all
    std::map<QString, std::chrono::milliseconds> delay;
    std::chrono::milliseconds delayEach{0}; ///< the same for every request
    double megabytesPerSecond = 0;          ///< of 10^6 bytes of file content; 0 for no limit

    /// Sent in the place of the answers to a request.
    std::map<QString, VirtualRawAnswer> rawAnswers;

    std::optional<VirtualIPhoneByteFault> byteFault;
    std::optional<VirtualIPhoneRequestFault> requestFault;
};

} // namespace tessary
