#include "adb/server/ADBServerConnection.h"

#include "support/CodeOf.h"
#include "support/QtPrinters.h"
#include "support/ScriptedADBServer.h"
#include "support/Soon.h"

#include <gtest/gtest.h>

namespace tessary {

namespace {

using namespace Qt::StringLiterals;

TEST(ADBServerAddress, environmentIsReadAsTheToolReadsIt) {
    using Variables = std::vector<std::pair<QString, QString>>;
    const QString socket = u"ADB_SERVER_SOCKET"_s;
    const QString port = u"ANDROID_ADB_SERVER_PORT"_s;
    const std::pair<Variables, QString> rows[] = {
        {{}, u"tcp:127.0.0.1:5037"_s},
        {{{port, u"5040"_s}}, u"tcp:127.0.0.1:5040"_s},
        {{{port, u"66000"_s}}, u"tcp:127.0.0.1:5037"_s},
        {{{port, u"x"_s}, {u"ANDROID_ADB_SERVER_ADDRESS"_s, u"::1"_s}}, u"tcp:::1:5037"_s},
        {{{socket, u"tcp:6000"_s}, {port, u"5040"_s}}, u"tcp:127.0.0.1:6000"_s},
        {{{socket, u"tcp:[::1]:6000"_s}}, u"tcp:[::1]:6000"_s},
        {{{socket, u"tcp:localhost:6000"_s}}, u"tcp:localhost:6000"_s},
        {{{socket, u"localfilesystem:/run/adb"_s}}, u"localfilesystem:/run/adb"_s},
        {{{socket, u"vsock:1"_s}}, u"tcp:127.0.0.1:5037"_s},
    };
    for (const auto& [variables, text] : rows) {
        QProcessEnvironment environment;
        for (const auto& [name, value] : variables)
            environment.insert(name, value);
        EXPECT_EQ(ADBServerAddress::of(environment).text(), text);
    }
}

TEST(ADBServerConnection, phoneIsChosenByPlaceThenNameThenItsOwnSerial) {
    const auto device = [](const char* serial, const char* path, const char* own = "") {
        ADBDevice one;
        one.serial = QString::fromLatin1(serial);
        one.state = u"device"_s;
        one.path = QString::fromLatin1(path);
        one.phoneSerial = QString::fromLatin1(own);
        return one;
    };
    const std::vector<ADBDevice> all{
        device("TWIN", "usb:1-1"), device("TWIN", "usb:1-2"), device("ONE", "usb:1-3"),
        device("192.168.0.7:5555", "", "ONE"), device("192.168.0.8:5555", "", "FAR")};
    struct Row {
        ADBPhoneSought sought;
        int found; ///< -1: none, -2: several
    };
    const Row rows[] = {
        {{u"TWIN"_s, u"1-2"_s}, 1},       {{u"other"_s, u"1-2"_s}, -1}, {{u"TWIN"_s, {}}, -2},
        {{u"TWIN"_s, u"9-9"_s}, -1},      {{u"ONE"_s, {}}, 2},          {{u"ONE"_s, u"9-9"_s}, 3},
        {{u"FAR"_s, u"1-9"_s}, 4},        {{u"USB-1234"_s, {}}, -1},    {{{}, {}}, -1},
        {{u"192.168.0.7:5555"_s, {}}, 3}, {{u"USB-1"_s, u"1-3"_s}, 2},
    };
    for (const auto& [sought, found] : rows) {
        SCOPED_TRACE(sought.serial.toStdString() + ' ' + sought.usbLocation.toStdString());
        if (found == -2) {
            EXPECT_EQ(codeOf([&] { (void)ADBServerConnection::choose(all, sought); }),
                      "severalPhones");
            continue;
        }
        const ADBDevice* chosen = ADBServerConnection::choose(all, sought);
        EXPECT_EQ(chosen == nullptr ? -1 : static_cast<int>(chosen - all.data()), found);
    }
}

TEST(ADBServerConnection, drippingPhoneOnTheNetworkHoldsUpNobody) {
    const ScriptedADBServer server([](const QByteArray& request) -> QByteArray {
        return request == "host:devices-l" ? "10.0.0.9:5555\tdevice\n" : "DRIP";
    });
    ADBServerConnection phone(std::make_shared<ADBServerClient>(server.address()),
                              {u"ANOTHER"_s, {}});
    const auto begun = std::chrono::steady_clock::now();
    EXPECT_EQ(codeOf([&] { (void)phone.features({{}, soon}); }), "notFound");
    EXPECT_LT(std::chrono::steady_clock::now() - begun, soon);
}

} // namespace

} // namespace tessary
