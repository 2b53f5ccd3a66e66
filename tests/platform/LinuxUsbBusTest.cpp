#include "platform/SystemUsbBus.h"
#include "platform/linux/LibusbCodes.h"
#include "platform/linux/OpenFiles.h"

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

TEST(LinuxUsbBus, idOfNoAttachmentResolvesToNothing) {
    const auto bus = makeSystemUsbBus();
    for (const std::uint64_t id : {std::uint64_t(0), std::uint64_t(1), UINT64_MAX}) {
        EXPECT_EQ(bus->device(id), nullptr) << id;
        EXPECT_THAT(bus->programsHolding(id), IsEmpty()) << id;
    }
}

TEST(LinuxUsbBus, watchesEndAtOnceAndSideBySide) {
    const auto bus = makeSystemUsbBus();
    const auto start = steady_clock::now();
    for (int round = 0; round < 20; ++round) {
        const auto first = bus->watch([](const UsbEvent&) {});
        const auto second = bus->watch([](const UsbEvent&) {});
        ASSERT_EQ(first == nullptr, second == nullptr);
    }
    EXPECT_LT(steady_clock::now() - start, 5s);
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
    const QString expected = QStringLiteral("sleep (process %1)").arg(holder.processId());
    EXPECT_THAT(programsWithOpenFile(path), testing::ElementsAre(expected));

    holder.kill();
    ASSERT_TRUE(holder.waitForFinished());
    EXPECT_THAT(programsWithOpenFile(path), IsEmpty());
}

// What the layers above tell apart: which message a user sees, and whether to retry, to seize the
// interface, to clear a stall or to give up.
TEST(LibusbCodes, keepApartWhatCallersActOn) {
    const struct {
        const char* name;
        UsbCode got;
        UsbCode expected;
    } rows[] = {
        {"no permission", usbCodeOfError(LIBUSB_ERROR_ACCESS), usb::notPermitted},
        {"claimed elsewhere", usbCodeOfError(LIBUSB_ERROR_BUSY), usb::exclusiveAccess},
        {"unplugged", usbCodeOfError(LIBUSB_ERROR_NO_DEVICE), usb::noDevice},
        {"interface vanished", usbCodeOfError(LIBUSB_ERROR_NOT_FOUND), usb::noDevice},
        {"a stall at a control request", usbCodeOfError(LIBUSB_ERROR_PIPE), usb::pipeStalled},
        {"a number of bytes is no error", usbCodeOfError(18), usb::success},
        {"a number that no version defines", usbCodeOfError(-4711), usb::generalError},
        {"finished", usbCodeOfStatus(LIBUSB_TRANSFER_COMPLETED), usb::success},
        {"cancelled", usbCodeOfStatus(LIBUSB_TRANSFER_CANCELLED), usb::aborted},
        {"timed out", usbCodeOfStatus(LIBUSB_TRANSFER_TIMED_OUT), usb::timeout},
        {"stalled", usbCodeOfStatus(LIBUSB_TRANSFER_STALL), usb::pipeStalled},
        {"too much data", usbCodeOfStatus(LIBUSB_TRANSFER_OVERFLOW), usb::overrun},
        {"unplugged in flight", usbCodeOfStatus(LIBUSB_TRANSFER_NO_DEVICE), usb::noDevice},
        {"failed on the wire", usbCodeOfStatus(LIBUSB_TRANSFER_ERROR), usb::generalError},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.got, row.expected) << row.name;
}

} // namespace
} // namespace tessary
