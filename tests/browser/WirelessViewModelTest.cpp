#include "browser/model/WirelessViewModel.h"
#include "adb/protocol/ADBError.h"
#include "platform/process/QtProcessRunner.h"
#include "simulator/usb/VirtualUSBBus.h"
#include "support/MainLoop.h"
#include "support/ScriptedADBServer.h"
#include "support/ScriptedNetwork.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

using Step = WirelessViewModel::Step;
using testing::ElementsAre;

class WirelessViewModelTest : public MainLoop {
protected:
    ~WirelessViewModelTest() override {
        EXPECT_TRUE(Background::shutDown(30s)); // before what the work uses goes
    }
    ADBWays::Setup waysBy(const ADBServerAddress& server) {
        return {.bus = bus_, .processes = runner_, .server = server, .adbPaths = QStringList()};
    }

    QtProcessRunner runner_;
    VirtualUSBBus bus_;
};

TEST_F(WirelessViewModelTest, phoneThatAnnouncesBothIsPairedAndConnectedTo) {
    const std::pair<QByteArray, std::optional<Error>> rows[] = {
        {"Successfully paired to 10.0.0.2", {}},
        {"Failed: Wrong password.",
         Error(ADBError::refused, {u"[fe80::1%lo]:4711"_s, u"Failed: Wrong password."_s})},
        {"FAILunknown host service", Error(ADBError::cannotPair)},
        {"FAILdevice 'pair:123456' not found", Error(ADBError::cannotPair)},
    };
    for (const auto& [said, failure] : rows) {
        SCOPED_TRACE(said.toStdString());
        const ScriptedADBServer server([said = said](const QByteArray& request) {
            return request.startsWith("host:pair:") ? said : "connected to it";
        });
        ADBWays ways(waysBy(server.address()));
        const auto network = std::make_shared<ScriptedNetwork>();
        network->address = ServiceAddress{u"fe80::1%lo"_s, 4711};
        WirelessViewModel phones(network, ways);
        phones.start();
        for (const auto type :
             {WirelessADBDiscovery::pairingType, WirelessADBDiscovery::connectType})
            network->report(type, "adb-A");
        ASSERT_TRUE(eventually([&] { return phones.phones().size() == 2; }));
        const QString toConnect = phones.phones()[0].device.id;
        const QString toPair = phones.phones()[1].device.id;
        EXPECT_EQ(phones.phone(toConnect)->device.endpoint.type, WirelessADBDiscovery::connectType);
        EXPECT_EQ(phones.phone(toPair)->device.endpoint.type, WirelessADBDiscovery::pairingType);
        phones.pair(toPair, u"123456"_s);
        ASSERT_TRUE(eventually([&] { return !phones.isWorking(); }));
        EXPECT_EQ(phones.phone(toPair)->failure, failure);
        EXPECT_FALSE(failure && failure->logText().contains(u"123456"_s)) << "it is in no log";
        EXPECT_EQ(phones.phone(toConnect)->step, Step::none);
        phones.connectTo(toConnect);
        ASSERT_TRUE(eventually([&] { return !phones.isWorking(); }));
        EXPECT_EQ(phones.phone(toConnect)->step, Step::done);
        EXPECT_THAT(server.requests(), ElementsAre("host:pair:123456:[fe80::1%lo]:4711",
                                                   "host:connect:[fe80::1%lo]:4711"));
    }
}

} // namespace
} // namespace tessary
