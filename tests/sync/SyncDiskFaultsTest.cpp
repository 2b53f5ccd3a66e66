#include "support/DiskFaults.h"
#include "sync/SyncWays.h"

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// A pair whose computer's folder lies on a disk that fails.
class SyncDiskFaultsTest : public testing::Test, protected SyncWay {
protected:
    SyncDiskFaultsTest() : SyncWay(u"disk"_s, SyncPair::deviceStorage) {
        pair_.localFolderPath = localFolder();
        pair_.remoteFolderPath = phoneFolder();
    }
    QString localFolder() const override {
        return disk_.path() + u"/mac"_s;
    }
    QString phoneFolder() override {
        return phone_.path(u"Sync"_s);
    }
    std::unique_ptr<PhoneFileSystem> open() override {
        return std::make_unique<LocalFileSystem>(phoneFolder());
    }

    StrangeDisk disk_{{}};
    const TemporaryFolder phone_;
};

TEST_F(SyncDiskFaultsTest, anyRequestMayFailAndTheNextRunMakesItGood) {
    if (!disk_.isMounted())
        GTEST_SKIP() << "this machine mounts nothing for its users";
    const QByteArray old(3000, 'o');
    const QByteArray contents[] = {QByteArray(90'000, 'h'), QByteArray(80'000, 't'),
                                   QByteArray(4000, 'b'),   QByteArray(5000, 'c'),
                                   QByteArray(6000, 'n'),   QByteArray(140'000, 'w')};
    SyncReport report;
    const auto prepare = [&] {
        clear();
        for (const char* name : {"a", "b", "c", "gone"})
            onPhone(QString::fromLatin1(name), old + name);
        (void)goodRun();
        here(u"a"_s, contents[0], 50);
        onPhone(u"b"_s, contents[1], 50);
        here(u"c"_s, contents[2], 50);
        onPhone(u"c"_s, contents[3], 40);
        removeOnPhone(u"gone"_s);
        here(u"d"_s, contents[4]);
        onPhone(u"e"_s, contents[5]);
    };
    const auto check = [&] {
        const Files hereThen = hereFiles();
        for (const QByteArray& content : contents)
            EXPECT_TRUE(holds(content)) << "lost: " << content.left(1).toStdString();
        for (const auto& [name, content] : hereThen)
            EXPECT_NE(content.size(), 0) << name.toStdString();
        EXPECT_TRUE(hereThen == phoneFiles() || report.failure || !report.skipped.empty())
            << "called done";
        EXPECT_EQ(run().outcome, SyncReport::Outcome::done);
        EXPECT_TRUE(hereFiles() == phoneFiles());
        for (const QByteArray& content : contents)
            EXPECT_TRUE(holds(content)) << "lost later: " << content.left(1).toStdString();
    };
    expectToStandFaults(disk_, {.prepare = prepare,
                                .run = [&] { report = run(); },
                                .check = check,
                                .errors = {EIO, ENOSPC, EMFILE},
                                .leastRequests = 40,
                                .others = 5});
}

} // namespace
} // namespace tessary
