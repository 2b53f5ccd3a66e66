#include "files/FileBrowserFixture.h"

#include <QFileInfo>

#include <gmock/gmock.h>

namespace tessary {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

/// The cache of the fixture holds 100 bytes.
class FileBrowserPreviewTest : public FileBrowserFixture {
protected:
    FileBrowserPreviewTest() {
        QObject::connect(&browser_, &FileBrowserViewModel::previewReady,
                         [this](const QString& id, const QString& path) {
                             ready_ << id;
                             lastPath_ = path;
                         });
        QObject::connect(&browser_, &FileBrowserViewModel::previewFailed,
                         [this](const QString& id, const ErrorAdvice&) { failed_ << id; });
    }
    static FileItem item(const QString& name, qint64 size, int day = 1) {
        return {name, QStringLiteral("/root/") + name, false, size,
                QDateTime(QDate(2024, 1, day), QTime(12, 0), Qt::UTC)};
    }
    QString fetch(const FileItem& wanted) {
        return previews_.fetch(*files_, wanted, {}, {});
    }
    [[nodiscard]] int copies() const {
        return static_cast<int>(local_.names(QStringLiteral("TessaryCache")).size());
    }

    QStringList ready_;
    QStringList failed_;
    QString lastPath_;
};

TEST_F(FileBrowserPreviewTest, copyIsMadeOnceAndReused) {
    const QString first = fetch(item(QStringLiteral("a.jpg"), 10));
    EXPECT_EQ(QFileInfo(first).fileName(), QStringLiteral("a.jpg"));
    EXPECT_EQ(QFileInfo(first).size(), 10);
    EXPECT_EQ(fetch(item(QStringLiteral("a.jpg"), 10)), first);
    EXPECT_EQ(files_->count(QStringLiteral("download a.jpg")), 1);
    EXPECT_EQ(previews_.find(*files_, item(QStringLiteral("a.jpg"), 10)), first);
    EXPECT_EQ(QFileInfo(local_.path(QStringLiteral("TessaryCache"))).permissions() &
                  (QFileDevice::ReadGroup | QFileDevice::ReadOther),
              QFileDevice::Permissions());
}

TEST_F(FileBrowserPreviewTest, otherPathSizeOrDateIsAnotherFile) {
    const FileItem original = item(QStringLiteral("a.jpg"), 10);
    FileItem elsewhere = original;
    elsewhere.path = QStringLiteral("/root/other/a.jpg");
    FileItem undated = original;
    undated.modifiedDate.reset();
    const FileItem versions[] = {original, elsewhere, undated, item(QStringLiteral("a.jpg"), 11),
                                 item(QStringLiteral("a.jpg"), 10, 2)};
    QSet<QString> paths;
    for (const FileItem& version : versions)
        paths.insert(fetch(version));
    EXPECT_EQ(paths.size(), 5);
}

TEST_F(FileBrowserPreviewTest, oldestCopiesGoWhenTheRoomIsFull) {
    const FileItem a = item(QStringLiteral("a"), 40);
    const FileItem b = item(QStringLiteral("b"), 40);
    fetch(a);
    std::this_thread::sleep_for(20ms);
    fetch(b);
    std::this_thread::sleep_for(20ms);
    ASSERT_TRUE(previews_.find(*files_, a)); // used again: b is the oldest now
    std::this_thread::sleep_for(20ms);
    fetch(item(QStringLiteral("c"), 40));
    EXPECT_TRUE(previews_.find(*files_, a));
    EXPECT_FALSE(previews_.find(*files_, b));
    EXPECT_EQ(copies(), 2);
}

TEST_F(FileBrowserPreviewTest, whatIsTooLargeOrAFolderIsRefused) {
    EXPECT_THROW(fetch(item(QStringLiteral("film.mp4"), 51)), TessaryError);
    FileItem folder = item(QStringLiteral("dir"), 0);
    folder.isDirectory = true;
    EXPECT_THROW(fetch(folder), TessaryError);
    EXPECT_EQ(files_->log(), QStringList());
}

TEST_F(FileBrowserPreviewTest, namesThatCannotLieHereGetAnother) {
    const QString dots = fetch(item(QStringLiteral(".."), 1));
    EXPECT_TRUE(dots.startsWith(local_.path(QStringLiteral("TessaryCache/"))));
    EXPECT_EQ(QFileInfo(dots).fileName(), QStringLiteral("preview"));
    const QString slash = fetch(item(QStringLiteral("x/../../../evil.jpg"), 1));
    EXPECT_EQ(QFileInfo(slash).fileName(), QStringLiteral("preview.jpg"));
    const QString name = QString(300, QChar(0x0635)) + QStringLiteral(".png");
    EXPECT_EQ(QFileInfo(fetch(item(name, 1))).fileName(), QStringLiteral("preview.png"));
    EXPECT_EQ(copies(), 3);
}

TEST_F(FileBrowserPreviewTest, browserAnswersForTheLastOneAskedFor) {
    fill("/root", {"a.jpg", "b.jpg"});
    open("/root");
    Gate gate;
    files_->setScript([&](const QString& operation, const std::stop_token& stop) {
        if (operation == QStringLiteral("download a.jpg"))
            gate.pass(stop);
    });
    browser_.cacheFileForPreview(QStringLiteral("/root/a.jpg"));
    ASSERT_TRUE(eventually([&] { return gate.waiting() == 1; }));
    browser_.cacheFileForPreview(QStringLiteral("/root/b.jpg"));
    ASSERT_TRUE(eventually([this] { return !ready_.isEmpty(); }));
    ASSERT_TRUE(eventually([&] { return gate.waiting() == 0; })) << "the first was stopped";
    turnFor(20ms);
    EXPECT_THAT(ready_, ElementsAre(QStringLiteral("/root/b.jpg")));
    EXPECT_TRUE(QFileInfo::exists(lastPath_));
    EXPECT_TRUE(failed_.isEmpty());
}

TEST_F(FileBrowserPreviewTest, failedCopyIsToldAndLeavesNothing) {
    fill("/root", {"a.jpg", "dir/"});
    open("/root");
    files_->setScript([](const QString& operation, const std::stop_token&) {
        if (operation.startsWith(QStringLiteral("download")))
            throw TessaryError::fileIOError(QStringLiteral("odd"));
    });
    browser_.cacheFileForPreview(QStringLiteral("/root/a.jpg"));
    ASSERT_TRUE(eventually([this] { return failed_.size() == 1; }));
    browser_.cacheFileForPreview(QStringLiteral("/root/dir"));
    ASSERT_TRUE(eventually([this] { return failed_.size() == 2; }));
    EXPECT_TRUE(ready_.isEmpty());
    EXPECT_FALSE(browser_.error()) << "the folder itself is fine";
}

TEST_F(FileBrowserPreviewTest, dragGetsWhatIsReadyAndReasonsForTheRest) {
    fill("/root", {"a.jpg", "slow.jpg", "broken.jpg", "dir/"});
    open("/root");
    files_->setStagingFolder(local_.makeFolder(QStringLiteral("staging")));
    local_.write(QStringLiteral("staging/a.jpg"), "x");
    files_->setScript([](const QString& operation, const std::stop_token&) {
        if (operation == QStringLiteral("stage broken.jpg"))
            throw TessaryError::fileIOError(QStringLiteral("odd"));
    });
    std::optional<DragFiles> drag;
    browser_.prepareDragURLs(
        ids({"/root/a.jpg", "/root/slow.jpg", "/root/broken.jpg", "/root/dir", "/root/none"}),
        [&](const DragFiles& files) { drag = files; });
    ASSERT_TRUE(eventually([&] { return drag.has_value(); }));
    EXPECT_THAT(drag->localPaths, ElementsAre(local_.path(QStringLiteral("staging/a.jpg"))));
    EXPECT_THAT(drag->notReady, SizeIs(3));
}

} // namespace
} // namespace tessary
