#include "mtp/client/MTPInterfaceConnection.h"

#include "mtp/client/MTPUSBTransport.h"
#include "support/MTPFailure.h"
#include "support/ScriptedUSBBus.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using ::testing::IsEmpty;

constexpr USBPipeProperties bulkIn{USBDirection::in, USBTransferType::bulk, 512};
constexpr USBPipeProperties bulkOut{USBDirection::out, USBTransferType::bulk, 512};
constexpr USBPipeProperties events{USBDirection::in, USBTransferType::interrupt, 64};

const MTPDeviceAddress anyOfModel{0x18D1, 0x4EE1, {}, {}};

std::string openFailure(ScriptedUSBBus& bus, const MTPDeviceAddress& address = anyOfModel) {
    return mtpFailureOf([&] { (void)openMTPInterface(bus, address); });
}

TEST(MTPInterfaceConnection, someVendorsAreNeverOpened) {
    for (const std::uint16_t vendor :
         std::initializer_list<std::uint16_t>{0x05AC, 0x0BC2, 0x1058}) {
        ScriptedUSBBus bus;
        bus.attached[0].entry.vendorID = vendor;
        EXPECT_EQ(openFailure(bus, {vendor, 0x4EE1, {}, {}}), mtpNotConnected);
        EXPECT_THAT(bus.log, IsEmpty()) << vendor;
        EXPECT_FALSE(findMTPDevice(bus, {vendor, 0x4EE1, {}, {}}));
    }
}

TEST(MTPInterfaceConnection, likeliestInterfaceIsOpened) {
    using Entries = std::vector<USBInterfaceEntry>;
    const ScriptedInterface image{6, 1, {bulkIn, bulkOut, events}, {}};
    const ScriptedInterface adb{255, 66, {bulkIn, bulkOut}, {}};
    const ScriptedInterface vendor{255, 255, {bulkIn, bulkOut, events}, {}};
    const ScriptedInterface modem{255, 255, {bulkIn, bulkOut}, {}};
    const ScriptedInterface old{255, 1, {bulkIn, bulkOut}, {}};
    const struct {
        const char* name;
        std::vector<ScriptedInterface> interfaces;
        Entries entries;
        std::string opened; ///< "" for none
    } rows[] = {
        {"image class first", {adb, vendor, old, image}, {}, "open interface 3"},
        {"vendor's own with three pipes", {adb, modem, vendor}, {}, "open interface 2"},
        {"two pipes are something else", {adb, modem}, {}, ""},
        {"its name tells",
         {vendor, modem},
         {{1, 255, 255, 0, QStringLiteral("MTP")}},
         "open interface 1"},
        {"a protocol tells against it", {vendor}, {{0, 255, 255, 48, {}}}, ""},
        {"adb is left alone whatever its name",
         {adb},
         {{0, 255, 66, 1, QStringLiteral("MTP")}},
         ""},
    };
    for (const auto& row : rows) {
        ScriptedUSBBus bus;
        bus.attached[0].interfaces = row.interfaces;
        bus.attached[0].entry.interfaces = row.entries;
        EXPECT_EQ(openFailure(bus), row.opened.empty() ? mtpNotConnected : "none") << row.name;
        const bool opened = row.opened.empty() || bus.logged(row.opened) == 1;
        EXPECT_TRUE(opened) << row.name;
    }
}

TEST(MTPInterfaceConnection, interfaceWithoutBulkPairIsPassedOver) {
    ScriptedUSBBus bus;
    auto& interfaces = bus.attached[0].interfaces;
    interfaces.assign(3, {});
    interfaces[0].pipes = {events};
    interfaces[1].pipes = {bulkIn, events};
    interfaces[2].pipes = {events, bulkOut, bulkIn};
    const MTPInterfaceConnection connection = openMTPInterface(bus, anyOfModel);
    EXPECT_EQ(connection.interface->number(), 2);
    EXPECT_EQ(connection.outPipe, 2);
    EXPECT_EQ(connection.inPipe, 3);
    EXPECT_EQ(connection.maxPacketSize, 512);

    interfaces.resize(2);
    EXPECT_EQ(openFailure(bus), mtpNotConnected);
}

TEST(MTPInterfaceConnection, whatIsHeldIsSeizedAndRefusalsSayWhy) {
    struct Row {
        std::deque<USBCode> device;
        std::deque<USBCode> interface;
        std::vector<std::string> calls; ///< after the first attempt to open the device
        std::string failure;
    };
    const std::string denied = "Exclusive access denied by macOS PTPCamera/Photos daemon.";
    const std::string notPermitted = "MTP Transport error: USB open failed: 0x-1FFFFD1E";
    const std::string open = "open interface 0";
    const std::string seize = "seize interface 0";
    const USBCode held = usb::exclusiveAccess;
    const std::vector<Row> rows{
        {{}, {held}, {open, open}, "none"},
        {{}, {held, held}, {open, open, seize}, "none"},
        {{}, {held, held, held}, {open, open, seize}, denied},
        {{}, {usb::notPermitted}, {open}, notPermitted},
        {{}, {usb::noDevice}, {open}, mtpNotConnected},
        {{held}, {}, {"seize 1-1", open}, "none"},
        {{held, held}, {}, {"seize 1-1"}, denied},
        {{usb::notPermitted}, {}, {}, notPermitted},
    };
    for (const Row& row : rows) {
        ScriptedUSBBus bus;
        bus.attached[0].openCodes = row.device;
        bus.attached[0].interfaces[0].openCodes = row.interface;
        EXPECT_EQ(openFailure(bus), row.failure);
        bus.log.erase(bus.log.begin());
        EXPECT_EQ(bus.log, row.calls);
    }
}

TEST(MTPInterfaceConnection, tellsTwoPhonesOfOneModelApart) {
    const std::tuple<const char*, const char*, const char*, std::string> rows[] = {
        {"by serial", "B", "", "1-2"},
        {"by location", "", "1-2", "1-2"},
        {"moved to another port", "B", "1-9", "1-2"},
        {"another phone in its port", "A", "1-2", "1-1"},
        {"one without a serial moved", "", "1-9", "refused"},
        {"another serial in that port", "C", "1-1", "refused"},
        {"nothing known", "", "", "refused"},
    };
    for (const auto& [name, serial, location, opened] : rows) {
        ScriptedUSBBus bus;
        bus.attached[0].entry.serialNumber = QStringLiteral("A");
        bus.attach("1-2", QStringLiteral("B"));
        const MTPDeviceAddress address{0x18D1, 0x4EE1, QString::fromLatin1(serial),
                                       QString::fromLatin1(location)};
        const auto found = findMTPDevice(bus, address);
        EXPECT_EQ(found ? found->location.toStdString() : "refused", opened) << name;
        EXPECT_EQ(openFailure(bus, address) == "none", found.has_value()) << name;
        EXPECT_EQ(bus.logged("open " + opened), found ? 1U : 0U) << name;
        EXPECT_EQ(bus.log.empty(), !found) << name;
    }
}

TEST(MTPInterfaceConnection, clonesWithOneSerialAreToldApartByTheirPort) {
    ScriptedUSBBus bus;
    bus.attached[0].entry.serialNumber = QStringLiteral("0123456789ABCDEF");
    bus.attach("1-2", QStringLiteral("0123456789ABCDEF"));
    MTPDeviceAddress address{0x18D1, 0x4EE1, QStringLiteral("0123456789ABCDEF"), {}};
    EXPECT_THAT(openFailure(bus, address), ::testing::HasSubstr("several phones of this model"));
    address.location = QStringLiteral("1-2");
    EXPECT_EQ(findMTPDevice(bus, address)->location, QStringLiteral("1-2"));
}

} // namespace
} // namespace tessary
