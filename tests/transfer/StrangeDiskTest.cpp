#include "support/StrangeDisk.h"

#include "support/CodeOf.h"
#include "support/QtPrinters.h"
#include "transfer/CopySides.h"
#include "transfer/copy/Spool.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tessary {
namespace {

using testing::IsEmpty;

/// Downloads onto disks that this machine's kernel does not have.
class StrangeDiskTest : public testing::Test {
protected:
    void mount(StrangeDisk::Options options) {
        disk.emplace(options);
        if (!disk->isMounted())
            GTEST_SKIP() << "this machine mounts nothing for its users";
        files = std::make_shared<LocalFileSystem>(disk->path());
    }
    CopyOutcome download(const Contents& contents, ClashAnswer answer = ClashAnswer::keepBoth) {
        phone.fill(contents, noon);
        TreeCopyRequest request{.from = phone.files(), .to = files, .folder = disk->path()};
        request.policy = [answer](const Clash&) { return answer; };
        for (const FileItem& item : phone.items())
            request.items.push_back({item, item.name});
        return run(std::move(request));
    }

    MemorySide phone{{.rules = {}, .queue = std::make_shared<PhoneQueue>()}};
    std::optional<StrangeDisk> disk;
    std::shared_ptr<LocalFileSystem> files;
};

const NameRules card{.ignoresCase = true, .ignoresUnicodeForm = true, .forbidsFATCharacters = true};

TEST_F(StrangeDiskTest, rulesAreFoundOutByTryingAndLeaveNothing) {
    const NameRules rows[] = {
        {},
        {.ignoresCase = true},
        {.ignoresCase = true, .ignoresUnicodeForm = true},
        {.forbidsFATCharacters = true},
        card,
    };
    for (const NameRules& rules : rows) {
        mount({.rules = rules});
        if (IsSkipped())
            return;
        EXPECT_EQ(files->nameRules(disk->path(), {}), rules);
        EXPECT_THAT(disk->names(), IsEmpty());
        disk.reset();
    }
}

/// As a cache on a disk of the network may be: without files that never had a name.
TEST_F(StrangeDiskTest, filesOnTheirWayWaitThereAndItsEndIsTold) {
    mount({});
    if (IsSkipped())
        return;
    qputenv("XDG_CACHE_HOME", disk->path().toUtf8());
    const ByteView bytes(reinterpret_cast<const std::byte*>(film.constData()),
                         static_cast<std::size_t>(film.size()));
    {
        Spool spool(0);
        spool.append(bytes);
        Bytes back(bytes.size());
        EXPECT_EQ(spool.read(back), bytes.size());
        EXPECT_TRUE(std::equal(back.begin(), back.end(), bytes.begin()));
    }
    Spool spool(0);
    spool.append(bytes);
    disk->failRequest(1, ENOSPC);
    EXPECT_EQ(codeOf([&] { spool.append(bytes); }), "noRoomOnTheWay");
}

TEST_F(StrangeDiskTest, whatIsThereIsReplacedUnderItsOwnName) {
    mount({.rules = card});
    if (IsSkipped())
        return;
    (void)download({{s("FOTO.jpg"), "old"}});
    phone.memory->removeQuietly(s("/side/FOTO.jpg"));
    EXPECT_EQ(download({{s("foto.jpg"), "newer"}}, ClashAnswer::replace).end(),
              CopyOutcome::End::done);
    EXPECT_EQ(disk->names(), QStringList{s("FOTO.jpg")});
    EXPECT_EQ(require(*files, disk->path() + s("/foto.jpg"), {}).size, 5);
}

TEST_F(StrangeDiskTest, aNameMayChangeOnlyInCase) {
    mount({.rules = card});
    if (IsSkipped())
        return;
    (void)download({{s("a.jpg"), "a"}, {s("b.jpg"), "b"}});
    const FileItem item = require(*files, disk->path() + s("/a.jpg"), {});
    EXPECT_EQ(files->rename(item, s("A.JPG"), TakenName::refused, {}).name, s("A.JPG"));
    EXPECT_THROW(files->rename(item, s("B.JPG"), TakenName::refused, {}), Error);
}

TEST_F(StrangeDiskTest, aFullDiskEndsTheCopyAndKeepsNoPart) {
    const struct {
        const char* name;
        qint64 saysFree;
    } rows[] = {{"it says so", -1}, {"it does not", 100'000'000}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        mount({.capacity = 1'000'000, .saysFree = row.saysFree});
        if (IsSkipped())
            return;
        const CopyOutcome outcome =
            download({{s("a"), QByteArray(600'000, 'a')}, {s("b"), QByteArray(600'000, 'b')}});
        EXPECT_EQ(outcome.end(), CopyOutcome::End::failed);
        ASSERT_TRUE(outcome.failure);
        EXPECT_TRUE(outcome.failure->is(LocalError::full)) << outcome.failure->what();
        EXPECT_EQ(disk->names(), QStringList{s("a")});
        disk.reset();
    }
}

TEST_F(StrangeDiskTest, anyRequestMayFailAndNothingIsLostOrCalledDone) {
    mount({});
    if (IsSkipped())
        return;
    const auto contentOf = [this](const char* path) {
        QFile file(disk->path() + QLatin1Char('/') + s(path));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    const QByteArray older(1000, 'o');
    const Contents newer{{s("taken.txt"), QByteArray(200'000, 'n')},
                         {s("made/first.txt"), "first"},
                         {s("made/second.txt"), QByteArray(70'000, 's')}};
    for (const int error : {EIO, ENOSPC, EDQUOT, EACCES, EROFS, EMFILE, ENOMEM}) {
        int failing = 1;
        for (bool hasFailed = true; hasFailed; ++failing) {
            SCOPED_TRACE(QStringLiteral("%1 at request %2")
                             .arg(QLatin1StringView(::strerrorname_np(error)))
                             .arg(failing)
                             .toStdString());
            for (const QString& name :
                 QDir(disk->path())
                     .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
                if (!QFile::remove(disk->path() + QLatin1Char('/') + name))
                    QDir(disk->path() + QLatin1Char('/') + name).removeRecursively();
            QFile taken(disk->path() + s("/taken.txt"));
            ASSERT_TRUE(taken.open(QIODevice::WriteOnly) && taken.write(older) == older.size());
            taken.close();

            disk->failRequest(failing, error);
            const CopyOutcome outcome = download(newer, ClashAnswer::replace);
            hasFailed = disk->requests() >= failing;
            disk->failRequest(0, 0);

            bool isAllThere = true;
            for (auto file = newer.begin(); file != newer.end(); ++file) {
                const QByteArray there = contentOf(file.key().toUtf8().constData());
                isAllThere = isAllThere && there == *file;
                EXPECT_TRUE(there == *file || there.isNull() || there == older)
                    << file.key().toStdString() << " holds " << there.size() << " bytes";
            }
            EXPECT_FALSE(contentOf("taken.txt").isEmpty()) << "the old one went with nothing new";
            EXPECT_TRUE(isAllThere || outcome.end() != CopyOutcome::End::done);
        }
        EXPECT_GT(failing, 20);
    }
}

} // namespace
} // namespace tessary
