// The file system over MTP on real USB, with whatever responder is attached: run by mtp_test.py.

#include "base/threads/CancellationError.h"
#include "mtp/files/MTPFileSystem.h"
#include "platform/usb/SystemUSBBus.h"

#include <gmock/gmock.h>

#include <QFile>

#include <algorithm>
#include <chrono>
#include <iostream>
#include <thread>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::IsEmpty;

/// The attached device that has a still image interface, or one called MTP.
PhoneIdentity attachedPhone(USBBus& bus) {
    for (const USBDeviceEntry& entry : bus.devices())
        for (const USBInterfaceEntry& one : entry.interfaces)
            if (one.interfaceClass == 6 || one.name.contains(u"MTP"_s)) {
                PhoneIdentity phone;
                phone.udid = entry.serialNumber;
                phone.vendorId = entry.vendorID;
                phone.productId = entry.productID;
                phone.serialNumber = entry.serialNumber;
                phone.usbLocation = entry.location;
                return phone;
            }
    throw std::runtime_error("no phone is attached");
}

class MTPFilesProbe : public testing::Test {
protected:
    FileItem write(const QString& folder, const QString& name, const QByteArray& bytes) {
        const auto source = [&bytes, at = qsizetype{0}](std::span<std::byte> buffer) mutable {
            const auto count = std::min(buffer.size(), static_cast<std::size_t>(bytes.size() - at));
            std::copy_n(reinterpret_cast<const std::byte*>(bytes.constData()) + at, count,
                        buffer.begin());
            at += static_cast<qsizetype>(count);
            return count;
        };
        return files_.write({folder, name, bytes.size(), date_}, source, {}, {});
    }
    QByteArray read(const FileItem& file, ByteRange range = {}) {
        QByteArray bytes;
        files_.read(file, range,
                    [&](ByteView more) {
                        bytes.append(reinterpret_cast<const char*>(more.data()),
                                     static_cast<qsizetype>(more.size()));
                    },
                    {});
        return bytes;
    }

    const QDateTime date_{QDate(2020, 2, 29), QTime(12, 34, 56)};
    const std::unique_ptr<USBBus> bus_ = makeSystemUSBBus();
    MTPFileSystem files_{*bus_, attachedPhone(*bus_), std::make_shared<PhoneQueue>()};
};

TEST_F(MTPFilesProbe, manyFilesAreListedAndKnownAfterwards) {
    const auto start = std::chrono::steady_clock::now();
    const Listing many = listAll(files_, u"/many"_s, {});
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    EXPECT_GE(many.items.size(), 300U);
    EXPECT_THAT(many.unreadable, IsEmpty());
    std::cerr << many.items.size() << " files in " << took.count() << " s\n";
}

/// Where the phone's own files can be reached, and it tells of changes: some phones stop answering
/// when two of their events lie unread.
TEST_F(MTPFilesProbe, whatThePhoneAddsIsSeenAndHeard) {
    const QString folder = qEnvironmentVariable("PHONE_FOLDER");
    if (folder.isEmpty())
        GTEST_SKIP() << "this phone's files are out of reach";
    const FileItem added = files_.makeFolder(u"/"_s, u"added"_s, {});
    for (int n = 0; n < 6; ++n) {
        QFile file(folder + u"/added/%1"_s.arg(n));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.close();
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        EXPECT_TRUE(files_.find(added.path + u"/%1"_s.arg(n), {})) << n;
    }
    files_.removeTree(added, {});
}

TEST_F(MTPFilesProbe, editsDoWhatTheySay) {
    const FileSystemCapabilities can = files_.capabilities({});
    const FileItem folder = files_.makeFolder(u"/"_s, u"edits"_s, {});
    FileItem file = write(folder.path, u"a b.txt"_s, "content");
    std::cerr << "date kept: " << (file.modifiedDate == date_) << ", renames: " << can.renames
              << ", moves: " << can.moves << ", ranges: " << can.readsRanges << '\n';
    if (can.renames) {
        file = files_.rename(file, u"b.txt"_s, TakenName::refused, {});
        EXPECT_EQ(file.name, u"b.txt"_s);
    }
    EXPECT_EQ(read(file), "content");
    files_.removeTree(folder, {});
    EXPECT_EQ(files_.find(folder.path, {}), std::nullopt);
    EXPECT_TRUE(files_.liveInfo({}));
}

TEST_F(MTPFilesProbe, stopEndsAReadAndTheSessionGoesOn) {
    const FileItem huge = require(files_, u"/huge.bin"_s, {});
    std::stop_source stop;
    qint64 received = 0;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_ANY_THROW(files_.read(
        huge, {},
        [&](ByteView bytes) {
            received += static_cast<qint64>(bytes.size());
            if (received > 40'000'000)
                stop.request_stop();
        },
        stop.get_token()));
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    std::cerr << "stopped after " << took.count() << " s\n";
    EXPECT_EQ(read(huge, {100, 10}).size(), 10);
}

TEST_F(MTPFilesProbe, stopEndsAWriteAndNothingIsLeft) {
    std::stop_source stop;
    const NewFile file{u"/"_s, u"stopped.bin"_s, qint64{1} << 30, date_};
    qint64 sent = 0;
    const ByteSource zeros = [&](std::span<std::byte> buffer) {
        std::fill(buffer.begin(), buffer.end(), std::byte{});
        sent += static_cast<qint64>(buffer.size());
        if (sent > 10'000'000)
            stop.request_stop();
        return buffer.size();
    };
    const auto start = std::chrono::steady_clock::now();
    EXPECT_THROW(files_.write(file, zeros, {}, stop.get_token()), CancellationError);
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    std::cerr << "stopped writing after " << took.count() << " s\n";
    EXPECT_LT(took.count(), 5);
    EXPECT_EQ(files_.find(u"/stopped.bin"_s, {}), std::nullopt);
}

} // namespace
} // namespace tessary
