#include "adb/ways/ADBWays.h"
#include "adb/keys/ADBAuthManager.h"

#include "adb/ADBFilesFixture.h"
#include "simulator/wire/PhoneSockets.h"
#include "support/FakeProcessRunner.h"
#include "support/ScriptedADBServer.h"
#include "support/Soon.h"

#include <atomic>

namespace tessary {

namespace {

using namespace Qt::StringLiterals;
using testing::IsEmpty;

/// A port at which nothing listens.
ADBServerAddress nowhere() {
    return {.port = PhoneSockets::portOf(PhoneSockets::listenAt(u"127.0.0.1"_s, 0)),
            .socketPath = {}};
}

/// A phone on a network and on a cable, and no adb server until somebody starts one.
class ADBWaysTest : public testing::Test {
protected:
    ADBWaysTest() {
        environment_.insert(u"HOME"_s, keys_.path());
        for (const QString& source : {u"ADB_USB"_s, u"ADB_EMU"_s, u"ADB_MDNS"_s})
            environment_.insert(source, u"0"_s);
        adbd_ = std::make_unique<FaultyADBD>(ADBDConfig{.folder = disk_.makeFolder(u"phone"_s)});
        adbd_->start();
    }
    ~ADBWaysTest() override {
        adb({u"kill-server"_s});
    }
    void adb(const QStringList& words) {
        (void)processes_.run(realADB(),
                             QStringList{u"-L"_s, u"tcp:%1"_s.arg(address_.port)} + words, 10s);
    }
    ADBWays::Setup setup(const QStringList& paths) {
        ADBWays::Setup setup{bus_, processes_};
        setup.server = address_;
        setup.adbPaths = paths;
        setup.keys = std::make_shared<ADBAuthManager>(std::make_unique<FileKeyStore>(keys_.path()),
                                                      u"ann"_s, u"desk"_s);
        setup.changed = [this] { ++changes_; };
        return setup;
    }
    [[nodiscard]] bool hasServer() const {
        return ADBServerClient(address_).isThere({{}, 5s});
    }
    std::string listing(ADBWays& ways, const PhoneIdentity& phone) {
        return codeOf([&] {
            ADBFileSystem files(phone, std::make_shared<PhoneQueue>(), ways.connectionTo(phone));
            EXPECT_EQ(listAll(files, u"/"_s, {}).items.size(), 1U);
        });
    }
    [[nodiscard]] PhoneIdentity networkPhone() const {
        PhoneIdentity phone;
        phone.udid = phone.serialNumber = adbd_->address();
        return phone;
    }

    const TemporaryFolder disk_;
    const TemporaryFolder keys_;
    QProcessEnvironment environment_;
    QtProcessRunner processes_{environment_};
    VirtualUSBBus bus_;
    const ADBServerAddress address_ = nowhere();
    std::unique_ptr<FaultyADBD> adbd_;
    std::atomic<int> changes_ = 0;
};

TEST_F(ADBWaysTest, serverIsStartedOnlyWhenAPhoneNeedsIt) {
    ADBWays ways(setup({realADB()}));
    EXPECT_THAT(ways.devices(), IsEmpty());
    ways.lookAgain({});
    EXPECT_FALSE(hasServer()) << "no phone with adb is there";
    ADBDCable cable(*adbd_, u"VIRTUAL"_s);
    cable.plugInto(bus_, u"1-1"_s);
    ways.lookAgain({});
    EXPECT_TRUE(hasServer());
}

TEST_F(ADBWaysTest, serverTellsOfPhonesThatComeAndGo) {
    disk_.write(u"phone/x"_s, "x");
    ADBWays ways(setup({realADB()}));
    ways.connect(adbd_->address(), {});
    ASSERT_TRUE(comesTrue([&] { return ways.devices().size() == 1; }));
    EXPECT_TRUE(comesTrue([&] { return ways.devices().at(0).isReady(); }));
    EXPECT_EQ(ways.devices().at(0).phoneSerial, u"VIRTUAL"_s);
    EXPECT_EQ(listing(ways, networkPhone()), "nothing");
    const int before = changes_;
    adbd_->stop();
    EXPECT_NE(listing(ways, networkPhone()), "nothing");
    EXPECT_TRUE(comesTrue([&] {
        const auto devices = ways.devices();
        return devices.empty() || !devices[0].isReady();
    }));
    EXPECT_GT(changes_, before);
    adbd_->start();
    EXPECT_TRUE(comesTrue([&] {
        const auto devices = ways.devices();
        return devices.size() == 1 && devices[0].isReady();
    }));
    adb({u"kill-server"_s});
    EXPECT_TRUE(comesTrue([&] { // one may still meet the one that ends
        (void)listing(ways, networkPhone());
        return hasServer();
    })) << "that it ran a moment ago is not relied on";
    EXPECT_TRUE(comesTrue([&] { return ways.devices().empty(); }));
}

TEST_F(ADBWaysTest, phonesAreReachedStraightWhereNoADBIs) {
    disk_.write(u"phone/x"_s, "x");
    ADBWays ways(setup({}));
    EXPECT_EQ(codeOf([&] { ways.connect(u"127.0.0.1:1"_s, {}); }), "notFound");
    EXPECT_EQ(codeOf([&] { ways.connect(u"nonsense"_s, {}); }), "notFound");
    ways.connect(adbd_->address(), {});
    ASSERT_EQ(ways.devices().size(), 1U);
    EXPECT_EQ(ways.devices()[0].model, u"Pixel 7"_s);
    EXPECT_EQ(ways.devices()[0].phoneSerial, u"VIRTUAL"_s);
    EXPECT_TRUE(ways.canReach(networkPhone()));
    PhoneIdentity withoutADB;
    withoutADB.serialNumber = u"X"_s;
    withoutADB.usbLocation = u"1-9"_s;
    EXPECT_FALSE(ways.canReach(withoutADB));
    EXPECT_EQ(listing(ways, networkPhone()), "nothing");
    PhoneIdentity onBoth; // its cable gives no more than files
    onBoth.udid = onBoth.serialNumber = u"VIRTUAL"_s;
    onBoth.usbLocation = u"1-7"_s;
    EXPECT_TRUE(ways.canReach(onBoth));
    EXPECT_EQ(listing(ways, onBoth), "nothing");
    ADBDCable cable(*adbd_, u"CABLE"_s);
    cable.plugInto(bus_, u"1-4.2"_s);
    PhoneIdentity plugged;
    plugged.udid = plugged.serialNumber = u"CABLE"_s;
    plugged.usbLocation = u"1-4.2"_s;
    EXPECT_FALSE(ways.canReach(plugged)) << "as of the last look";
    ways.lookAgain({});
    EXPECT_TRUE(ways.canReach(plugged));
    EXPECT_EQ(listing(ways, plugged), "nothing");
    EXPECT_FALSE(hasServer());
    EXPECT_EQ(codeOf([&] { ways.pair(adbd_->address(), u"123456"_s, {}); }), "noADB");
    for (const bool isByServer : {false, true}) {
        if (isByServer) {
            adbd_->start();
            ways.connect(adbd_->address(), {});
            adb({u"connect"_s, adbd_->address()});
            ways.lookAgain({});
            EXPECT_TRUE(comesTrue([&] { return !ways.devices().at(0).transportId.isEmpty(); }));
            EXPECT_EQ(ways.devices().size(), 1U);
            adb({u"kill-server"_s});
        }
        const int before = changes_;
        adbd_->stop();
        EXPECT_NE(listing(ways, networkPhone()), "nothing");
        EXPECT_TRUE(comesTrue([&] { return ways.devices().empty(); })) << "what is gone";
        EXPECT_GT(changes_, before);
    }
}

TEST_F(ADBWaysTest, pairingThatAnOldServerDoesNotKnowIsToldSo) {
    ADBWays ways(setup({realADB()}));
    EXPECT_EQ(codeOf([&] { ways.pair(adbd_->address(), u"123456"_s, {}); }), "cannotPair");
}

TEST_F(ADBWaysTest, phoneThatTheServerHasLostIsConnectedAnew) {
    const QByteArray phone = "10.0.0.9:5555";
    for (const bool isLost : {true, false}) {
        std::atomic<bool> isConnected = true;
        const ScriptedADBServer server([&](const QByteArray& request) -> QByteArray {
            if (request == "host:devices-l")
                return phone + (isLost ? "\toffline\n" : "\tdevice\n");
            isConnected = request.startsWith("host:connect:") && isConnected;
            return (isConnected ? "already connected to " : "connected to ") + phone;
        });
        ADBWays::Setup with{bus_, processes_};
        with.server = server.address();
        ADBWays(with).connect(QString::fromUtf8(phone), {});
        EXPECT_NE(isConnected, isLost);
        EXPECT_EQ(server.requests().last(), isLost ? "host:connect:" + phone : "host:devices-l");
    }
}

TEST_F(ADBWaysTest, runningServerOfAnotherVersionIsLeftAlone) {
    const ScriptedADBServer server([](const QByteArray&) { return QByteArray(); }, "0099");
    FakeProcessRunner processes;
    VirtualUSBBus bus;
    ADBWays::Setup with{bus, processes};
    with.server = server.address();
    with.adbPaths = QStringList{realADB()};
    ADBDCable cable(*adbd_, u"CABLE"_s);
    cable.plugInto(bus, u"1-1"_s);
    ADBWays ways(with);
    ways.lookAgain({});
    EXPECT_EQ(processes.calls().size(), 0U);
}

} // namespace

} // namespace tessary
