#include "support/FileServiceFixture.h"

namespace tessary {
namespace {

class DownloadTest : public FileServiceFixture {
protected:
    void download(const char* from, const char* to, const FileProgressCallback& progress = {},
                  const std::stop_token& stop = {}) {
        service_->downloadFile(item(from), local_.path(QString::fromUtf8(to)), phone().info,
                               progress, stop);
    }
};

TEST_F(DownloadTest, fileArrivesWholeWithThePhonesDateAndReplacesAnOlderOne) {
    struct {
        const char* name;
        int size;
    } const rows[] = {{"empty", 0},          {"one", 1},
                      {"onePacket", 512},    {"packetsLessHeader", 1024 - 12},
                      {"oneRead", 0x40000},  {"oneReadLessHeader", 0x40000 - 12},
                      {"several", 1'700'001}};
    for (const auto& row : rows) {
        const QByteArray bytes = manyBytes(row.size);
        const QString onPhone = phone().write(QStringLiteral("f.bin"), bytes);
        QFile file(onPhone);
        const QDateTime date(QDate(2021, 5, 6), QTime(7, 8, 9));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite) &&
                    file.setFileTime(date, QFileDevice::FileModificationTime));
        local_.write(QStringLiteral("f.bin"), "old");
        qint64 last = -1;
        download("/f.bin", "f.bin", [&](qint64 done, qint64 total) {
            EXPECT_GE(done, last) << row.name;
            EXPECT_EQ(total, row.size) << row.name;
            last = done;
        });
        EXPECT_EQ(last, row.size) << row.name;
        EXPECT_EQ(local_.read(QStringLiteral("f.bin")), bytes) << row.name;
        EXPECT_EQ(QFileInfo(local_.path(QStringLiteral("f.bin"))).lastModified(), date) << row.name;
        EXPECT_EQ(local_.names(), QStringList(QStringLiteral("f.bin")));
    }
}

TEST_F(DownloadTest, unpluggingAnywhereKeepsTheOldFileAndLeavesNoOther) {
    const QByteArray bytes = manyBytes(600'000);
    phone().write(QStringLiteral("DCIM/f.bin"), bytes);
    phone().write(QStringLiteral("Alarms/x"), "x");
    local_.write(QStringLiteral("f.bin"), "old");
    const FileItem file = item("/DCIM/f.bin");
    int failures = 0;
    for (const std::uint64_t after : {0, 12, 511, 512, 300'000, 600'011})
        for (unsigned phase = 1; phase <= 8; ++phase) {
            phone().fault([&](VirtualFaults& faults) {
                faults.unplug = VirtualByteFault{UsbDirection::in, after, phase};
            });
            const QString failure = failureOf([&] {
                service_->downloadFile(file, local_.path(QStringLiteral("f.bin")), phone().info);
            });
            phone().fault([](VirtualFaults& faults) { faults.unplug.reset(); });
            const QByteArray now = local_.read(QStringLiteral("f.bin"));
            if (failure.isEmpty()) {
                EXPECT_EQ(now, bytes);
                local_.write(QStringLiteral("f.bin"), "old");
            } else {
                ++failures;
                EXPECT_EQ(now, "old") << after << " bytes of phase " << phase;
            }
            EXPECT_EQ(local_.names().size(), 1) << after << " bytes of phase " << phase;
            replug();
        }
    EXPECT_GT(failures, 10);
    EXPECT_LT(failures, 48);
}

TEST_F(DownloadTest, refusalKeepsTheOldFileAndThePhoneUsable) {
    phone().write(QStringLiteral("f.bin"), manyBytes(5000));
    const FileItem file = item("/f.bin");
    using enum MTPOperationCode;
    for (const MTPOperationCode operation :
         {getStorageIDs, getObjectHandles, getObjectInfo, getObject}) {
        local_.write(QStringLiteral("f.bin"), "old");
        phone().refuse(operation, MTPResponseCode::accessDenied);
        replug(); // nothing is known, so that every step is asked for
        const QString failure = failureOf([&] {
            service_->downloadFile(FileItem(file.name, file.path, false, 0, std::nullopt),
                                   local_.path(QStringLiteral("f.bin")), phone().info);
        });
        EXPECT_FALSE(failure.isEmpty()) << static_cast<int>(operation);
        EXPECT_EQ(local_.read(QStringLiteral("f.bin")), "old") << static_cast<int>(operation);
        EXPECT_EQ(local_.names().size(), 1) << static_cast<int>(operation);
        phone().fault([](VirtualFaults& faults) { faults.errors.clear(); });
    }
    // Phones without the property that tells large sizes are as good.
    phone().refuse(getObjectPropValue, MTPResponseCode::operationNotSupported);
    download("/f.bin", "f.bin");
    EXPECT_EQ(local_.read(QStringLiteral("f.bin")), manyBytes(5000));
}

TEST_F(DownloadTest, cancelKeepsTheOldFileAndThePhoneUsable) {
    phone().write(QStringLiteral("f.bin"), manyBytes(3'000'000));
    local_.write(QStringLiteral("f.bin"), "old");
    for (const qint64 after : {qint64{1}, qint64{1'000'000}}) {
        std::stop_source stop;
        EXPECT_THROW(download(
                         "/f.bin", "f.bin",
                         [&](qint64 done, qint64) {
                             if (done >= after)
                                 stop.request_stop();
                         },
                         stop.get_token()),
                     CancellationError);
        EXPECT_EQ(local_.read(QStringLiteral("f.bin")), "old");
        EXPECT_EQ(local_.names().size(), 1);
    }
    EXPECT_EQ(phone().android.cancelRequests(), 2U);
    download("/f.bin", "f.bin");
    EXPECT_EQ(local_.read(QStringLiteral("f.bin")), manyBytes(3'000'000));
}

TEST_F(DownloadTest, phoneThatSendsLessThanTheSizeItTellsIsNotBelieved) {
    phone().write(QStringLiteral("f.bin"), manyBytes(5000));
    local_.write(QStringLiteral("f.bin"), "old");
    // The property tells 6000 bytes of a file that has 5000.
    phone().fault([](VirtualFaults& faults) {
        faults.rewrite = [](const VirtualAnswer& answer) -> std::optional<Bytes> {
            if (answer.operation !=
                    static_cast<std::uint16_t>(MTPOperationCode::getObjectPropValue) ||
                answer.type != MTPContainerType::data)
                return std::nullopt;
            Bytes container = answer.container;
            container[12] = std::byte{6000 & 0xFF};
            container[13] = std::byte{6000 >> 8};
            return container;
        };
    });
    EXPECT_TRUE(failureOf([&] { download("/f.bin", "f.bin"); }).contains(QStringLiteral("5000")));
    EXPECT_EQ(local_.read(QStringLiteral("f.bin")), "old");
    EXPECT_EQ(local_.names().size(), 1);
}

} // namespace
} // namespace tessary
