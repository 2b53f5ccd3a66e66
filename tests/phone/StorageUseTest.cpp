#include "phone/StorageUse.h"

#include "phone/PhoneQueue.h"
#include "support/MemoryFileSystem.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <thread>

using namespace Qt::StringLiterals;
using namespace tessary;

namespace {

using Kind = StorageUse::Kind;

StorageUse measured(MemoryFileSystem& files) {
    return measureUse(files, u"/"_s, [](const StorageUse&) {}, {});
}

} // namespace

TEST(StorageUseTest, filesAreAddedUpByWhatTheyAre) {
    MemoryFileSystem files;
    const struct {
        const char* path;
        int size;
    } rows[] = {
        {"/DCIM/a.jpg", 1},
        {"/DCIM/deep/er/b.HEIC", 10},
        {"/Movies/c.mp4", 100},
        {"/Music/d.flac", 1'000},
        {"/Download/e.apk", 10'000},
        {"/Android/data/x/f.jpg", 20'000},
        {"/Android/obb/g.obb", 5},
        {"/Android/media/chat/h.jpg", 30},
        {"/i.pdf", 40},
    };
    for (const auto& row : rows)
        files.addFile(QString::fromUtf8(row.path), QByteArray(row.size, 'x'));
    StorageUse use = measured(files);
    EXPECT_EQ(use.bytes, (std::array<qint64, 5>{41, 100, 1'000, 30'005, 40}));
    EXPECT_TRUE(use.isWhole);

    files.fail(MemoryRequests::Operation::list, u"/Music"_s,
               Error(PhoneError::accessDenied, {u"/Music"_s}));
    use = measured(files);
    EXPECT_EQ(use.of(Kind::music), 0);
    EXPECT_EQ(use.of(Kind::other), 40) << "the rest is told";
    EXPECT_FALSE(use.isWhole);
    files.loseLink();
    EXPECT_THROW(measured(files), Error);
}

/// A folder is left in the middle when somebody waits, and begun anew; nothing counts twice.
TEST(StorageUseTest, whoeverWantsThePhoneGetsItAtOnce) {
    MemoryOptions options;
    options.queue = std::make_shared<PhoneQueue>();
    MemoryFileSystem files(options);
    for (int i = 0; i < 10; ++i)
        files.addFile(u"/DCIM/%1.jpg"_s.arg(i), "1");
    std::jthread user;
    int rowsBefore = 0;
    bool cameIn = false;
    files.betweenRows([&] {
        if (user.joinable())
            return;
        user = std::jthread([&] {
            const PhoneQueue::Turn turn = options.queue->take({});
            cameIn = true;
        });
        while (options.queue->waitingCount() == 0)
            std::this_thread::yield();
        ++rowsBefore;
    });
    const StorageUse use = measureUse(
        files, u"/"_s,
        [&](const StorageUse& soFar) { EXPECT_TRUE(cameIn || soFar.of(Kind::photos) == 0); }, {});
    EXPECT_EQ(use.of(Kind::photos), 10);
    EXPECT_TRUE(use.isWhole);
}
