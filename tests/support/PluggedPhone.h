#pragma once

#include "phone/records/DeviceInfo.h"
#include "simulator/faults/FaultyAndroid.h"
#include "support/TemporaryFolder.h"

namespace tessary {

inline VirtualAndroidConfig phoneConfig(const char* serial, const char* location = "1-1") {
    return {.serialNumber = QString::fromUtf8(serial), .location = QString::fromUtf8(location)};
}

/// A virtual Android phone that is plugged in, with its storages in a temporary folder.
class PluggedPhone {
public:
    static constexpr std::uint32_t firstStorage = 0x00010001;

    /// `storages` are what `config` names, or one; their folders are "0", "1", … of `disk`.
    explicit PluggedPhone(VirtualUSBBus& bus, VirtualAndroidConfig config = {})
        : android(onDisk(std::move(config), disk)), info(describe(android.config())) {
        if (android.plugInto(bus) == 0)
            throw std::runtime_error("the location is taken");
    }

    /// The content of a file of the first storage; a null array when there is none.
    [[nodiscard]] QByteArray content(const QString& path) const {
        return disk.read(QStringLiteral("0/") + path);
    }
    QString write(const QString& path, const QByteArray& bytes) const {
        return disk.write(QStringLiteral("0/") + path, bytes);
    }
    [[nodiscard]] QStringList names(const QString& folder = QString()) const {
        return disk.names(QStringLiteral("0/") + folder);
    }
    [[nodiscard]] std::size_t requests(MTPOperationCode operation) const {
        return android.requestCount(operation);
    }
    /// Sets one fault, or several, beside those that are set already.
    template <typename Change>
    void fault(Change change) {
        android.faults().update(change);
    }
    template <typename Change>
    void behave(Change change) {
        android.behaviour().update(change);
    }
    /// Knows an operation no more, whatever it announced.
    void unlearn(MTPOperationCode operation) {
        behave([operation](VirtualBehaviour& behaviour) {
            behaviour.unsupportedOperations.insert(static_cast<std::uint16_t>(operation));
        });
    }
    /// Pulls the cable after so many bytes of the `phase`th data phase from now on.
    void unplugAfter(USBDirection direction, std::uint64_t bytes, unsigned phase) {
        fault([&](VirtualFaults& faults) { faults.unplug = {direction, bytes, phase}; });
    }
    /// Changes the containers with an operation's data before they are sent.
    void rewriteData(MTPOperationCode operation, std::function<void(Bytes&)> change) {
        fault([&](VirtualFaults& faults) {
            faults.rewrite = [=](const VirtualAnswer& answer) -> std::optional<Bytes> {
                if (answer.operation != static_cast<std::uint16_t>(operation) ||
                    answer.type != MTPContainerType::data)
                    return std::nullopt;
                Bytes container = answer.container;
                change(container);
                return container;
            };
        });
    }
    /// Refuses an operation from now on, or once.
    void refuse(MTPOperationCode operation, MTPResponseCode code, bool always = true) {
        fault([&](VirtualFaults& faults) {
            faults.errors[static_cast<std::uint16_t>(operation)] = {
                static_cast<std::uint16_t>(code), always};
        });
    }

    const TemporaryFolder disk;
    FaultyAndroid android;
    DeviceInfo info; ///< as device discovery would describe it

private:
    static VirtualAndroidConfig onDisk(VirtualAndroidConfig config, const TemporaryFolder& disk) {
        if (config.storages.empty())
            config.storages.resize(1);
        for (std::size_t n = 0; n < config.storages.size(); ++n)
            config.storages[n].folder = disk.makeFolder(QString::number(n));
        return config;
    }

    static DeviceInfo describe(const VirtualAndroidConfig& config) {
        DeviceInfo device;
        device.platform = DevicePlatform::android;
        device.protocolMode = ProtocolMode::mtp;
        device.vendorId = config.vendorID;
        device.productId = config.productID;
        device.usbLocation = config.location;
        device.udid =
            config.serialNumber.isEmpty() ? QStringLiteral("USB-18D1-4EE1") : config.serialNumber;
        device.serialNumber = device.udid;
        return device;
    }
};

} // namespace tessary
