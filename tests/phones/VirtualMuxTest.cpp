#include "phones/IPhoneFixture.h"
#include "phones/RawMuxHost.h"

#include <thread>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

class VirtualMuxTest : public IPhoneFixture {
protected:
    static QString text(const QVariantMap& message, const char* key) {
        return message[QString::fromLatin1(key)].toString();
    }
    static std::uint32_t id(const QVariantMap& message) {
        return message[u"DeviceID"_s].toUInt();
    }
    const QVariantMap listen{{u"MessageType"_s, u"Listen"_s}};
    const QVariantMap listDevices{{u"MessageType"_s, u"ListDevices"_s}};
    static constexpr std::uint16_t lockdown = VirtualIPhone::lockdownPort;
};

TEST_F(VirtualMuxTest, listenersHearOfEveryPluggingWithANewID) {
    VirtualIPhone& phone = plugIn();
    RawMuxHost host(*mux_);
    EXPECT_EQ(host.ask(listen, 41)[u"Number"_s].toInt(), 0);
    EXPECT_EQ(host.lastTag(), 41U);
    const QVariantMap first = host.receive();
    EXPECT_EQ(text(first, "MessageType"), u"Attached"_s);
    EXPECT_EQ(first[u"Properties"_s].toMap()[u"SerialNumber"_s], u"00008101000A1B2C3D4E001E"_s);
    phone.unplug();
    const QVariantMap gone = host.receive();
    EXPECT_EQ(text(gone, "MessageType"), u"Detached"_s);
    EXPECT_EQ(id(gone), id(first));
    phone.plugInto(*mux_);
    const QVariantMap again = host.receive();
    EXPECT_EQ(text(again, "MessageType"), u"Attached"_s);
    EXPECT_NE(id(again), id(first));
}

TEST_F(VirtualMuxTest, onePhoneIsListedOverCableAndWifi) {
    VirtualIPhoneConfig made = config();
    made.wifiAddress = u"127.77.1.2"_s;
    VirtualIPhone& phone = plugIn(made);
    const std::uint32_t wifi = phone.joinWifi(*mux_);
    ASSERT_NE(wifi, 0U);
    const QVariantList devices = RawMuxHost(*mux_).ask(listDevices)[u"DeviceList"_s].toList();
    ASSERT_EQ(devices.size(), 2);
    const QVariantMap cable = devices[0].toMap()[u"Properties"_s].toMap();
    const QVariantMap network = devices[1].toMap()[u"Properties"_s].toMap();
    EXPECT_EQ(text(cable, "ConnectionType"), u"USB"_s);
    EXPECT_EQ(text(network, "ConnectionType"), u"Network"_s);
    EXPECT_EQ(network[u"NetworkAddress"_s].toByteArray().left(8),
              "\x10\x02\0\0\x7F\x4D\x01\x02"_ba);

    // The cable goes, and the library reaches the phone over its address.
    phone.unplug();
    const Container container = open();
    ASSERT_TRUE(container.afc);
    EXPECT_THAT(list(container, "/Documents"), ElementsAre(".", ".."));
    phone.leaveWifi();
    EXPECT_THAT(list(container, "/Documents"), ElementsAre("(failed)"));
}

TEST_F(VirtualMuxTest, connectSaysWhyNot) {
    VirtualIPhone& phone = plugIn();
    const auto devices = RawMuxHost(*mux_).ask(listDevices)[u"DeviceList"_s].toList();
    const std::uint32_t device = id(devices[0].toMap());
    EXPECT_EQ(RawMuxHost(*mux_).connectTo(device, lockdown), 0);
    EXPECT_EQ(RawMuxHost(*mux_).connectTo(device + 1, lockdown), 2);
    EXPECT_EQ(RawMuxHost(*mux_).connectTo(device, 50000), 3);
    mux_->refusals().set({{u"mux.Connect"_s, VirtualMux::Result::connectionRefused}});
    EXPECT_EQ(RawMuxHost(*mux_).connectTo(device, lockdown), 3);
    mux_->refusals().set({});

    // A service takes one connection.
    const std::uint16_t port = phone.offerService(u"com.apple.mobile.notification_proxy"_s, {});
    EXPECT_EQ(RawMuxHost(*mux_).connectTo(device, port), 0);
    RawMuxHost second(*mux_);
    int result = second.connectTo(device, port);
    for (int tries = 0; tries < 100 && result == 0; ++tries) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        result = RawMuxHost(*mux_).connectTo(device, port);
    }
    EXPECT_EQ(result, 3);
}

TEST_F(VirtualMuxTest, pairRecordsAreKept) {
    plugIn();
    const QVariantMap about{{u"PairRecordID"_s, phone_->config().udid}};
    const auto request = [&about](const char* type) {
        QVariantMap made = about;
        made.insert(u"MessageType"_s, QString::fromLatin1(type));
        return made;
    };
    RawMuxHost host(*mux_);
    const QByteArray bytes = host.ask(request("ReadPairRecord"))[u"PairRecordData"_s].toByteArray();
    const auto record = PlistCodec::decode(
        std::as_bytes(std::span(bytes.constData(), static_cast<std::size_t>(bytes.size()))));
    ASSERT_TRUE(record);
    EXPECT_TRUE((*record)[u"HostCertificate"_s].toByteArray().startsWith("-----BEGIN"));
    EXPECT_EQ(host.result(request("DeletePairRecord")), 0);
    EXPECT_EQ(host.result(request("ReadPairRecord")), 2);
    EXPECT_EQ(host.result(request("DeletePairRecord")), 2);
    QVariantMap save = request("SavePairRecord");
    EXPECT_EQ(host.result(save), 1);
    save.insert(u"PairRecordData"_s, "record"_ba);
    EXPECT_EQ(host.result(save), 0);
    EXPECT_EQ(host.ask(request("ReadPairRecord"))[u"PairRecordData"_s].toByteArray(), "record"_ba);
}

/// A packet with what is said in its header, whatever is in it.
Bytes packet(std::uint32_t length, std::uint32_t version, std::uint32_t message,
             const QByteArray& body) {
    Bytes bytes;
    for (const std::uint32_t each : {length, version, message, 1U})
        appendLittleEndian(bytes, each);
    const auto view =
        std::as_bytes(std::span(body.constData(), static_cast<std::size_t>(body.size())));
    bytes.insert(bytes.end(), view.begin(), view.end());
    return bytes;
}

TEST_F(VirtualMuxTest, hostilePacketsEndOnlyTheirOwnConnection) {
    plugIn();
    const std::uint32_t device =
        id(RawMuxHost(*mux_).ask(listDevices)[u"DeviceList"_s].toList()[0].toMap());
    const QByteArray deep = QByteArray("<array>").repeated(30'000);
    const struct {
        const char* name;
        Bytes bytes;
    } rows[] = {
        {"length below the header's", packet(15, 1, 8, {})},
        {"length of zero", packet(0, 1, 8, {})},
        {"four gigabytes", packet(0xFFFFFFFF, 1, 8, "<plist>")},
        {"another version", packet(16, 0, 3, {})},
        {"another message", packet(16, 1, 9, {})},
        {"no list", packet(20, 1, 8, "\xFF\0<>"_ba)},
        {"a list of nothing", packet(16 + 8, 1, 8, "<plist/>")},
        {"a list too deep", packet(16 + static_cast<std::uint32_t>(deep.size()), 1, 8, deep)},
        {"a broken binary list", packet(16 + 12, 1, 8, "bplist00\xFF\xFF\xFF\xFF"_ba)},
        {"an array", packet(16 + 31, 1, 8, "<plist><array></array></plist> ")},
    };
    for (const auto& row : rows) {
        RawMuxHost host(*mux_);
        host.send(row.bytes);
        host.stopSending();
        (void)host.receiveBytes(4096);
        EXPECT_TRUE(host.isEnded()) << row.name;

        // The same bytes as lockdown sees them: a length of its own, nonsense after it.
        RawMuxHost inside(*mux_);
        ASSERT_EQ(inside.connectTo(device, lockdown), 0) << row.name;
        inside.send(row.bytes);
        inside.stopSending();
        (void)inside.receiveBytes(4096);
        EXPECT_TRUE(inside.isEnded()) << row.name;
    }
    EXPECT_EQ(RawMuxHost(*mux_).ask(listDevices)[u"DeviceList"_s].toList().size(), 1);
}

TEST_F(VirtualMuxTest, packetsCutAtAnyByteAreSurvived) {
    plugIn();
    const Bytes whole = encodeMuxPacket(listDevices, 3);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        RawMuxHost host(*mux_);
        host.send(ByteView(whole).first(length));
        host.stopSending();
        EXPECT_TRUE(host.isEnded()) << length;
    }
}

TEST_F(VirtualMuxTest, aListenerThatDoesNotReadHoldsNobodyUp) {
    VirtualIPhone& phone = plugIn();
    RawMuxHost sleeper(*mux_);
    sleeper.send(listen);
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < 2000; ++i) {
        phone.unplug();
        phone.plugInto(*mux_);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(60));
    EXPECT_EQ(RawMuxHost(*mux_).ask(listDevices)[u"DeviceList"_s].toList().size(), 1);
}

TEST_F(VirtualMuxTest, aDeadSocketIsReplacedAndALiveOneIsNot) {
    const QString path = folder_.path(u"mux"_s);
    EXPECT_THROW(VirtualMux second(path), std::runtime_error);
    mux_.reset();
    EXPECT_FALSE(QFileInfo::exists(path));
    EXPECT_THROW(VirtualMux tooLong(u'/' + QString(200, u'x')), std::runtime_error);
    mux_ = std::make_unique<VirtualMux>(path);
    EXPECT_TRUE(RawMuxHost(*mux_).isConnected());
}

} // namespace
} // namespace tessary
