#pragma once

#include "core/DeviceInfo.h"
#include "devices/DeviceTrouble.h"
#include "files/MTPFileBackend.h"

#include <optional>

namespace tessary {

class DeviceFileService;

/// What came of asking a device for its figures.
struct DeviceAnswer {
    enum class Outcome {
        answered, ///< with `figures`; one without a storage is locked
        busy,     ///< something else uses it
        gone,     ///< it was unplugged
        failed,   ///< with `trouble`
    };
    Outcome outcome = Outcome::busy;
    LiveDeviceInfo figures;
    std::optional<DeviceTrouble> trouble;
};

/// Asks for what a bus does not tell. Calls block, though not without end, and may come from any
/// thread.
class DeviceInquiry {
public:
    virtual ~DeviceInquiry() = default;

    /// Battery and storages. Never waits for whoever uses the device.
    [[nodiscard]] virtual DeviceAnswer ask(const DeviceInfo& device) = 0;
    /// Whether a program runs that is known to compete for phones.
    [[nodiscard]] virtual bool isConflictingAppRunning() = 0;
};

/// Asks by way of the file service, which orders it with everything else that uses a device.
class FileServiceInquiry : public DeviceInquiry {
public:
    /// `files` must outlive it.
    explicit FileServiceInquiry(DeviceFileService& files) : files_(files) {}

    [[nodiscard]] DeviceAnswer ask(const DeviceInfo& device) override;
    [[nodiscard]] bool isConflictingAppRunning() override;

private:
    [[nodiscard]] DeviceAnswer whyNoStorage(const DeviceInfo& device, LiveDeviceInfo figures);

    DeviceFileService& files_;
};

} // namespace tessary
