#include "transfer/mount/PhoneMount.h"

#include "support/Gate.h"
#include "support/ProgramRun.h"
#include "support/QtPrinters.h"
#include "support/Soon.h"
#include "transfer/CopySides.h"

#include <gmock/gmock.h>

#include <QProcess>

#include <array>
#include <atomic>
#include <future>

namespace tessary {
namespace {

using Operation = MemoryFileSystem::Operation;

MemoryFileSystem::Options phoneWithRanges(bool readsRanges) {
    return {.capabilities = {.readsRanges = readsRanges},
            .givesHandles = true,
            .pieceSize = 64 * 1024,
            .queue = std::make_shared<PhoneQueue>()};
}

bool prints(const QString& command, QByteArray* output) {
    const ProgramRun run(s("sh"), {s("-c"), command});
    *output = run.out;
    return run.status == 0;
}

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
    ASSERT_EQ(ProgramRun(s("cp"), {s("-rp"), top, copy}).status, 0);
    // In a few requests: each costs a phone more than its bytes, over adb a process.
    EXPECT_LE(phone.memory->count(Operation::read), 15);
    EXPECT_LE(phone.memory->bytes(Operation::read), long_.size() + 2);
    EXPECT_EQ(disk.read(s("copy/film")), long_);
    EXPECT_EQ(disk.read(s("copy/d/a.txt")), "a");
    EXPECT_EQ(disk.read(s("copy/d/e/b")), "b");
    EXPECT_EQ(disk.read(s("copy/d/none")), "");
    EXPECT_EQ(QFileInfo(disk.path(s("copy/film"))).lastModified(), noon);
    // By all that it can see the copy is the phone's.
    QByteArray differing;
    ASSERT_TRUE(prints(s("diff -r '%1' '%2'").arg(top, copy), &differing));
    EXPECT_EQ(phone.memory->count(Operation::list), 3);
    EXPECT_TRUE(comesTrue([this] { return !mounted->isBeingRead(); }));
    EXPECT_EQ(failures, 0);
    EXPECT_GT(ProgramRun(s("rm"), {s("-f"), at("film")}).status, 0);
    EXPECT_GT(ProgramRun(s("touch"), {at("d/new")}).status, 0);
    // Else a program that outlives this one keeps the mount.
    QByteArray handles;
    EXPECT_TRUE(prints(s("ls -l /proc/self/fd"), &handles));
    EXPECT_FALSE(handles.contains("socket:"));
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
    mounted = PhoneMount::mountByName(phone.files(), {{phone.root(), s("phone")}}, s(".dot"), {});
    EXPECT_TRUE(mounted) << "a phone's name hides no folder";
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
    EXPECT_TRUE(comesTrue([this] { return failures > 0; }));
    phone.memory->restoreLink();
    EXPECT_TRUE(prints(s("cat '%1'").arg(at("film")), &bytes)); // it came back
    EXPECT_TRUE(bytes == long_);
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
        EXPECT_TRUE(programs.at(n).waitForFinished(30'000));
    EXPECT_EQ(programs.back().state(), QProcess::Running);
    auto ended = std::async(std::launch::async, [this] { mounted.reset(); });
    gate.open();
    ASSERT_EQ(ended.wait_for(std::chrono::seconds(30)), std::future_status::ready);
    EXPECT_TRUE(programs.back().waitForFinished(30'000));
    EXPECT_NE(programs.back().exitCode(), 0);
    EXPECT_TRUE(disk.names(s("mnt")).isEmpty());
}

} // namespace
} // namespace tessary
