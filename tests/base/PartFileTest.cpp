#include "base/local/PartFile.h"

#include "base/local/LocalError.h"
#include "support/OrdinaryUser.h"
#include "support/QtPrinters.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QTimeZone>

#include <csignal>

namespace tessary {
namespace {

/// No file of this process grows beyond a limit: what a full disk looks like to one file.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, SIG_DFL);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before_{};
};

class PartFileTest : public testing::Test {
protected:
    PartFileTest() : target_(folder_.path(QStringLiteral("photo.jpg"))) {}

    static ByteView bytes(const QByteArray& text) {
        return std::as_bytes(std::span(text.constData(), static_cast<std::size_t>(text.size())));
    }
    [[nodiscard]] QByteArray content() const {
        return folder_.read(QStringLiteral("photo.jpg"));
    }

    TemporaryFolder folder_;
    const QString target_;
};

TEST_F(PartFileTest, targetKeepsItsContentUntilCommit) {
    folder_.write(QStringLiteral("photo.jpg"), "old");
    PartFile(target_).write(bytes("half of a"));
    EXPECT_EQ(content(), "old");
    EXPECT_EQ(folder_.names(), QStringList(QStringLiteral("photo.jpg")));
    {
        PartFile part(target_);
        part.write(bytes("new content"));
        EXPECT_EQ(content(), "old");
        EXPECT_EQ(folder_.names().size(), 2);
        EXPECT_TRUE(folder_.names().first().startsWith(PartFile::namePrefix));
        part.commit(std::nullopt);
        EXPECT_EQ(part.size(), 11);
    }
    EXPECT_EQ(content(), "new content");
    EXPECT_EQ(folder_.names(), QStringList(QStringLiteral("photo.jpg")));
}

TEST_F(PartFileTest, twoCopiesToOneTargetDoNotMeet) {
    PartFile first(target_);
    PartFile second(target_);
    first.write(bytes("first"));
    second.write(bytes("second"));
    second.commit(std::nullopt);
    EXPECT_EQ(content(), "second");
    first.commit(std::nullopt);
    EXPECT_EQ(content(), "first");
    EXPECT_EQ(folder_.names().size(), 1);
}

TEST_F(PartFileTest, commitDatesTheFileWhenItCan) {
    const QDateTime taken(QDate(2019, 2, 3), QTime(4, 5, 6), QTimeZone::utc());
    PartFile(target_).commit(taken);
    EXPECT_EQ(QFileInfo(target_).lastModified().toUTC(), taken);
    for (const QDateTime& date : {QDateTime(), QDateTime(QDate(1, 1, 1), QTime(0, 0)),
                                  QDateTime(QDate(9999, 12, 31), QTime(0, 0))}) {
        PartFile part(target_);
        part.write(bytes("kept"));
        EXPECT_NO_THROW(part.commit(date));
        EXPECT_EQ(content(), "kept");
    }
}

TEST_F(PartFileTest, folderInTheWayIsRefusedAndStays) {
    folder_.write(QStringLiteral("photo.jpg/inside"), "kept");
    EXPECT_THROW(PartFile{target_}, Error);
    EXPECT_EQ(folder_.names(), QStringList(QStringLiteral("photo.jpg")));

    // The folder may also come while the copy runs.
    const QString later = folder_.path(QStringLiteral("later"));
    {
        PartFile part(later);
        folder_.write(QStringLiteral("later/inside"), "kept");
        EXPECT_THROW(part.commit(std::nullopt), Error);
    }
    EXPECT_EQ(folder_.names(), (QStringList{QStringLiteral("later"), QStringLiteral("photo.jpg")}));
    EXPECT_EQ(folder_.read(QStringLiteral("later/inside")), "kept");
}

TEST_F(PartFileTest, folderThatIsMissingOrReadOnlyIsNamed) {
    const auto messageFor = [](const QString& path) {
        try {
            PartFile part(path);
        } catch (const Error& error) {
            return error.arguments().value(0).toString();
        }
        return QString();
    };
    const QString missing = folder_.path(QStringLiteral("missing"));
    EXPECT_TRUE(messageFor(missing + QStringLiteral("/x")).contains(missing));

    const QString locked = folder_.makeFolder(QStringLiteral("locked"));
    QFile::setPermissions(folder_.path(), QFile::Permissions(0x7777));
    QFile::setPermissions(locked, QFileDevice::ReadUser | QFileDevice::ExeUser);
    const OrdinaryUser user;
    EXPECT_TRUE(messageFor(locked + QStringLiteral("/x")).contains(locked));
}

TEST_F(PartFileTest, fullDiskLeavesTheOldFileAndNoOther) {
    folder_.write(QStringLiteral("photo.jpg"), "old");
    const QByteArray much(64 * 1024, 'x');
    {
        const FullDisk disk(100'000);
        PartFile part(target_);
        part.write(bytes(much));
        try {
            part.write(bytes(much));
            FAIL() << "the disk is full";
        } catch (const Error& error) {
            EXPECT_EQ(error.code(), LocalError::cannotWrite);
            EXPECT_EQ(error.arguments().value(0).toString(), target_);
        }
    }
    EXPECT_EQ(content(), "old");
    EXPECT_EQ(folder_.names(), QStringList(QStringLiteral("photo.jpg")));
}

TEST_F(PartFileTest, nameTooLongForTheDiskIsAnErrorWithoutLeftover) {
    const QString target = folder_.path(QString(255, QChar(0x4E00)));
    {
        PartFile part(target);
        part.write(bytes("x"));
        EXPECT_THROW(part.commit(std::nullopt), Error);
    }
    EXPECT_TRUE(folder_.names().isEmpty());
}

} // namespace
} // namespace tessary
