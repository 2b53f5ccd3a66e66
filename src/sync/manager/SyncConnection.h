#pragma once

#include "phone/PhoneFileSystem.h"
#include "phone/records/DeviceInfo.h"
#include "sync/pair/SyncPair.h"

#include <functional>
#include <memory>
#include <stop_token>

namespace tessary {

class PhoneFileSystems;

/// Opens the device side of a pair. Off the main thread; throws Error and CancellationError.
using SyncConnector = std::function<std::shared_ptr<PhoneFileSystem>(
    const SyncPair& pair, const DeviceInfo& device, const std::stop_token& stop)>;

/// Opens real devices: an Android phone's storage, an app's documents on an iPhone, or the iPhone's
/// media folder. `files` must outlive all that it opens.
[[nodiscard]] SyncConnector deviceConnector(PhoneFileSystems& files);

} // namespace tessary
