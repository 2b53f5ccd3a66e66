#include "transfer/mount/PhoneMount.h"

#include "base/threads/CancellationError.h"
#include "support/Gate.h"
#include "support/QtPrinters.h"
#include "sync/ForwardedFiles.h"
#include "transfer/CopySides.h"
#include "transfer/mount/DragMount.h"
#include "transfer/mount/PhoneFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCryptographicHash>
#include <QProcess>

#include <array>
#include <atomic>
#include <future>

namespace tessary {
namespace {

using testing::ElementsAre;
using Operation = MemoryFileSystem::Operation;

MemoryFileSystem::Options phoneWithRanges(bool readsRanges) {
    return {.capabilities = {.readsRanges = readsRanges},
            .givesHandles = true,
            .pieceSize = 64 * 1024,
            .queue = std::make_shared<PhoneQueue>()};
}

bool succeeds(const QString& name, const QStringList& arguments, QByteArray* output = nullptr) {
    QProcess program;
    program.start(name, arguments);
    if (!program.waitForStarted() || !program.waitForFinished(60'000))
        return false;
    if (output != nullptr)
        *output = program.readAllStandardOutput();
    return program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0;
}

bool prints(const QString& command, QByteArray* output) {
    return succeeds(s("sh"), {s("-c"), command}, output);
}

/// The system closes files a little later than the program that had them open.
bool soon(const std::function<bool()>& isSo) {
    for (int tries = 0; tries < 1000 && !isSo(); ++tries)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    return isSo();
}

/// A phone that is silent once it is asked what it can.
class SilentPhone final : public ForwardedFiles {
public:
    using ForwardedFiles::ForwardedFiles;

    FileSystemCapabilities capabilities(const Call& call) override {
        isAsked = true;
        while (!call.stop.stop_requested())
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        throw CancellationError();
    }

    std::atomic<bool> isAsked = false;
};

/// Bytes of which each tells where it lies.
QByteArray countingBytes(qsizetype size) {
    QByteArray bytes;
    while (bytes.size() < size)
        bytes += QByteArray::number(bytes.size()).rightJustified(10, '.');
    bytes.truncate(size);
    return bytes;
}

/// A phone that other programs read through a mount, by range or whole.
class PhoneMountTest : public testing::TestWithParam<bool> {
protected:
    PhoneMountTest() {
        qputenv("XDG_CACHE_HOME", disk.path(s("cache")).toUtf8());
        disk.makeFolder(s("mnt"));
        phone.fill({{s("film"), long_}, {s("d/a.txt"), "a"}, {s("d/e/b"), "b"}, {s("d/none"), ""}},
                   noon);
    }
    void SetUp() override {
        mount({{phone.root(), s("phone")}});
        if (!mounted)
            GTEST_SKIP() << "this machine mounts nothing for its users";
    }
    void mount(const std::vector<FileTreeRoot>& trees) {
        mounted = PhoneMount::mount(phone.files(), trees, top,
                                    [this](const FileItem&, const Error&) { ++failures; });
    }
    [[nodiscard]] QString at(const char* path) const {
        return joinPath(top, s(path));
    }

    const QByteArray long_ = countingBytes(20'000'000);
    const TemporaryFolder disk;
    const QString top = disk.path(s("mnt"));
    MemorySide phone{phoneWithRanges(GetParam())};
    Gate gate;
    std::atomic<int> failures = 0;
    std::unique_ptr<PhoneMount> mounted;
};

INSTANTIATE_TEST_SUITE_P(Reads, PhoneMountTest, testing::Bool(),
                         [](const auto& reads) { return reads.param ? "byRange" : "whole"; });

TEST_P(PhoneMountTest, programsSeeAndCopyWhatIsThere) {
    EXPECT_EQ(phone.memory->count(Operation::list), 0); // nothing before somebody looks
    const QString copy = disk.path(s("copy"));
    ASSERT_TRUE(succeeds(s("cp"), {s("-rp"), top, copy}));
    EXPECT_EQ(disk.read(s("copy/film")), long_);
    EXPECT_EQ(disk.read(s("copy/d/a.txt")), "a");
    EXPECT_EQ(disk.read(s("copy/d/e/b")), "b");
    EXPECT_EQ(disk.read(s("copy/d/none")), "");
    EXPECT_EQ(QFileInfo(disk.path(s("copy/film"))).lastModified(), noon);
    // By all that it can see the copy is the phone's.
    QByteArray differing;
    ASSERT_TRUE(prints(s("diff -r '%1' '%2'").arg(top, copy), &differing));
    EXPECT_EQ(phone.memory->count(Operation::list), 3);
    EXPECT_TRUE(soon([this] { return !mounted->isBeingRead(); }));
    EXPECT_EQ(failures, 0);
    EXPECT_FALSE(succeeds(s("rm"), {s("-f"), at("film")}));
    EXPECT_FALSE(succeeds(s("touch"), {at("d/new")}));
}

TEST_P(PhoneMountTest, severalTreesLieSideBySide) {
    mounted.reset();
    mount({{phone.at(s("d")), s("Card")}, {phone.at(s("d/e")), s("Card")}, {s("/"), s("../x")}});
    QByteArray names;
    ASSERT_TRUE(prints(s("ls '%1'; cat '%1/Card/a.txt' '%1/Card (2)/b'").arg(top), &names));
    EXPECT_EQ(names, "Card\nCard (2)\nphone\nab");
}

TEST_P(PhoneMountTest, aFolderOfItsOwnIsCalledAfterThePhone) {
    qputenv("XDG_RUNTIME_DIR", disk.makeFolder(s("run")).toUtf8());
    for (const auto& [name, shown] : {std::pair(s("Ann\u2019s phone"), s("Ann\u2019s phone")),
                                      std::pair(s("../x"), s("phone"))}) {
        auto own = PhoneMount::mountByName(phone.files(), {{phone.root(), name}}, name, {});
        ASSERT_TRUE(own);
        const QString path = own->path();
        EXPECT_EQ(lastComponent(path), shown);
        QByteArray content;
        EXPECT_TRUE(prints(s("cat '%1/d/a.txt'").arg(path), &content));
        EXPECT_EQ(content, "a");
        own.reset();
        EXPECT_FALSE(QFileInfo::exists(parentPath(path)));
    }
}

TEST_P(PhoneMountTest, aSeekFetchesLittleMoreThanIsRead) {
    QByteArray bytes;
    ASSERT_TRUE(
        prints(s("dd if='%1' bs=1000 skip=15000 count=1 2>/dev/null").arg(at("film")), &bytes));
    EXPECT_EQ(bytes, long_.mid(15'000'000, 1000));
    if (GetParam()) {
        EXPECT_LE(phone.memory->bytes(Operation::read), 2'000'000);
    } else {
        EXPECT_GE(phone.memory->bytes(Operation::read), 14'000'000);
    }
    ASSERT_TRUE(prints(s("tail -c 700 '%1'; head -c 300 '%1'").arg(at("film")), &bytes));
    EXPECT_EQ(bytes, long_.right(700) + long_.left(300));
}

TEST_P(PhoneMountTest, aFileIsFetchedOnceForAllWhoReadIt) {
    QByteArray sums;
    ASSERT_TRUE(
        prints(s("for n in 1 2 3 4; do md5sum < '%1' & done; wait").arg(at("film")), &sums));
    const QByteArray sum = QCryptographicHash::hash(long_, QCryptographicHash::Md5).toHex();
    EXPECT_EQ(sums.count(sum), 4);
    EXPECT_LE(phone.memory->bytes(Operation::read), long_.size() * 5 / 4);
}

TEST_P(PhoneMountTest, namesAreThoseThatCanLieHereAndTheRestIsTold) {
    phone.memory->addTwin(s("/side/d/a.txt"), "twin", noon);
    phone.memory->addHostile(s("/side/d"), s("x/y"), "hostile");
    phone.memory->addUnreadable(s("/side/d/u"), {PhoneError::unreadable});
    phone.memory->addFile(s("/side/d/%1.txt").arg(QString(300, u'l')), "long", noon);
    phone.memory->addFile(s("/side/d/m.%1").arg(QString(300, u'm')), "long", noon);
    QByteArray names;
    ASSERT_TRUE(prints(s("ls '%1'; cat '%1/a (2).txt'").arg(at("d")), &names));
    EXPECT_EQ(names, "a (2).txt\na.txt\ne\n" + QByteArray(247, 'l') + " (2).txt\nm." +
                         QByteArray(249, 'm') + " (2)\nnone\ntwin");
    EXPECT_EQ(failures, 2) << "x/y and u";
}

TEST_P(PhoneMountTest, aFolderOfTenThousandIsListedOnce) {
    for (int n = 0; n < 10'000; ++n)
        phone.memory->addFile(s("/side/many/%1.jpg").arg(n), "j", noon);
    QByteArray count;
    ASSERT_TRUE(prints(s("find '%1' -size -2 -type f | wc -l").arg(at("many")), &count));
    EXPECT_EQ(count.trimmed(), "10000");
    EXPECT_EQ(phone.memory->count(Operation::list), 2);
}

TEST_P(PhoneMountTest, whatWasChangedByUsIsListedAnew) {
    phone.memory->addUnreadable(s("/side/d/e/u"), {PhoneError::unreadable});
    QByteArray names;
    ASSERT_TRUE(prints(s("ls '%1'").arg(at("d/e")), &names));
    phone.memory->addFile(s("/side/d/e/new"), "n", noon);
    phone.files()->queue()->noteEdit();
    ASSERT_TRUE(prints(s("sleep 1.2; ls '%1'").arg(at("d/e")), &names));
    EXPECT_EQ(names, "b\nnew\n");
    EXPECT_EQ(failures, 1) << "what is left out is told once";
}

TEST_P(PhoneMountTest, aPhoneThatGoesIsAnErrorAndNoShorterFile) {
    std::atomic<int> reads = 0;
    phone.memory->beforeEach([&](const MemoryFileSystem::Request& request) {
        if (request.operation == Operation::read && ++reads == 2)
            phone.memory->loseLink();
    });
    if (!GetParam())
        phone.memory->failAfterBytes(Operation::read, s("/side/film"), 5'000'000,
                                     {PhoneError::unplugged});
    QByteArray bytes;
    EXPECT_FALSE(prints(s("cat '%1'").arg(at("film")), &bytes));
    EXPECT_TRUE(soon([this] { return failures > 0; }));
    phone.memory->restoreLink();
    EXPECT_TRUE(prints(s("cat '%1'").arg(at("d/a.txt")), &bytes)); // it came back
}

TEST_P(PhoneMountTest, readersThatAreKilledGoAtOnceAndSoDoesTheMount) {
    phone.memory->beforeEach([this](const MemoryFileSystem::Request& request) {
        if (request.operation == Operation::read)
            gate.pass();
    });
    std::array<QProcess, 50> programs;
    for (QProcess& program : programs) {
        program.start(s("cat"), {at("film")});
        ASSERT_TRUE(program.waitForStarted());
    }
    while (gate.waiting() == 0)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    for (std::size_t n = 0; n < programs.size() - 1; ++n)
        programs.at(n).kill();
    for (std::size_t n = 0; n < programs.size() - 1; ++n)
        EXPECT_TRUE(programs.at(n).waitForFinished(10'000));
    EXPECT_EQ(programs.back().state(), QProcess::Running);
    auto ended = std::async(std::launch::async, [this] { mounted.reset(); });
    gate.open();
    ASSERT_EQ(ended.wait_for(std::chrono::seconds(10)), std::future_status::ready);
    EXPECT_TRUE(programs.back().waitForFinished(10'000));
    EXPECT_NE(programs.back().exitCode(), 0);
    EXPECT_TRUE(disk.names(s("mnt")).isEmpty());
}

class DragMountTest : public testing::Test {
protected:
    DragMountTest() {
        qputenv("XDG_CACHE_HOME", disk.path(s("cache")).toUtf8());
        qputenv("XDG_RUNTIME_DIR", disk.makeFolder(s("run")).toUtf8());
        phone.fill({{s("film"), film}, {s("d/a.txt"), "a"}, {s("d/e/b"), "b"}}, noon);
        mount.reportFailuresTo([this](const FileItem& item, const Error&) {
            if (!wasReported.exchange(true))
                reported.set_value(item.name);
        });
    }
    QStringList promise(const std::vector<const char*>& names) {
        std::vector<FileItem> items;
        for (const char* name : names)
            items.push_back(phone.memory->item(phone.at(s(name))));
        return mount.promise(phone.files(), items);
    }

    const TemporaryFolder disk;
    MemorySide phone{phoneWithRanges(true)};
    std::atomic<bool> wasReported = false;
    std::promise<QString> reported;
    DragMount mount;
};

TEST(PhoneFolderTest, whoWaitsForASilentPhoneHoldsUpNobodyAndCanBeStopped) {
    MemorySide phone;
    phone.fill({{s("a"), "a"}}, noon);
    const auto silent = std::make_shared<SilentPhone>(*phone.memory);
    PhoneFolder folder(silent, phone.memory->item(phone.root()),
                       PhoneFolder::Listings::keptForSeconds, [](const auto&, const auto&) {});
    auto open = std::async(std::launch::async, [&] { return folder.open({s("a")}); });
    ASSERT_TRUE(soon([&] { return silent->isAsked.load(); }));
    EXPECT_EQ(folder.list({}).size(), 1U);
    folder.stop();
    EXPECT_THROW((void)open.get(), std::system_error);
}

TEST_F(DragMountTest, whatWasPromisedArrivesAsItIsRead) {
    const QStringList paths = promise({"film", "d"});
    if (paths.isEmpty())
        GTEST_SKIP() << "this machine mounts nothing for its users";
    EXPECT_TRUE(phone.memory->requests().empty());
    const QString copy = disk.makeFolder(s("copy"));
    ASSERT_TRUE(succeeds(s("cp"), QStringList{s("-r")} + paths + QStringList{copy}));
    EXPECT_EQ(disk.read(s("copy/film")), film);
    EXPECT_EQ(disk.read(s("copy/d/a.txt")), "a");
    EXPECT_EQ(disk.read(s("copy/d/e/b")), "b");
    EXPECT_TRUE(soon([this] { return !mount.isBeingRead(); }));
    mount.stop();
    EXPECT_FALSE(QFileInfo::exists(paths[0]));
    EXPECT_TRUE(promise({"film"}).isEmpty());
}

TEST_F(DragMountTest, aFolderThatCannotBeHadWholeIsNotHadInPart) {
    const QStringList paths = promise({"d"});
    if (paths.isEmpty())
        GTEST_SKIP() << "this machine mounts nothing for its users";
    phone.memory->addUnreadable(s("/side/d/e/u"), {PhoneError::unreadable});
    EXPECT_FALSE(succeeds(s("cp"), {s("-r"), paths[0], disk.path(s("copy"))}));
    EXPECT_EQ(reported.get_future().get(), s("e"));
}

TEST_F(DragMountTest, promisesOfLongAgoAreForgotten) {
    const QStringList first = promise({"film"});
    if (first.isEmpty())
        GTEST_SKIP() << "this machine mounts nothing for its users";
    QStringList last;
    for (int n = 0; n < 32; ++n)
        last = promise({"film"});
    EXPECT_FALSE(succeeds(s("cat"), first));
    EXPECT_TRUE(succeeds(s("cat"), last));
}

} // namespace
} // namespace tessary
