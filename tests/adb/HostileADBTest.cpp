// An adbd that says what it likes. Whatever it is, it is one error of this phone, within bounds of
// time, memory and disk, and the phone is used again when it has come to its senses.

#include "adb/ADBFilesFixture.h"
#include "support/UnderAttack.h"
#include "transfer/copy/TreeCopy.h"
#include "transfer/local/LocalFileSystem.h"

#include <mutex>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// What becomes of the bytes of a stream on their way. `served` are those that came before them on
/// it. No value: nothing comes, without end. Throws StreamEnd where the stream ends.
using Lie = std::function<std::optional<Bytes>(std::uint64_t served, Bytes bytes)>;

struct StreamEnd {};

class LyingStream final : public ADBStream {
public:
    LyingStream(std::unique_ptr<ADBStream> stream, Lie lie)
        : stream_(std::move(stream)), lie_(std::move(lie)) {}

    std::size_t read(std::span<std::byte> to, const Wait& wait) override {
        throwIfStopped(wait.stop);
        try {
            while (said_.empty()) {
                // What goes on for ever needs nothing to begin with.
                auto said = lie_(served_, {});
                if (said && said->empty()) {
                    Bytes bytes(to.size());
                    bytes.resize(stream_->read(bytes, wait));
                    if (bytes.empty())
                        return 0;
                    const std::uint64_t before = std::exchange(served_, served_ + bytes.size());
                    said = lie_(before, std::move(bytes));
                }
                if (!said)
                    awaitStop(wait);
                said_ = *std::move(said);
            }
        } catch (const StreamEnd&) {
            return 0;
        }
        const std::size_t count = std::min(to.size(), said_.size());
        std::copy_n(said_.begin(), count, to.begin());
        said_.erase(said_.begin(), said_.begin() + static_cast<std::ptrdiff_t>(count));
        return count;
    }
    void writeOn(ByteView& left, const Wait& wait) override {
        stream_->writeOn(left, wait);
    }
    [[nodiscard]] bool hasInput() const override {
        return stream_->hasInput();
    }

private:
    [[noreturn]] static void awaitStop(const Wait& wait) {
        const auto end = std::chrono::steady_clock::now() + wait.silence;
        while (std::chrono::steady_clock::now() < end) {
            if (wait.stop.stop_requested())
                throw CancellationError();
            std::this_thread::sleep_for(5ms);
        }
        throw Error(ADBError::timedOut);
    }

    const std::unique_ptr<ADBStream> stream_;
    const Lie lie_;
    std::uint64_t served_ = 0;
    Bytes said_;
};

/// A phone whose answers are changed on their way.
class LyingPhone final : public ADBConnection {
public:
    explicit LyingPhone(std::shared_ptr<ADBConnection> phone) : phone_(std::move(phone)) {}

    /// For the streams that are open as well, to services of this kind; null: the truth.
    void setLie(Lie lie, const char* service = "") {
        const std::scoped_lock lock(mutex_);
        lie_ = std::move(lie);
        service_ = service;
    }
    std::unique_ptr<ADBStream> open(const QByteArray& service, const Wait& wait) override {
        return std::make_unique<LyingStream>(
            phone_->open(service, wait), [this, service](std::uint64_t served, Bytes bytes) {
                const std::scoped_lock lock(mutex_);
                return lie_ && service.startsWith(service_) ? lie_(served, std::move(bytes))
                                                            : std::optional(std::move(bytes));
            });
    }
    QByteArrayList features(const Wait& wait) override {
        return knowsOnlyFirstVersions_ ? QByteArrayList() : phone_->features(wait);
    }
    /// It takes the older requests alone; to be said before the first one.
    void knowOnlyFirstVersions() {
        knowsOnlyFirstVersions_ = true;
    }
    void release() override {
        phone_->release();
    }

private:
    const std::shared_ptr<ADBConnection> phone_;
    bool knowsOnlyFirstVersions_ = false;
    std::mutex mutex_;
    Lie lie_;            ///< guarded by mutex_
    QByteArray service_; ///< guarded by mutex_
};

Bytes repeated(const Bytes& one, std::size_t count) {
    Bytes all;
    all.reserve(one.size() * count);
    for (std::size_t n = 0; n < count; ++n)
        all.insert(all.end(), one.begin(), one.end());
    return all;
}

std::optional<std::size_t> positionOf(const char* word, const Bytes& bytes) {
    const auto* text = reinterpret_cast<const std::byte*>(word);
    const auto at = std::search(bytes.begin(), bytes.end(), text, text + 4);
    if (at == bytes.end())
        return std::nullopt;
    return static_cast<std::size_t>(at - bytes.begin());
}

/// From the first record of this kind on, that record for ever.
Lie endless(const char* word, std::size_t length) {
    auto record = std::make_shared<Bytes>();
    return [=](std::uint64_t, Bytes bytes) -> std::optional<Bytes> {
        if (record->empty()) {
            const auto at = positionOf(word, bytes);
            if (!at || *at + length > bytes.size())
                return bytes;
            record->assign(bytes.begin() + static_cast<std::ptrdiff_t>(*at),
                           bytes.begin() + static_cast<std::ptrdiff_t>(*at + length));
            bytes.resize(*at);
        }
        const Bytes more = repeated(*record, std::max<std::size_t>(1, 60'000 / length));
        bytes.assign(more.begin(), more.end());
        return bytes;
    };
}

class HostileADBTest : public ADBFilesFixture {
protected:
    void SetUp() override {
        ADBFilesFixture::SetUp();
        phone_ = std::make_shared<LyingPhone>(connection_);
        lying_ = std::make_shared<ADBFileSystem>(identity(), queue_, phone_);
        write(u"D/a.jpg"_s, QByteArray(3000, 'a'));
        write(u"D/second.txt"_s, "2");
    }
    void TearDown() override {
        lying_.reset();
        ADBFilesFixture::TearDown();
    }
    void expectUsableAgain() {
        phone_->setLie({});
        expectUsable(*lying_, u"/sdcard/D"_s);
    }
    void expectBoundedUnder(const Lie& lie, const PhoneUse& use) {
        phone_->setLie(lie);
        expectBounded(*lying_, use);
    }

    std::shared_ptr<LyingPhone> phone_;
    std::shared_ptr<ADBFileSystem> lying_;
    const std::vector<PhoneUse> uses_ = usesOf(u"/sdcard/D"_s);
};

INSTANTIATE_TEST_SUITE_P(Ways, HostileADBTest, testing::Values(ADBWay::server, ADBWay::network));

TEST_P(HostileADBTest, everyLieIsBoundedAndForgiven) {
    const std::pair<const char*, Lie> lies[] = {
        {"says nothing", [](std::uint64_t, Bytes) { return std::nullopt; }},
        {"ends at once", [](std::uint64_t, Bytes) -> Bytes { throw StreamEnd(); }},
        {"zeros for ever", [](std::uint64_t, Bytes) { return Bytes(60'000); }},
        {"all ones for ever", [](std::uint64_t, Bytes) { return Bytes(60'000, std::byte{0xFF}); }},
        {"entries for ever", endless("DNT2", 77)},
        {"pieces of a file for ever", endless("DATA", 1000)},
        {"output of a command for ever",
         [](std::uint64_t, Bytes) {
             Bytes packet{std::byte{1}, std::byte{0x60}, std::byte{0xEA}, std::byte{0},
                          std::byte{0}};
             packet.resize(5 + 60'000, std::byte{'x'});
             return packet;
         }},
    };
    for (const auto& [name, lie] : lies)
        for (const PhoneUse& use : uses_) {
            SCOPED_TRACE(std::string(use.name) + ": " + name);
            expectBoundedUnder(lie, use);
            expectUsableAgain();
        }
}

TEST_P(HostileADBTest, drippingShellDoesNotHoldUpTheCleaningUpAfterAStop) {
    const Lie drip = [](std::uint64_t, Bytes) {
        std::this_thread::sleep_for(20ms);
        return Bytes{std::byte{1}, std::byte{1}, {}, {}, {}, std::byte{'x'}};
    };
    phone_->setLie(drip, "shell");
    for (const PhoneUse& use : uses_)
        expectBounded(*lying_, use);
    expectUsableAgain();
}

/// Shell packets of this kind with so many bytes, for ever.
Lie endlessPackets(std::byte kind, std::uint8_t length) {
    Bytes packet{kind, std::byte{length}, {}, {}, {}};
    packet.resize(packet.size() + length);
    return [=](std::uint64_t, Bytes) { return repeated(packet, 60'000 / packet.size()); };
}

TEST_P(HostileADBTest, whatNeverEndsIsGivenUpThoughNobodyStopsIt) {
    const auto list = [&] { (void)listAll(*lying_, u"/sdcard/D"_s, {}); };
    const auto free = [&] { (void)lying_->freeBytes(u"/sdcard/D"_s, {}); };
    const auto read = [&] {
        const FileItem large{u"a.jpg"_s, u"/sdcard/D/a.jpg"_s, false, qint64{1} << 30, {}};
        lying_->read(large, {100, 200}, [](ByteView) {}, {});
    };
    const struct {
        const char* name;
        std::function<void()> work;
        const char* service; ///< that is lied about
        Lie lie;
    } rows[] = {
        {"one entry", list, "sync:", endless("DNT2", 77)},
        {"empty packets", free, "shell", endlessPackets(std::byte{1}, 0)},
        {"packets of no kind", free, "shell", endlessPackets(std::byte{9}, 200)},
        {"empty packets of a file", read, "shell", endlessPackets(std::byte{1}, 0)},
        {"packets of no kind in a file", read, "shell", endlessPackets(std::byte{9}, 200)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        row.work(); // the streams are open
        phone_->setLie(row.lie, row.service);
        EXPECT_EQ(codeOf(row.work), "nonsense");
        expectUsableAgain();
    }
}

TEST_P(HostileADBTest, whatIsCutAnywhereIsAnErrorOrWholeAndNeverLess) {
    for (const bool isOld : {false, true}) {
        const auto phone = std::make_shared<LyingPhone>(connect());
        if (isOld)
            phone->knowOnlyFirstVersions();
        ADBFileSystem files(identity(), queue_, phone);
        const FileItem second = require(files, u"/sdcard/D/second.txt"_s, {});
        const QString made = u"phone/D/made"_s;
        const std::pair<const char*, std::function<void()>> rows[] = {
            {"list", [&] { EXPECT_EQ(listAll(files, u"/sdcard/D"_s, {}).items.size(), 2U); }},
            {"read", [&] { EXPECT_EQ(files.read(second, {}, [](ByteView) {}, {}), 1); }},
            {"space", [&] { EXPECT_EQ(files.freeBytes(u"/sdcard"_s, {}), 64LL << 30); }},
            {"folder",
             [&] {
                 (void)files.makeFolder(u"/sdcard/D"_s, u"made"_s, {});
                 EXPECT_TRUE(disk_.has(made));
             }},
        };
        for (const auto& [name, work] : rows)
            for (std::uint64_t place = 0; place < 180; place += isOld ? 3 : 7) {
                SCOPED_TRACE(testing::Message() << name << ' ' << place << ' ' << isOld);
                phone->setLie([place](std::uint64_t served, Bytes bytes) {
                    if (served >= place)
                        throw StreamEnd();
                    bytes.resize(std::min<std::uint64_t>(bytes.size(), place - served));
                    return std::optional(bytes);
                });
                EXPECT_THAT(codeOf(work), testing::AnyOf("nothing", "brokenOff", "nonsense"));
                (void)QDir(disk_.path(made)).removeRecursively();
            }
    }
}

TEST_P(HostileADBTest, aCopyTakesNoMoreThanWasAnnouncedAndStaysInItsFolder) {
    const TemporaryFolder box;
    const QString target = box.makeFolder(u"target"_s);
    adbd_->faults().update([](ADBDFaults& faults) {
        faults.extraNames = {"../escaped", "..", "a/b", ""};
    });
    const auto copy = [&] {
        TreeCopyRequest request{
            .from = lying_, .to = std::make_shared<LocalFileSystem>(target), .folder = target};
        request.items.push_back({require(*lying_, u"/sdcard/D"_s, {}), u"D"_s});
        return TreeCopy(std::move(request)).run({}, {});
    };
    const CopyOutcome honest = copy();
    EXPECT_EQ(honest.end(), CopyOutcome::End::incomplete);
    EXPECT_EQ(box.names(), QStringList(u"target"_s));
    EXPECT_EQ(box.names(u"target/D"_s), (QStringList{u"a.jpg"_s, u"second.txt"_s}));

    phone_->setLie(endless("DATA", 1000));
    EXPECT_NE(copy().end(), CopyOutcome::End::done);
    for (const QString& name : box.names(u"target"_s))
        for (const QString& file : box.names(u"target/"_s + name))
            EXPECT_LE(box.read(u"target/"_s + name + u'/' + file).size(), 3000)
                << file.toStdString();
    phone_->setLie({});
}

} // namespace
} // namespace tessary
