#include "browser/model/WirelessViewModel.h"
#include "adb/protocol/ADBError.h"
#include "phone/PhoneError.h"
#include "simulator/demo/DemoNetwork.h"
#include "support/ADBFixture.h"
#include "support/MainLoop.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

using Phone = WirelessViewModel::Phone;
using State = WirelessViewModel::State;
using Step = WirelessViewModel::Step;
using testing::IsEmpty;

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
    std::shared_ptr<DemoNetwork> networkWith(std::optional<ServiceAddress> address) {
        return std::make_shared<DemoNetwork>([address] { return address; });
    }
    /// An adb that prints this and tells what it was asked.
    QString adbThatPrints(const QByteArray& text) {
        const QString script =
            disk_.write(u"adb"_s, "#!/bin/sh\necho \"$@\" >> '" + disk_.path().toUtf8() +
                                      "/asked'\ncat <<END\n* daemon started\n" + text + "\nEND\n");
        QFile(script).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return script;
    }

    const TemporaryFolder disk_;
    QtProcessRunner runner_;
};

TEST_F(WirelessViewModelTest, whatADBSaysIsTold) {
    const std::tuple<const char*, Step, std::optional<Error>> rows[] = {
        {"connected to 10.0.0.2:4711", Step::done, {}},
        {"already connected to 10.0.0.2:4711", Step::done, {}},
        {"failed to authenticate to 10.0.0.2:4711", Step::failed,
         Error(ADBError::unauthorized, {u"10.0.0.2:4711"_s})},
        {"adb: unknown command", Step::failed, Error(ADBError::cannotPair)},
        {"cannot connect to 10.0.0.2:4711: Connection refused", Step::failed,
         Error(ADBError::refused,
               {u"10.0.0.2:4711"_s, u"cannot connect to 10.0.0.2:4711: Connection refused"_s})},
    };
    const auto network = networkWith(ServiceAddress{u"10.0.0.2"_s, 4711});
    for (const auto& [said, step, failure] : rows) {
        const ADBTool adb(runner_, QStringList{adbThatPrints(said)});
        WirelessViewModel phones(network, adb);
        start(phones);
        const Phone phone = connectFirst(phones);
        EXPECT_EQ(phone.step, step) << said;
        EXPECT_EQ(phone.failure, failure);
    }
    EXPECT_TRUE(disk_.read(u"asked"_s).startsWith("connect 10.0.0.2:4711\n"));
}

TEST_F(WirelessViewModelTest, phoneThatIsNotThereOrNotPairedIsTold) {
    const ADBTool adb(runner_, QStringList{adbThatPrints("adb: unknown command pair")});
    WirelessViewModel phones(networkWith(std::nullopt), adb);
    start(phones);
    EXPECT_EQ(connectFirst(phones).failure, Error(PhoneError::notReachable));
    phones.connectTo(u"unknown"_s);
    EXPECT_FALSE(phones.isWorking());
    phones.pair(phones.phones()[1].device.id, u"123456"_s);
    phones.stop();
    EXPECT_FALSE(phones.isWorking());
    EXPECT_THAT(phones.phones(), IsEmpty());
    EXPECT_FALSE(disk_.has(u"asked"_s));
}

class WirelessADBTest : public WirelessViewModelTest, protected ADBPhone {};

TEST_F(WirelessADBTest, connectedPhoneIsReachedByTheRealADB) {
    const ADBTool adb(ADBPhone::runner_, QStringList{realADB()});
    WirelessViewModel phones(networkWith(ServiceAddress{u"127.0.0.1"_s, adbd_->port()}), adb);
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
