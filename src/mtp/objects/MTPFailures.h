#pragma once

#include "mtp/protocol/MTPError.h"
#include "phone/PhoneError.h"

#include <QString>

namespace tessary {

/// What a failure of the connection means for whoever works on `path`: the one place where the
/// device's response codes and the platform's USB codes become a PhoneError. The failure is its
/// cause.
[[nodiscard]] Error phoneErrorOf(const MTPFailure& failure, const QString& path);

/// The device halted the pipe, or ended data before their time: once is one object's fault.
[[nodiscard]] bool isBrokenData(const MTPFailure& failure);

/// Whether nothing more can be done on the session after this failure.
[[nodiscard]] bool endsSession(const MTPFailure& failure);

} // namespace tessary
