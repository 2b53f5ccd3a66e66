#include "preview/ThumbnailCache.h"

#include "phone/PartNames.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QDateTime>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

QImage pictureOf(QRgb colour) {
    QImage picture(40, 30, QImage::Format_RGB32);
    picture.fill(colour);
    return picture;
}

class ThumbnailCacheTest : public testing::Test {
protected:
    ThumbnailCacheTest() {
        qputenv("XDG_CACHE_HOME", disk_.path().toUtf8());
    }
    [[nodiscard]] QStringList files() const {
        return QDir(folder_).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    }
    void makeOld(const QString& name, int seconds) const {
        QFile file(folder_ + u'/' + name);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(-seconds),
                                     QFileDevice::FileModificationTime));
    }

    TemporaryFolder disk_;
    const QString folder_ = disk_.path(u"tessary/pictures"_s);
};

TEST_F(ThumbnailCacheTest, whatIsStoredIsThisUsersAloneAndWhatIsNoPictureIsNone) {
    ThumbnailCache cache(u"pictures"_s);
    EXPECT_FALSE(cache.load(u"a"_s));
    cache.store(u"a"_s, pictureOf(qRgb(10, 20, 30)));
    ASSERT_TRUE(cache.load(u"a"_s));
    EXPECT_EQ(cache.load(u"a"_s)->pixel(5, 5), qRgb(10, 20, 30));
    EXPECT_EQ(files(), QStringList(u"a.png"_s));
    constexpr auto others = QFileDevice::ReadGroup | QFileDevice::WriteGroup |
                            QFileDevice::ReadOther | QFileDevice::WriteOther;
    EXPECT_FALSE(QFile::permissions(folder_) & others);
    EXPECT_FALSE(QFile::permissions(folder_ + u"/a.png"_s) & others);
    disk_.write(u"tessary/pictures/broken.png"_s, "\x89PNG\r\n\x1a\n...");
    EXPECT_FALSE(cache.load(u"broken"_s));
}

TEST_F(ThumbnailCacheTest, noLinkLeadsElsewhere) {
    const QString elsewhere = disk_.write(u"elsewhere/kept.png"_s, "kept");
    disk_.makeFolder(u"tessary/pictures"_s);
    ASSERT_TRUE(QFile::link(elsewhere, folder_ + u"/a.png"_s));
    ThumbnailCache cache(u"pictures"_s);
    EXPECT_FALSE(cache.load(u"a"_s));
    cache.store(u"a"_s, pictureOf(qRgb(1, 2, 3)));
    EXPECT_TRUE(cache.load(u"a"_s));
    EXPECT_EQ(disk_.read(u"elsewhere/kept.png"_s), "kept");

    ASSERT_TRUE(QFile::link(disk_.path(u"elsewhere"_s), disk_.path(u"tessary/linked"_s)));
    ThumbnailCache linked(u"linked"_s);
    linked.store(u"b"_s, pictureOf(qRgb(1, 2, 3)));
    EXPECT_FALSE(linked.load(u"b"_s));
    EXPECT_EQ(QDir(disk_.path(u"elsewhere"_s)).entryList(QDir::Files), QStringList(u"kept.png"_s));
}

TEST_F(ThumbnailCacheTest, theOldestGoAndWhatAKilledProgramWasWritingGoesWithThem) {
    constexpr qint64 room = 250; // bytes: two of the pictures, not three
    ThumbnailCache cache(u"pictures"_s, room);
    const QString abandoned = newPartName();
    const QString underWay = newPartName();
    for (const QString& name : {abandoned, underWay})
        disk_.write(u"tessary/pictures/"_s + name, "half");
    makeOld(abandoned, 3600);
    for (const auto& [key, age] : {std::pair(u"first"_s, 30), std::pair(u"second"_s, 20)}) {
        cache.store(key, pictureOf(qRgb(1, 2, 3)));
        makeOld(key + u".png"_s, age);
    }
    ASSERT_GT(QFileInfo(folder_ + u"/first.png"_s).size(), room / 3);
    ASSERT_LE(QFileInfo(folder_ + u"/first.png"_s).size(), room / 2);
    cache.store(u"third"_s, pictureOf(qRgb(1, 2, 3)));
    EXPECT_FALSE(cache.load(u"first"_s));
    EXPECT_TRUE(cache.load(u"second"_s));
    EXPECT_TRUE(cache.load(u"third"_s));
    EXPECT_FALSE(files().contains(abandoned));
    EXPECT_TRUE(files().contains(underWay));
}

} // namespace
} // namespace tessary
