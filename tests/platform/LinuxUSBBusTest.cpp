#include "platform/process/OpenFiles.h"
#include "platform/usb/LibusbCodes.h"
#include "platform/usb/SystemUSBBus.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryFile>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

namespace tessary {
namespace {

using namespace std::chrono;
using testing::IsEmpty;

// Transfers, seizing and hot plug need a device: the emulated machine tests them.

TEST(LinuxUSBBus, idOfNoAttachmentResolvesToNothing) {
    const auto bus = makeSystemUSBBus();
    for (const std::uint64_t id : {std::uint64_t(0), std::uint64_t(1), UINT64_MAX}) {
        EXPECT_EQ(bus->device(id), nullptr) << id;
        EXPECT_THAT(bus->programsHolding(id), IsEmpty()) << id;
    }
}

TEST(OpenFiles, namesOtherProcessesOnly) {
    QTemporaryFile file; // open in this process, too
    ASSERT_TRUE(file.open());
    const QByteArray path = QFile::encodeName(file.fileName());
    EXPECT_THAT(programsWithOpenFile(path), IsEmpty());

    QProcess holder;
    holder.setStandardInputFile(file.fileName());
    holder.start(QStringLiteral("sleep"), {QStringLiteral("60")});
    ASSERT_TRUE(holder.waitForStarted());
    const QString expected = QStringLiteral("sleep (%1)").arg(holder.processId());
    EXPECT_THAT(programsWithOpenFile(path), testing::ElementsAre(expected));

    holder.kill();
    ASSERT_TRUE(holder.waitForFinished());
    EXPECT_THAT(programsWithOpenFile(path), IsEmpty());
}

// What the layers above tell apart and the emulated machine does not show.
TEST(LibusbCodes, keepApartWhatCallersActOn) {
    const std::tuple<const char*, USBCode, USBCode> rows[] = {
        {"no permission", usbCodeOfError(LIBUSB_ERROR_ACCESS), usb::notPermitted},
        {"interface vanished", usbCodeOfError(LIBUSB_ERROR_NOT_FOUND), usb::noDevice},
        {"a number of bytes is no error", usbCodeOfError(18), usb::success},
        {"a number that no version defines", usbCodeOfError(-4711), usb::generalError},
        {"cancelled", usbCodeOfStatus(LIBUSB_TRANSFER_CANCELLED), usb::aborted},
        {"failed on the wire", usbCodeOfStatus(LIBUSB_TRANSFER_ERROR), usb::generalError},
    };
    for (const auto& [name, got, expected] : rows)
        EXPECT_EQ(got, expected) << name;
}

} // namespace
} // namespace tessary
