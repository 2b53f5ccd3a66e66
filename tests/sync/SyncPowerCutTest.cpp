// What a disk holds when the power goes right after a sync: an image with a journalling file system
// is copied as it stands, and the copy is looked at.

#include "support/OwnHome.h"
#include "support/ProgramRun.h"

#include <QProcess>
#include <gtest/gtest.h>

#include <unistd.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

bool succeeds(const QString& program, const QStringList& arguments) {
    return ProgramRun(program, arguments).status == 0;
}

/// An image of a disk, mounted for as long as it lives.
class MountedImage {
public:
    MountedImage(QString image, QString folder)
        : folder_(std::move(folder)),
          isMounted_(succeeds(u"mount"_s, {u"-o"_s, u"loop"_s, std::move(image), folder_})) {}
    ~MountedImage() {
        if (isMounted_)
            (void)succeeds(u"umount"_s, {folder_});
    }
    MountedImage(const MountedImage&) = delete;
    MountedImage& operator=(const MountedImage&) = delete;

    [[nodiscard]] bool isMounted() const {
        return isMounted_;
    }

private:
    const QString folder_;
    const bool isMounted_;
};

TEST(SyncPowerCutTest, whatTheRecordNamesIsOnTheDisk) {
    constexpr int files = 20;
    const OwnHome home;
    const TemporaryFolder& disk = home.disk;
    const QString phones = disk.path(u"phones"_s);
    const QString image = disk.writeSparse(u"image"_s, qint64{64} << 20);
    const QString mounted = disk.makeFolder(u"mounted"_s);
    if (::geteuid() != 0 || !succeeds(u"mkfs.ext4"_s, {u"-q"_s, u"-F"_s, image}))
        GTEST_SKIP() << "an image can be mounted by root alone";
    const QString copy = disk.path(u"copy"_s);
    {
        const MountedImage now(image, mounted);
        if (!now.isMounted())
            GTEST_SKIP() << "no loop device can be had";
        // The phone's own files are made by the first start.
        const QString cli = QStringLiteral(TESSARY_CLI);
        ASSERT_EQ(
            ProgramRun(cli, {u"--demo-folder"_s, phones, u"devices"_s}, home.environment).status,
            0);
        for (int n = 0; n < files; ++n)
            disk.write(u"phones/pixel/Sync/%1"_s.arg(n),
                       QByteArray(50'000, 'x') + QByteArray::number(n));
        const ProgramRun sync(cli,
                              {u"--demo-folder"_s, phones, u"sync"_s, u"DEMO0001"_s,
                               mounted + u"/sync"_s, u"/sdcard/Sync"_s, u"--mode"_s,
                               u"to-computer"_s},
                              home.environment);
        ASSERT_EQ(sync.status, 0) << sync.error.toStdString();
        disk.write(u"mounted/unflushed"_s, QByteArray(50'000, 'x'));
        ASSERT_TRUE(succeeds(u"cp"_s, {u"--sparse=always"_s, image, copy}));
    }
    const MountedImage later(copy, mounted);
    ASSERT_TRUE(later.isMounted());
    EXPECT_TRUE(disk.read(u"mounted/unflushed"_s).isEmpty()) << "the power was not cut";
    const QByteArray record = disk.read(u"mounted/sync/.tessary.sync"_s);
    EXPECT_TRUE(record.isEmpty() || record.trimmed().endsWith('}'));
    for (int n = 0; n < files; ++n)
        EXPECT_EQ(disk.read(u"mounted/sync/%1"_s.arg(n)).size(),
                  50'000 + QByteArray::number(n).size())
            << n;
}

} // namespace
} // namespace tessary
