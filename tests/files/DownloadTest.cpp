#include "support/FileServiceFixture.h"

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

class DownloadTest : public FileServiceFixture {
protected:
    void download(const char* from, const char* to, const FileProgressCallback& progress = {},
                  const std::stop_token& stop = {}) {
        service_->downloadFile(item(from), local_.path(QString::fromUtf8(to)), phone().info,
                               progress, stop);
    }
};

TEST_F(DownloadTest, fileArrivesWholeWithThePhonesDateAndReplacesAnOlderOne) {
    for (const int size : {0, 1, 512, 1024 - 12, 0x40000, 0x40000 - 12, 1'700'001}) {
        SCOPED_TRACE(size);
        const QByteArray bytes = manyBytes(size);
        const QString onPhone = phone().write(u"f.bin"_s, bytes);
        QFile file(onPhone);
        const QDateTime date(QDate(2021, 5, 6), QTime(7, 8, 9));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite) &&
                    file.setFileTime(date, QFileDevice::FileModificationTime));
        local_.write(u"f.bin"_s, "old");
        qint64 last = -1;
        download("/f.bin", "f.bin", [&](qint64 done, qint64 total) {
            EXPECT_GE(done, last);
            EXPECT_EQ(total, size);
            last = done;
        });
        EXPECT_EQ(last, size);
        EXPECT_EQ(local_.read(u"f.bin"_s), bytes);
        EXPECT_EQ(QFileInfo(local_.path(u"f.bin"_s)).lastModified(), date);
        EXPECT_EQ(local_.names(), QStringList(u"f.bin"_s));
    }
}

TEST_F(DownloadTest, unpluggingAnywhereKeepsTheOldFileAndLeavesNoOther) {
    const QByteArray bytes = manyBytes(600'000);
    phone().write(u"DCIM/f.bin"_s, bytes);
    phone().write(u"Alarms/x"_s, "x");
    local_.write(u"f.bin"_s, "old");
    const FileItem file = item("/DCIM/f.bin");
    int failures = 0;
    for (const std::uint64_t after : {0, 12, 511, 512, 300'000, 600'011})
        for (unsigned phase = 1; phase <= 8; ++phase) {
            phone().unplugAfter(USBDirection::in, after, phase);
            const QString failure = failureOf(
                [&] { service_->downloadFile(file, local_.path(u"f.bin"_s), phone().info); });
            phone().fault([](VirtualFaults& faults) { faults.unplug.reset(); });
            const QByteArray now = local_.read(u"f.bin"_s);
            if (failure.isEmpty()) {
                EXPECT_EQ(now, bytes);
                local_.write(u"f.bin"_s, "old");
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
    phone().write(u"f.bin"_s, manyBytes(5000));
    const FileItem file = item("/f.bin");
    using enum MTPOperationCode;
    for (const MTPOperationCode operation :
         {getStorageIDs, getObjectHandles, getObjectInfo, getObject}) {
        local_.write(u"f.bin"_s, "old");
        phone().refuse(operation, MTPResponseCode::accessDenied);
        replug(); // nothing is known, so that every step is asked for
        EXPECT_TRUE(fails([&] {
            service_->downloadFile(FileItem(file.name, file.path, false, 0, std::nullopt),
                                   local_.path(u"f.bin"_s), phone().info);
        })) << static_cast<int>(operation);
        EXPECT_EQ(local_.read(u"f.bin"_s), "old") << static_cast<int>(operation);
        EXPECT_EQ(local_.names().size(), 1) << static_cast<int>(operation);
        phone().fault([](VirtualFaults& faults) { faults.errors.clear(); });
    }
    // Phones without the property that tells large sizes are as good.
    phone().refuse(getObjectPropValue, MTPResponseCode::operationNotSupported);
    download("/f.bin", "f.bin");
    EXPECT_EQ(local_.read(u"f.bin"_s), manyBytes(5000));
}

TEST_F(DownloadTest, cancelKeepsTheOldFileAndThePhoneUsable) {
    phone().write(u"f.bin"_s, manyBytes(3'000'000));
    local_.write(u"f.bin"_s, "old");
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
        EXPECT_EQ(local_.read(u"f.bin"_s), "old");
        EXPECT_EQ(local_.names().size(), 1);
    }
    EXPECT_EQ(phone().android.cancelRequests(), 2U);
    download("/f.bin", "f.bin");
    EXPECT_EQ(local_.read(u"f.bin"_s), manyBytes(3'000'000));
}

TEST_F(DownloadTest, phoneThatSendsLessThanTheSizeItTellsIsNotBelieved) {
    phone().write(u"f.bin"_s, manyBytes(5000));
    local_.write(u"f.bin"_s, "old");
    // The property tells 6000 bytes of a file that has 5000.
    phone().rewriteData(MTPOperationCode::getObjectPropValue, [](Bytes& container) {
        container[12] = std::byte{6000 & 0xFF};
        container[13] = std::byte{6000 >> 8};
    });
    EXPECT_TRUE(failureOf([&] { download("/f.bin", "f.bin"); }).contains(u"5000"_s));
    EXPECT_EQ(local_.read(u"f.bin"_s), "old");
    EXPECT_EQ(local_.names().size(), 1);
}

} // namespace
} // namespace tessary
