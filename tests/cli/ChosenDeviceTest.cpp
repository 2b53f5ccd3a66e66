#include "cli/devices/ChosenDevice.h"

#include "base/values/Error.h"
#include "cli/terminal/CliFailure.h"
#include "cli/terminal/CommandLine.h"
#include "devices/list/DeviceSources.h"
#include "ios/Multiplexer.h"
#include "support/PluggedIPhone.h"
#include "support/QtPrinters.h"
#include "support/ScriptedUSBBus.h"

#include <gtest/gtest.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// What choosing an iPhone by a name fails with; empty when it is found.
QString choosing(const QString& name, const VirtualIPhoneConfig& config) {
    PluggedIPhone iphone(config);
    ScriptedUSBBus bus;
    SystemMultiplexer multiplexer;
    CliRequest request;
    request.device = name;
    try {
        (void)chooseDevice(DeviceSources(bus, &multiplexer), request, {}, {});
        return QString();
    } catch (const Error& error) {
        return error.logText();
    } catch (const CliFailure& failure) {
        return QString::fromUtf8(failure.what());
    }
}

TEST(ChosenDevice, anIPhoneThatWaitsForItsUserSaysSoAndIsNotCalledMissing) {
    VirtualIPhoneConfig config;
    config.name = u"Ann's iPhone"_s;
    EXPECT_EQ(choosing(u"ann's iphone"_s, config), QString());
    EXPECT_TRUE(
        choosing(u"Bob's iPhone"_s, config).contains(u"\"Bob's iPhone\" is not attached"_s));
    config.isLocked = true;
    EXPECT_EQ(choosing(u"Ann's iPhone"_s, config), u"locked, caused by handshake (-17)"_s);
    config.isLocked = false;
    config.isPaired = false;
    config.trust = VirtualTrust::asking;
    EXPECT_EQ(choosing(u"Ann's iPhone"_s, config), u"notTrusted, caused by handshake (-19)"_s);
    EXPECT_EQ(choosing(config.udid, config), QString());
}

} // namespace
} // namespace tessary
