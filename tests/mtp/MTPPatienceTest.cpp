#include "mtp/MTPFilesFixture.h"
#include "support/Soon.h"

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using enum MTPOperationCode;
using Clock = std::chrono::steady_clock;

/// A call that the phone keeps waiting.
struct Stage {
    const char* name;
    MTPOperationCode operation;
    std::function<void(PhoneFileSystem&, const Call&)> run;
    bool afterData = false; ///< it waits behind the last byte instead of before the first
};

FileItem file(PhoneFileSystem& files, const char* path, const Call& call) {
    return require(files, QString::fromUtf8(path), call);
}

void send(PhoneFileSystem& files, const Call& call) {
    const auto source = [](std::span<std::byte> buffer) { return buffer.size(); };
    files.write({u"/D"_s, u"new"_s, 100'000, {}}, source, {}, call);
}

void ignore(ByteView) {}

const std::vector<Stage> stages{
    {"storages", getStorageIDs,
     [](auto& files, auto& call) { (void)listAll(files, u"/"_s, call); }},
    {"handles", getObjectHandles,
     [](auto& files, auto& call) { (void)listAll(files, u"/D"_s, call); }},
    {"facts", getObjectInfo, [](auto& files, auto& call) { (void)listAll(files, u"/D"_s, call); }},
    {"firstByte", getObject,
     [](auto& files, auto& call) { files.read(file(files, "/D/f", call), {}, ignore, call); }},
    {"part", androidGetPartialObject64,
     [](auto& files, auto& call) {
         files.read(file(files, "/D/f", call), {5, 10}, ignore, call);
     }},
    {"announcement", sendObjectInfo, [](auto& files, auto& call) { send(files, call); }},
    {"lastByte", sendObject, [](auto& files, auto& call) { send(files, call); }, true},
    {"rename", setObjectPropValue,
     [](auto& files, auto& call) {
         files.rename(file(files, "/D/f", call), u"g"_s, TakenName::refused, call);
     }},
    {"newFolder", sendObjectInfo,
     [](auto& files, auto& call) { files.makeFolder(u"/D"_s, u"N"_s, call); }},
    {"move", moveObject,
     [](auto& files, auto& call) { files.move(file(files, "/D/f", call), u"/"_s, call); }},
    {"remove", deleteObject,
     [](auto& files, auto& call) { files.remove(file(files, "/D/f", call), call); }},
    {"space", getStorageInfo, [](auto& files, auto& call) { (void)files.freeBytes(u"/"_s, call); }},
};

class MTPPatienceTest : public MTPFilesFixture, public ::testing::WithParamInterface<Stage> {
protected:
    MTPPatienceTest() {
        phone().write(u"D/f"_s, manyBytes(2000));
        phone().write(u"D/other"_s, "o");
    }
    void keepWaiting(std::chrono::milliseconds time) {
        phone().fault([&](VirtualFaults& faults) {
            faults.delay.clear();
            if (GetParam().afterData)
                faults.sendObjectPause = time;
            else if (time.count() > 0)
                faults.delay[static_cast<std::uint16_t>(GetParam().operation)] = time;
        });
    }
};

TEST_P(MTPPatienceTest, aStopIsHeardAndTheNextCallWorks) {
    keepWaiting(60s);
    std::stop_source stop;
    std::jthread hand([&] {
        while (phone().requests(GetParam().operation) == 0)
            std::this_thread::sleep_for(1ms);
        std::this_thread::sleep_for(50ms);
        stop.request_stop();
    });
    const auto start = Clock::now();
    EXPECT_EQ(codeOf([&] { GetParam().run(files_, stop.get_token()); }), "cancelled");
    EXPECT_LT(Clock::now() - start, soon);
    hand.join();
    keepWaiting(0ms);
    QFile::remove(phone().disk.path(u"0/D/new"_s)); // all of it had arrived
    // The phone may still sleep: a pulled cable wakes it.
    replug();
    EXPECT_FALSE(list("/D").empty());
    EXPECT_NO_THROW(GetParam().run(files_, {}));
}

TEST_P(MTPPatienceTest, aPauseOfThePhoneIsWaitedFor) {
    constexpr MTPPatience patience{5s, 5s};
    MTPFileSystem files(bus_, identityOf(phone().info), std::make_shared<PhoneQueue>(), patience);
    keepWaiting(400ms);
    EXPECT_NO_THROW(GetParam().run(files, {}));
}

INSTANTIATE_TEST_SUITE_P(Stages, MTPPatienceTest, ::testing::ValuesIn(stages),
                         [](const auto& row) { return std::string(row.param.name); });

class MTPSilenceTest : public MTPFilesFixture {};

TEST_F(MTPSilenceTest, phoneThatDoesNotAnswerIsGivenUpAndFoundAgain) {
    phone().write(u"D/f"_s, "f");
    constexpr MTPPatience patience{2s, 2s};
    MTPFileSystem files(bus_, identityOf(phone().info), std::make_shared<PhoneQueue>(), patience);
    (void)listAll(files, u"/D"_s, {});
    phone().fault([](VirtualFaults& faults) {
        faults.hang.insert(static_cast<std::uint16_t>(getObjectHandles));
    });
    const auto start = Clock::now();
    EXPECT_EQ(codeOf([&] { (void)listAll(files, u"/D"_s, {}); }), "noAnswer");
    EXPECT_LT(Clock::now() - start, soon);
    phone().fault([](VirtualFaults& faults) { faults.hang.clear(); });
    EXPECT_EQ(listAll(files, u"/D"_s, {}).items.size(), 1U);
}

TEST_F(MTPSilenceTest, stopIsHeardWhileAMutePhoneIsBroughtToRest) {
    const auto isMute = std::make_shared<std::atomic<bool>>(true); // the phone outlives the test
    phone().fault([isMute](VirtualFaults& faults) {
        faults.rewrite = [isMute](const VirtualAnswer& answer) -> std::optional<Bytes> {
            const bool isLast = answer.operation == static_cast<std::uint16_t>(sendObject);
            for (auto left = 1200; isLast && *isMute && left > 0; --left)
                std::this_thread::sleep_for(10ms);
            return std::nullopt;
        };
    });
    std::stop_source stop;
    std::jthread hand;
    std::size_t given = 0;
    const auto source = [&](std::span<std::byte> buffer) {
        if (given > 5'000'000)
            throw Error(PhoneError::changed, {u"/home/f"_s}); // the phone waits for the rest
        if (given == 0)
            hand = std::jthread([&] {
                std::this_thread::sleep_for(1s);
                stop.request_stop();
            });
        given += buffer.size();
        return buffer.size();
    };
    const auto start = Clock::now();
    EXPECT_EQ(codeOf([&] {
                  files_.write({u"/"_s, u"n"_s, 9'000'000, {}}, source, {}, stop.get_token());
              }),
              "changed");
    EXPECT_LT(Clock::now() - start, soon / 2);
    *isMute = false;
}

} // namespace
} // namespace tessary
