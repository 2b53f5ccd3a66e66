#include "cli/ChosenDevice.h"

#include "cli/CommandLine.h"
#include "devices/list/DeviceSources.h"
#include "ios/Multiplexer.h"
#include "support/Failure.h"
#include "support/PluggedIPhone.h"
#include "support/QtPrinters.h"
#include "support/ScriptedUSBBus.h"

#include <gtest/gtest.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// What choosing an iPhone by a name ends with.
QString choosing(const QString& name, const VirtualIPhoneConfig& config) {
    PluggedIPhone iphone(config);
    ScriptedUSBBus bus;
    SystemMultiplexer multiplexer;
    CliRequest request;
    request.device = name;
    return failureOf(
        [&] { (void)chooseDevice(DeviceSources(bus, &multiplexer), request, {}, {}); });
}

TEST(ChosenDevice, anIPhoneThatWaitsForItsUserSaysSoAndIsNotCalledMissing) {
    VirtualIPhoneConfig config;
    config.name = u"Ann's iPhone"_s;
    EXPECT_EQ(choosing(u"ann's iphone"_s, config), QString::fromLatin1(notThrown));
    EXPECT_TRUE(
        choosing(u"Bob's iPhone"_s, config).contains(u"\"Bob's iPhone\" is not attached"_s));
    config.isLocked = true;
    EXPECT_EQ(choosing(u"Ann's iPhone"_s, config), u"Lockdown error: Handshake failed: -17"_s);
    config.isLocked = false;
    config.isPaired = false;
    config.trust = VirtualTrust::asking;
    EXPECT_EQ(choosing(u"Ann's iPhone"_s, config), u"Lockdown error: Handshake failed: -19"_s);
    EXPECT_EQ(choosing(config.udid, config), QString::fromLatin1(notThrown));
}

} // namespace
} // namespace tessary
