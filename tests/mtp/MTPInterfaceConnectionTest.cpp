#include "mtp/client/MTPInterfaceConnection.h"

#include "support/MTPFailure.h"
#include "support/PluggedPhone.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

MTPDeviceAddress anyOfModel() {
    return {0x18D1, 0x4EE1, {}, {}};
}

TEST(MTPInterfaceConnection, likeliestInterfaceIsOpened) {
    const VirtualUSBInterfaceDescription image{6, 1, 1};
    const VirtualUSBInterfaceDescription adb{255, 66, 1, 2};
    const VirtualUSBInterfaceDescription vendor{255, 255, 0};
    const VirtualUSBInterfaceDescription modem{255, 255, 0, 2};
    const VirtualUSBInterfaceDescription old{255, 1, 0, 2};
    const struct {
        const char* name;
        std::vector<VirtualUSBInterfaceDescription> interfaces;
        int opened; ///< -1: none
    } rows[] = {
        {"image class first", {adb, vendor, old, image}, 3},
        {"vendor's own with three pipes", {adb, modem, vendor}, 2},
        {"two pipes are something else", {adb, modem}, -1},
        {"its name tells", {vendor, {255, 255, 0, 2, u"MTP"_s}}, 1},
        {"a protocol tells against it", {{255, 255, 48}}, -1},
        {"adb is left alone whatever its name", {{255, 66, 1, 2, u"MTP"_s}}, -1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        VirtualUSBBus bus;
        const PluggedPhone phone(bus, {.interfaces = row.interfaces});
        int opened = -1;
        const auto failure =
            mtpFailureOf([&] { opened = openMTPInterface(bus, anyOfModel()).interface->number(); });
        EXPECT_TRUE(!failure || failure->is(MTPError::notThere));
        EXPECT_EQ(opened, row.opened);
    }
}

TEST(MTPInterfaceConnection, tellsTwoPhonesOfOneModelApart) {
    VirtualUSBBus bus;
    const PluggedPhone first(bus, phoneConfig("A", "1-1"));
    const PluggedPhone second(bus, phoneConfig("B", "1-2"));
    const PluggedPhone clone(bus, phoneConfig("A", "1-3"));
    const std::tuple<const char*, QString, QString, QString> rows[] = {
        {"by serial", u"B"_s, {}, u"1-2"_s},
        {"by location", {}, u"1-2"_s, u"1-2"_s},
        {"moved to another port", u"B"_s, u"1-9"_s, u"1-2"_s},
        {"another phone in its port", u"B"_s, u"1-1"_s, u"1-2"_s},
        {"one without a serial moved", {}, u"1-9"_s, {}},
        {"another serial in that port", u"C"_s, u"1-1"_s, {}},
        {"nothing known", {}, {}, {}},
        {"clones with one serial", u"A"_s, {}, {}},
        {"a clone by its port", u"A"_s, u"1-3"_s, u"1-3"_s},
    };
    for (const auto& [name, serial, location, expected] : rows) {
        const MTPDeviceAddress address{0x18D1, 0x4EE1, serial, location};
        const auto found = findMTPDevice(bus, address);
        EXPECT_EQ(found ? found->location : QString(), expected) << name;
        EXPECT_EQ(mtpFailureOf([&] { (void)openMTPInterface(bus, address); }).has_value(),
                  !found.has_value())
            << name;
    }
}

} // namespace
} // namespace tessary
