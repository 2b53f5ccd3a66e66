#pragma once

#include "devices/files/PhoneFileSystems.h"
#include "transfer/queue/CopyQueue.h"

#include <optional>
#include <vector>

namespace tessary {

/// The file systems of a copy of an earlier time, this computer's folders included; no value while
/// one of its phones is not attached by the same way, or does not show its files. Asks no phone.
[[nodiscard]] std::optional<CopyEnds>
reopen(const CopyJob& job, const std::vector<DeviceInfo>& attached, PhoneFileSystems& phones);

} // namespace tessary
