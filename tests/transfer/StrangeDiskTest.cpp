#include "support/DiskFaults.h"

#include "platform/settings/JsonSettingsStore.h"
#include "support/CodeOf.h"
#include "support/FileBytes.h"
#include "support/ManyBytes.h"
#include "support/QtPrinters.h"
#include "support/Soon.h"
#include "transfer/CopySides.h"
#include "transfer/ImportFixture.h"
#include "transfer/copy/FileCopy.h"
#include "transfer/copy/Leftovers.h"
#include "transfer/copy/Spool.h"
#include "transfer/mount/PhoneMount.h"

#include <gmock/gmock.h>

#include <future>
#include <map>
#include <semaphore>

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
        TreeCopyRequest request = requestFor(phone, here, answer);
        request.to = files;
        request.folder = disk->path();
        return run(std::move(request));
    }

    MemorySide phone{{.rules = {}, .queue = std::make_shared<PhoneQueue>()}};
    DiskSide here;
    ImportFixture import;
    std::optional<StrangeDisk> disk; ///< may be mounted over one of the two
    std::shared_ptr<LocalFileSystem> files;
};

constexpr std::chrono::seconds patience(30);
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

TEST_F(StrangeDiskTest, whatAServerRefusesAtTheEndIsNotThere) {
    mount({.flushError = ENOSPC});
    if (IsSkipped())
        return;
    const CopyOutcome outcome = download({{s("a"), "a"}});
    ASSERT_TRUE(outcome.failure);
    EXPECT_TRUE(outcome.failure->is(LocalError::full));
    EXPECT_THAT(disk->names(), IsEmpty());
}

/// As on FAT after the power went: the size was written, the last bytes were not.
TEST_F(StrangeDiskTest, endOfWhatBrokeOffMayBeAnything) {
    mount({.saysFree = 20 << 20}); // enough for the rest
    if (IsSkipped())
        return;
    constexpr int mebi = 1 << 20;
    const QByteArray content = manyBytes(48 * mebi);
    phone.memory->addFile(s("/side/film.mp4"), content, noon);
    QFile part(disk->path() + s("/") +
               resumableName(*phone.memory, phone.memory->item(s("/side/film.mp4"))));
    ASSERT_TRUE(part.open(QIODevice::WriteOnly));
    part.write(content.first(10 * mebi) + QByteArray(30 * mebi, '\0'));
    part.close();
    TreeCopyRequest request = requestFor(phone, here, ClashAnswer::keepBoth);
    request.to = files;
    request.folder = disk->path();
    EXPECT_EQ(run(std::move(request)).end(), CopyOutcome::End::done);
    EXPECT_EQ(disk->names(), QStringList{s("film.mp4")});
    EXPECT_TRUE(readBytes(*files, require(*files, disk->path() + s("/film.mp4"), {})) == content);
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

const QByteArray older(1000, 'o');
const Contents newer{{s("taken.txt"), QByteArray(200'000, 'n')},
                     {s("made/first.txt"), "first"},
                     {s("made/second.txt"), QByteArray(70'000, 's')}};

/// Each file is the new one or the old one, whole, and what is called done is all there.
void expectWhole(const Contents& there, const CopyOutcome& outcome) {
    bool isAllThere = true;
    for (auto file = newer.begin(); file != newer.end(); ++file) {
        const auto found = there.find(file.key());
        isAllThere = isAllThere && found != there.end() && *found == *file;
        EXPECT_TRUE(found == there.end() || *found == *file || *found == older)
            << file.key().toStdString() << " holds " << found->size() << " bytes";
    }
    EXPECT_TRUE(there.contains(s("taken.txt"))) << "the old one went with nothing new";
    EXPECT_TRUE(isAllThere || outcome.end() != CopyOutcome::End::done);
}

TEST_F(StrangeDiskTest, anyRequestOfADownloadMayFail) {
    mount({.at = here.root()});
    if (IsSkipped())
        return;
    CopyOutcome outcome;
    expectToStandFaults(*disk, {.prepare =
                                    [&] {
                                        QDir(here.root()).removeRecursively();
                                        here.put(s("taken.txt"), older, noon.addDays(-1));
                                    },
                                .run = [&] { outcome = download(newer, ClashAnswer::replace); },
                                .check = [&] { expectWhole(here.contents(), outcome); }});
}

TEST_F(StrangeDiskTest, anyRequestOfAnUploadMayFail) {
    mount({.at = here.root()});
    if (IsSkipped())
        return;
    here.fill(newer, noon);
    const auto items = listAll(*files, disk->path(), {}).items;
    CopyOutcome outcome;
    std::optional<MemorySide> there;
    expectToStandFaults(
        *disk, {.prepare = [&] { there.emplace().put(s("taken.txt"), older, noon.addDays(-1)); },
                .run =
                    [&] {
                        TreeCopyRequest request{
                            .from = files, .to = there->files(), .folder = there->root()};
                        request.policy = [](const Clash&) { return ClashAnswer::replace; };
                        for (const FileItem& item : items)
                            request.items.push_back({item, item.name});
                        outcome = TreeCopy(std::move(request)).run({}, {});
                    },
                .check = [&] { expectWhole(there->contents(), outcome); },
                .errors = {EIO, EACCES, EMFILE, ENOMEM},
                .leastRequests = 8});
}

/// As one of the network whose server is gone, or the mount of that same phone.
TEST_F(StrangeDiskTest, oneThatHangsKeepsAPhoneFromNobody) {
    std::counting_semaphore isRead(0);
    std::counting_semaphore answers(0);
    mount({.at = here.root(), .reading = [&] {
               isRead.release();
               answers.acquire();
               answers.release();
           }});
    if (IsSkipped())
        return;
    here.fill({{s("film"), QByteArray(2'000'000, 'f')}}, noon);
    const FileItem film = require(*files, joinPath(disk->path(), s("film")), {});
    std::stop_source stop;
    auto copying = std::async(std::launch::async, [&] {
        const FileCopy copy{*files, film, *phone.files(), phone.root(), s("film")};
        return codeOf([&] { (void)copyFile(copy, {}, {stop.get_token()}); });
    });
    EXPECT_TRUE(isRead.try_acquire_for(soon));
    stop.request_stop();
    auto listing = std::async(std::launch::async,
                              [&] { return listAll(*phone.files(), phone.root(), {}).items; });
    EXPECT_EQ(listing.wait_for(soon), std::future_status::ready);
    answers.release();
    EXPECT_EQ(copying.get(), "cancelled");
    EXPECT_THAT(listing.get(), IsEmpty());
}

/// What a phone sends only whole waits there for whoever reads it through a mount.
TEST_F(StrangeDiskTest, anyRequestOfAMountsCacheMayFail) {
    mount({});
    if (IsSkipped())
        return;
    qputenv("XDG_CACHE_HOME", disk->path().toUtf8());
    MemorySide whole{{.capabilities = {.readsRanges = false}, .pieceSize = 300'000}};
    whole.fill({{s("film"), film}}, noon);
    const TemporaryFolder shown;
    std::unique_ptr<PhoneMount> mounted;
    const auto read = [&shown] { // nothing when it fails; QFile does not tell of all that does
        const FileHandle file(::open(shown.path(s("film")).toUtf8(), O_RDONLY | O_CLOEXEC));
        QByteArray bytes;
        QByteArray piece(100'000, '\0');
        ssize_t count = 0;
        while ((count = ::read(file.get(), piece.data(), 100'000)) > 0)
            bytes += piece.left(count);
        return count == 0 ? std::optional(bytes) : std::nullopt;
    };
    int failed = 0;
    expectToStandFaults(*disk, {.prepare =
                                    [&] {
                                        mounted.reset();
                                        mounted = PhoneMount::mount(
                                            whole.files(), {{whole.root(), s("phone")}},
                                            shown.path(), [](const FileItem&, const Error&) {});
                                    },
                                .run =
                                    [&] {
                                        const auto bytes = read();
                                        failed += bytes ? 0 : 1;
                                        EXPECT_TRUE(!bytes || *bytes == film) << bytes->size();
                                    },
                                .check = [&] { EXPECT_TRUE(read() == film) << "the next time"; },
                                .errors = {EIO, ENOSPC},
                                .leastRequests = 10});
    EXPECT_GT(failed, 5);
}

/// Its ledger lies on the disk, too. What is deleted from the phone then is here, whole.
TEST_F(StrangeDiskTest, anyRequestOfAnImportMayFail) {
    mount({.at = import.disk->path()});
    if (IsSkipped())
        return;
    const std::map<const char*, QByteArray> photos{
        {"IMG_1.JPG", QByteArray(90'000, '1')}, {"IMG_2.JPG", "2"}, {"IMG_3.JPG", "3"}};
    const auto isHere = [&](const QByteArray& content) {
        const QStringList found = import.here();
        return std::count_if(found.begin(), found.end(), [&](const QString& line) {
            return line.endsWith(QLatin1Char('=') + QString::fromUtf8(content));
        });
    };
    expectToStandFaults(*disk, {.prepare =
                                    [&] {
                                        QDir(disk->path()).removeRecursively();
                                        for (const auto& [name, content] : photos)
                                            import.take(name, content);
                                    },
                                .run =
                                    [&] {
                                        try {
                                            (void)import.fetch();
                                        } catch (const std::exception&) {
                                        }
                                    },
                                .check =
                                    [&] {
                                        (void)import.removeAll();
                                        for (const auto& [name, content] : photos)
                                            EXPECT_TRUE(isHere(content) == 1 ||
                                                        import.phone->has(s("/DCIM/") + s(name)));
                                        (void)import.fetch();
                                        for (const auto& [name, content] : photos)
                                            EXPECT_EQ(isHere(content), 1) << name;
                                    },
                                .errors = {EIO, ENOSPC}});
}

TEST_F(StrangeDiskTest, anyRequestOfSettingsMayFail) {
    mount({});
    if (IsSkipped())
        return;
    const QString file = disk->path() + s("/tessary/settings.json");
    const auto isStored = [&file](const char* value) {
        JsonSettingsStore defaults(file);
        defaults.setValue(s("changed"), s(value));
        const bool isDone = defaults.store(patience);
        EXPECT_TRUE(isDone || defaults.trouble());
        return isDone;
    };
    JsonSettingsStore(file).setValue(s("other"), s("as it was"));
    QString expected;
    expectToStandFaults(*disk,
                        {.prepare = [&] { EXPECT_TRUE(isStored("before")); },
                         .run = [&] { expected = isStored("after") ? s("after") : s("before"); },
                         .check =
                             [&] {
                                 const JsonSettingsStore defaults(file);
                                 EXPECT_EQ(defaults.value(s("changed")).toString(), expected);
                                 EXPECT_EQ(defaults.value(s("other")).toString(), s("as it was"));
                             },
                         .errors = {EIO, ENOSPC, EMFILE},
                         .leastRequests = 12});
}

} // namespace
} // namespace tessary
