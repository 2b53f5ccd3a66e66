#include "mtp/client/MTPInterfaceConnection.h"

#include "mtp/client/MTPUSBTransport.h"
#include "support/MTPFailure.h"
#include "support/ScriptedUSBBus.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

constexpr USBPipeProperties bulkIn{USBDirection::in, USBTransferType::bulk, 512};
constexpr USBPipeProperties bulkOut{USBDirection::out, USBTransferType::bulk, 512};
constexpr USBPipeProperties events{USBDirection::in, USBTransferType::interrupt, 64};

const MTPDeviceAddress anyOfModel{0x18D1, 0x4EE1, {}, {}};

std::string openFailure(ScriptedUSBBus& bus, const MTPDeviceAddress& address = anyOfModel) {
    return mtpFailureOf([&] { (void)openMTPInterface(bus, address); });
}

TEST(MTPInterfaceConnection, likeliestInterfaceIsOpened) {
    using Entries = std::vector<USBInterfaceEntry>;
    const ScriptedInterface image{6, 1, {bulkIn, bulkOut, events}};
    const ScriptedInterface adb{255, 66, {bulkIn, bulkOut}};
    const ScriptedInterface vendor{255, 255, {bulkIn, bulkOut, events}};
    const ScriptedInterface modem{255, 255, {bulkIn, bulkOut}};
    const ScriptedInterface old{255, 1, {bulkIn, bulkOut}};
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
