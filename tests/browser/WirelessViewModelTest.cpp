#include "browser/model/WirelessViewModel.h"
#include "adb/protocol/ADBError.h"
#include "simulator/demo/DemoNetwork.h"
#include "simulator/usb/VirtualUSBBus.h"
#include "support/ADBFixture.h"
#include "support/MainLoop.h"
#include "support/ScriptedADBServer.h"
#include "support/ScriptedNetwork.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

using Phone = WirelessViewModel::Phone;
using State = WirelessViewModel::State;
using Step = WirelessViewModel::Step;
using testing::ElementsAre;

/// The list of a network with one phone to connect to, the first, and one to pair.
class WirelessViewModelTest : public MainLoop {
protected:
    ~WirelessViewModelTest() override {
        EXPECT_TRUE(Background::shutDown(30s)); // before what the work uses goes
    }
    void start(WirelessViewModel& phones) {
        EXPECT_EQ(phones.state(), State::starting);
        phones.start();
        ASSERT_TRUE(eventually([&] { return phones.phones().size() == 2; }));
        EXPECT_EQ(phones.state(), State::looking);
        EXPECT_FALSE(phones.phones()[0].device.isPairing);
        EXPECT_TRUE(phones.phones()[1].device.isPairing);
    }
    /// How the first phone is after a try to connect to it.
    Phone connectFirst(WirelessViewModel& phones) {
        const QString id = phones.phones()[0].device.id;
        phones.connectTo(id);
        EXPECT_TRUE(phones.isWorking());
        EXPECT_EQ(phones.phones()[0].step, Step::working);
        EXPECT_TRUE(eventually([&] { return !phones.isWorking(); }, 40s));
        return phones.phones()[0];
    }
    std::shared_ptr<DemoNetwork> networkWith(ServiceAddress address) {
        return std::make_shared<DemoNetwork>([address] { return address; });
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

TEST_F(WirelessViewModelTest, serverThatNeverAnswersHoldsUpNobody) {
    const ScriptedADBServer server([](const QByteArray&) { return "HANG"; });
    ADBWays ways(waysBy(server.address()));
    const auto begun = std::chrono::steady_clock::now();
    {
        WirelessViewModel phones(networkWith(ServiceAddress{u"10.0.0.2"_s, 4711}), ways);
        start(phones);
        phones.connectTo(phones.phones()[0].device.id);
        EXPECT_TRUE(eventually([&] { return server.requests().size() == 1; }));
        phones.stop();
        EXPECT_FALSE(phones.isWorking());
    }
    EXPECT_TRUE(Background::shutDown(5s)) << "what was asked is given up";
    EXPECT_LT(std::chrono::steady_clock::now() - begun, 5s);
    Background::restart();
}

class WirelessADBTest : public WirelessViewModelTest, protected ADBPhone {};

TEST_F(WirelessADBTest, connectedPhoneIsReachedByTheRealADB) {
    ADBServerAddress server;
    server.port = server_.port();
    ADBWays ways(waysBy(server));
    WirelessViewModel phones(networkWith(ServiceAddress{u"127.0.0.1"_s, adbd_->port()}), ways);
    start(phones);
    const Phone phone = connectFirst(phones);
    EXPECT_EQ(phone.step, Step::done) << (phone.failure ? phone.failure->what() : "");
    EXPECT_TRUE(reaches(u"device"_s));

    ADBPhone::server_.disconnect(serial());
    adbd_->stop();
    EXPECT_EQ(connectFirst(phones).step, Step::failed);
}

} // namespace
} // namespace tessary
