#pragma once

#include "base/values/Bytes.h"
#include "simulator/mtp/MTPResponderHooks.h"
#include "simulator/mtp/VirtualBehaviour.h"
#include "simulator/storage/VirtualObjectStore.h"

#include <span>

namespace tessary {

/// What DeviceInfo says of a phone.
struct MTPDeviceDescription {
    QString manufacturer;
    QString model;
    QString serialNumber;
    std::vector<std::uint16_t> operations;
};

/// The datasets as a phone writes them; the layouts are those of the MTP codec's decoders. Pure.
class MTPResponderDatasets {
public:
    /// DeviceInfo: u16 version, u32 vendor extension, u16 its version, string, u16 mode, arrays of
    /// u16 for operations, events, device properties, capture formats and playback formats, then
    /// strings for manufacturer, model, version and serial number.
    [[nodiscard]] static Bytes deviceInfo(const MTPDeviceDescription& device);

    [[nodiscard]] static Bytes storageInfo(const VirtualStorage& storage);

    [[nodiscard]] static Bytes objectInfo(const VirtualObject& object, const QString& name,
                                          bool cutsSizesTo32Bits);

    /// The value of an object property; operation refused with invalidObjectPropCode (0xA801) for
    /// one that is not in objectProperties().
    [[nodiscard]] static Bytes objectProperty(std::uint16_t property, const VirtualObject& object,
                                              const QString& name);
    [[nodiscard]] static std::span<const std::uint16_t> objectProperties();
    /// All properties of an object as they stand in a property list: u32 handle, u16 property, u16
    /// type, value. Returns their number.
    static std::uint32_t appendProperties(Bytes& list, const VirtualObject& object,
                                          const QString& name);

    /// DevicePropDesc of the battery level: u16 property, u16 type u8, u8 read only, u8 default, u8
    /// current, u8 form "range", then u8 least, u8 greatest, u8 step.
    [[nodiscard]] static Bytes batteryDescription(int percent);

    /// u32 count, then the values.
    [[nodiscard]] static Bytes array(std::span<const std::uint32_t> values);
    [[nodiscard]] static Bytes array(std::span<const std::uint16_t> values);

    /// Format by the ending of a file's name; 0x3000 when it says nothing.
    [[nodiscard]] static std::uint16_t formatOf(const VirtualObject& object);

    /// Local time, "yyyyMMddTHHmmss".
    [[nodiscard]] static QString date(std::int64_t secondsSinceEpoch);
};

} // namespace tessary
