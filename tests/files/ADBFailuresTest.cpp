#include "base/values/TessaryError.h"
#include "devices/files/DeviceFileService.h"
#include "platform/process/QtProcessRunner.h"
#include "simulator/usb/VirtualUSBBus.h"
#include "support/Failure.h"
#include "support/FakeProcessRunner.h"
#include "support/PluggedPhone.h"
#include "support/QtPrinters.h"

#include <gmock/gmock.h>

namespace tessary {

namespace {

using namespace Qt::StringLiterals;
using testing::HasSubstr;

/// A phone on USB, and a program in adb's place.
class ADBFailuresTest : public testing::Test {
protected:
    QString useProgram(const QByteArray& script) {
        const QString path = disk_.write(u"adb"_s, "#!/bin/sh\n" + script);
        QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                        QFileDevice::ExeOwner);
        return path;
    }
    std::string listingFailure(const QByteArray& script) {
        DeviceFileService service(bus_, processes_, QStringList{useProgram(script)});
        return failureOf([&] { (void)service.listDirectory(u"/"_s, device()); }).toStdString();
    }
    [[nodiscard]] DeviceInfo device() const {
        DeviceInfo info = phone_.info;
        info.protocolMode = ProtocolMode::adbTurbo;
        return info;
    }

    const TemporaryFolder disk_;
    VirtualUSBBus bus_;
    PluggedPhone phone_{bus_, phoneConfig("SER 1")};
    QtProcessRunner processes_;
};

TEST_F(ADBFailuresTest, adbThatFailsGivesAClearMessage) {
    const std::pair<const char*, const char*> rows[] = {
        {"kill -SEGV $$", "adb crashed"},
        {"head -c 100000 /dev/zero; echo x", "nonsense"},
        {"exit 0", "broke off"},
        {"echo 'error: device unauthorized.' >&2; exit 1", "tap Allow"},
        {"echo 'error: device offline' >&2; exit 1", "offline"},
        {"echo '* daemon not running; starting now at tcp:5037' >&2\n"
         "echo \"error: device 'SER 1' not found\" >&2; exit 1",
         "USB debugging"},
    };
    for (const auto& [script, failure] : rows)
        EXPECT_THAT(listingFailure(script), HasSubstr(failure));
}

TEST_F(ADBFailuresTest, deviceIsNamedBySerialUnlessItIsAStandIn) {
    FakeProcessRunner processes;
    DeviceFileService service(bus_, processes, QStringList{useProgram("exit 0")});
    const QStringList listing{u"shell"_s, uR"(ls -la '/sdcard/it'\''s/')"_s};
    for (const QString& serial : {u"emulator-5554"_s, u"SER 1"_s, u"USB-1234"_s, QString()}) {
        DeviceInfo info = device();
        info.serialNumber = serial;
        (void)failureOf([&] { (void)service.listDirectory(u"/it's"_s, info); });
        const bool isReal = !serial.isEmpty() && !serial.startsWith(u"USB-"_s);
        EXPECT_EQ(processes.calls().back().mid(1),
                  (isReal ? QStringList{u"-s"_s, serial} : QStringList()) + listing);
    }
}

TEST_F(ADBFailuresTest, twoPhonesOfOneSerialAreToldApartByTheirPlace) {
    const QString adb = useProgram("case \"$1\" in devices) printf 'List of devices attached\\n"
                                   "TWIN                   device usb:1-1 transport_id:1\\n"
                                   "TWIN                   device usb:1-2 transport_id:2\\n';;\n"
                                   "*) echo \"total $2\"; echo \"-rw-rw---- 1 a b 1 2024-01-01 "
                                   "10:00 $2\";; esac");
    DeviceFileService service(bus_, processes_, QStringList{adb});
    ASSERT_EQ(service.adbDevices().size(), 2u);
    DeviceInfo info = device();
    info.serialNumber = u"TWIN"_s;
    info.usbLocation = u"1-2"_s;
    const auto items = service.listDirectory(u"/"_s, info);
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].name, u"usb:1-2"_s);
}

} // namespace

} // namespace tessary
