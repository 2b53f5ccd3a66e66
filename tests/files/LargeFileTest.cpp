#include "base/threads/CancellationError.h"
#include "support/FileServiceFixture.h"

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

constexpr qint64 size = (qint64{4} << 30) + 5'000;

/// Zeros beyond 4 GiB with a mark at the end, in both directions.
class LargeFileTest : public FileServiceFixture {
protected:
    static void mark(const QString& path) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(size - 4));
        ASSERT_EQ(file.write("mark"), 4);
    }
    static void expectMark(const QString& path, const char* trace) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << trace;
        EXPECT_EQ(file.size(), size) << trace;
        ASSERT_TRUE(file.seek(size - 4)) << trace;
        EXPECT_EQ(file.readAll(), "mark") << trace;
    }
};

TEST_F(LargeFileTest, moreThanFourGigabytesComeWhole) {
    mark(phone().disk.writeSparse(u"0/D/film"_s, size));
    qint64 last = 0;
    const TransferOutcome outcome = service_->downloadDirectory(
        item("/D"), local_.path(), phone().info, [&](const TransferProgress& now) {
            const qint64 done = now.completedBytes + now.currentFileBytes;
            EXPECT_GE(done, last);
            last = done;
        });
    EXPECT_TRUE(outcome.isComplete());
    EXPECT_EQ(outcome.progress.totalBytes, size);
    EXPECT_EQ(last, size);
    expectMark(local_.path(u"D/film"_s), "download");
}

TEST_F(LargeFileTest, sizeThatThePhoneCutsTo32BitsIsNotBelieved) {
    phone().disk.writeSparse(u"0/D/film"_s, size);
    phone().behave([](VirtualBehaviour& behaviour) { behaviour.cutsSizesTo32Bits = true; });
    EXPECT_EQ(list("/D")[0].size, 5'000) << "what a phone of that kind tells";
    std::stop_source stop;
    EXPECT_THROW((void)service_->downloadDirectory(
                     item("/D"), local_.path(), phone().info,
                     [&](const TransferProgress& now) {
                         if (now.currentFileBytes < 1'000'000)
                             return;
                         EXPECT_EQ(now.currentFileTotal, size);
                         stop.request_stop();
                     },
                     stop.get_token()),
                 CancellationError);
}

TEST_F(LargeFileTest, moreThanFourGigabytesAreSentWhole) {
    const QString film = local_.writeSparse(u"film"_s, size);
    mark(film);
    service_->uploadFile(film, u"/"_s, phone().info);
    expectMark(phone().disk.path(u"0/film"_s), "upload");
    EXPECT_EQ(list("/")[0].size, size);
}

} // namespace
} // namespace tessary
