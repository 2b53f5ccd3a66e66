// A phone that sends what it likes. Whatever it is, it is one error of this phone, within bounds of
// time and memory, and the phone is used again when it has come to its senses.

#include "mtp/MTPFilesFixture.h"
#include "transfer/copy/FileCopy.h"
#include "transfer/local/LocalFileSystem.h"

#include <atomic>
#include <chrono>
#include <fstream>
#include <random>
#include <thread>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using enum MTPOperationCode;
using Clock = std::chrono::steady_clock;

/// Who waits longer than this for nonsense to end stops it.
constexpr auto patience = 300ms;
/// From a stop request to the end of the call.
constexpr auto toHearIt = 1500ms;
/// Bytes beyond what was used before. One answer may have 64 MiB, and the phone is in here, too.
constexpr std::size_t mostMemory = 160 << 20;

std::size_t usedMemory() {
    std::size_t total = 0;
    std::size_t resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    return resident * 4096;
}

void putNumber(Bytes& bytes, std::size_t at, std::uint32_t number) {
    for (std::size_t n = 0; n < 4 && at + n < bytes.size(); ++n)
        bytes[at + n] = static_cast<std::byte>(number >> (8 * n));
}

struct Use {
    const char* name;
    std::function<void(PhoneFileSystem&, const Call&)> run;
};

FileItem theFile(PhoneFileSystem& files, const Call& call) {
    return require(files, u"/D/a.jpg"_s, call);
}

const std::vector<Use> uses{
    {"list", [](auto& files, auto& call) { (void)listAll(files, u"/D"_s, call); }},
    {"read",
     [](auto& files, auto& call) {
         files.read(
             theFile(files, call), {}, [](ByteView) {}, call);
     }},
    {"write",
     [](auto& files, auto& call) {
         (void)files.write(
             {u"/D"_s, u"new"_s, 5000, {}},
             [](std::span<std::byte> buffer) { return buffer.size(); }, {}, call);
     }},
    {"thumbnail",
     [](auto& files, auto& call) { (void)files.thumbnail(theFile(files, call), 1 << 20, call); }},
    {"rename",
     [](auto& files, auto& call) {
         (void)files.rename(theFile(files, call), u"b.jpg"_s, TakenName::refused, call);
     }},
    {"free space", [](auto& files, auto& call) { (void)files.freeBytes(u"/"_s, call); }},
};

/// What becomes of a container on its way.
struct Attack {
    const char* name;
    std::function<void(const VirtualAnswer&, Bytes&)> change;
};

bool isData(const VirtualAnswer& answer) {
    return answer.type == MTPContainerType::data;
}

const std::vector<Attack> attacks{
    {"announces 4 GiB", [](auto&, Bytes& bytes) { putNumber(bytes, 0, 0xFFFFFFFF); }},
    {"announces 2 GiB", [](auto&, Bytes& bytes) { putNumber(bytes, 0, 0x7FFFFFFF); }},
    {"announces nothing", [](auto&, Bytes& bytes) { putNumber(bytes, 0, 0); }},
    {"announces less than a header", [](auto&, Bytes& bytes) { putNumber(bytes, 0, 11); }},
    {"of no kind", [](auto&, Bytes& bytes) { bytes.at(4) = std::byte{9}; }},
    {"of another operation", [](auto&, Bytes& bytes) { bytes.at(6) ^= std::byte{0x55}; }},
    {"of another transaction", [](auto&, Bytes& bytes) { putNumber(bytes, 8, 0xDEADBEEF); }},
    {"lists without end",
     [](auto& answer, Bytes& bytes) {
         if (isData(answer) && bytes.size() >= 16)
             putNumber(bytes, 12, 0xFFFFFFFF);
     }},
    {"twenty megabytes more",
     [](auto& answer, Bytes& bytes) {
         if (!isData(answer))
             return;
         bytes.resize(bytes.size() + (20 << 20), std::byte{0x41});
         putNumber(bytes, 0, static_cast<std::uint32_t>(bytes.size()));
     }},
    {"a million equal entries",
     [](auto& answer, Bytes& bytes) {
         if (!isData(answer) || answer.operation != static_cast<std::uint16_t>(getObjectHandles) ||
             bytes.size() < 20)
             return;
         constexpr std::uint32_t count = 1'000'000;
         const Bytes one(bytes.begin() + 16, bytes.begin() + 20);
         bytes.resize(16);
         for (std::uint32_t n = 0; n < count; ++n)
             bytes.insert(bytes.end(), one.begin(), one.end());
         putNumber(bytes, 12, count);
         putNumber(bytes, 0, static_cast<std::uint32_t>(bytes.size()));
     }},
};

class HostileMTPTest : public MTPFilesFixture {
protected:
    HostileMTPTest() {
        phone().write(u"D/a.jpg"_s, QByteArray(3000, 'a'));
        phone().write(u"D/second.txt"_s, "2");
        other_.write(u"fine.txt"_s, "fine");
    }
    void setAttack(const std::function<void(const VirtualAnswer&, Bytes&)>& change) {
        phone().fault([&](VirtualFaults& faults) {
            faults.rewrite = [change](const VirtualAnswer& answer) -> std::optional<Bytes> {
                Bytes bytes = answer.container;
                change(answer, bytes);
                return bytes;
            };
        });
    }
    /// One use under attack: it ends, however, and so does waiting for it.
    void expectBounded(const Use& use) {
        const std::size_t before = usedMemory();
        std::stop_source stop;
        std::atomic<bool> hasEnded = false;
        std::atomic<std::size_t> peak = before;
        Clock::time_point stopped{};
        std::jthread impatient([&] {
            const auto end = Clock::now() + patience;
            while (!hasEnded && Clock::now() < end) {
                peak = std::max(peak.load(), usedMemory());
                std::this_thread::sleep_for(5ms);
            }
            stopped = Clock::now();
            stop.request_stop();
        });
        try {
            use.run(files_, stop.get_token());
        } catch (const Error&) {
        } catch (const CancellationError&) {
        }
        const auto end = Clock::now();
        hasEnded = true;
        impatient.join();
        EXPECT_LT(end - std::min(stopped, end), toHearIt);
        EXPECT_LT(peak, before + mostMemory);
    }
    void expectUsableAgain() {
        phone().fault([](VirtualFaults& faults) { faults.rewrite = nullptr; });
        std::string failure;
        for (int tries = 0; tries < 3; ++tries) { // a torn session is noticed by its next user
            failure = codeOf([&] { (void)listAll(files_, u"/D"_s, {}); });
            if (failure.empty())
                return;
        }
        ADD_FAILURE() << "not usable: " << failure;
    }

    PluggedPhone other_{bus_, phoneConfig("OTHER", "1-9")};
    MTPFileSystem otherFiles_{bus_, identityOf(other_.info), std::make_shared<PhoneQueue>()};
};

TEST_F(HostileMTPTest, everyLieIsBoundedAndForgiven) {
    for (const Attack& attack : attacks)
        for (const Use& use : uses) {
            SCOPED_TRACE(std::string(use.name) + ": " + attack.name);
            setAttack(attack.change);
            expectBounded(use);
            EXPECT_EQ(listAll(otherFiles_, u"/"_s, {}).items.size(), 1U);
            expectUsableAgain();
        }
}

TEST_F(HostileMTPTest, anAnswerMayEndAtEachByte) {
    for (std::size_t length = 0; length < 90; length += length < 30 ? 1 : 7) {
        SCOPED_TRACE(length);
        setAttack([length](const VirtualAnswer&, Bytes& bytes) {
            bytes.resize(std::min(bytes.size(), length));
        });
        expectBounded(uses[length % uses.size()]);
    }
    expectUsableAgain();
}

TEST_F(HostileMTPTest, anyByteMayBeAnother) {
    std::mt19937 random(20261122); // NOLINT(cert-msc51-cpp): the same every time
    for (int round = 0; round < 40; ++round) {
        SCOPED_TRACE(round);
        const auto seed = static_cast<unsigned>(random());
        setAttack([seed](const VirtualAnswer& answer, Bytes& bytes) {
            std::mt19937 dice(seed + answer.operation);
            for (int flips = 0; flips < 4 && !bytes.empty(); ++flips)
                bytes[dice() % bytes.size()] = static_cast<std::byte>(dice());
        });
        expectBounded(uses[static_cast<std::size_t>(round) % uses.size()]);
    }
    expectUsableAgain();
}

TEST_F(HostileMTPTest, aFileIsNotLongerHereThanItWasAnnounced) {
    const TemporaryFolder disk;
    LocalFileSystem here(disk.path());
    const FileItem file = theFile(files_, {});
    setAttack([](const VirtualAnswer& answer, Bytes& bytes) {
        if (!isData(answer))
            return;
        bytes.resize(bytes.size() + (30 << 20), std::byte{0x41});
        putNumber(bytes, 0, static_cast<std::uint32_t>(bytes.size()));
    });
    EXPECT_NE(codeOf([&] {
                  (void)copyFile({.from = files_,
                                  .file = file,
                                  .to = here,
                                  .folder = disk.path(),
                                  .name = u"a.jpg"_s},
                                 {}, {});
              }),
              "");
    EXPECT_EQ(disk.names(), QStringList());
}

} // namespace
} // namespace tessary
