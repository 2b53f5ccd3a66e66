#pragma once

#include "adb/protocol/ADBError.h"

#include <QString>

#include <array>

namespace tessary {

/// How `tessary-adbkey` is asked: one command a run, its answer on standard output as it is. What
/// went wrong is its exit status, and the reason is on standard error.
namespace adb_key {

inline const QString program = QStringLiteral("tessary-adbkey");
inline const QString sign = QStringLiteral("sign"); ///< and the token in hexadecimal
inline const QString phonePublicKey = QStringLiteral("phone-public-key");

struct Failure {
    int exitStatus;
    ADBError error;
};
inline constexpr std::array failures{Failure{3, ADBError::noKey}, Failure{4, ADBError::notSigned},
                                     Failure{5, ADBError::noPublicKey}};

} // namespace adb_key

} // namespace tessary
