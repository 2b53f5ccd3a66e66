#pragma once

#include "phone/records/DeviceInfo.h"
#include "sync/old/plan/SyncPair.h"
#include "sync/old/run/SyncDeviceBackend.h"

#include <functional>
#include <memory>
#include <stop_token>

namespace tessary {

class DeviceServices;

/// Connects to the device side of a pair. Blocking, off the main thread; throws the errors of the
/// device's layer and CancellationError.
using SyncConnector = std::function<std::unique_ptr<SyncDeviceBackend>(
    const SyncPair& pair, const DeviceInfo& device, const std::stop_token& stop)>;

/// Connects to real devices: to an app's documents on an iPhone, or to an Android phone through
/// `services`, which must outlive all that it connects. Whoever else uses the phone waits for as
/// long as the connection lives.
[[nodiscard]] SyncConnector deviceConnector(DeviceServices& services);

} // namespace tessary
