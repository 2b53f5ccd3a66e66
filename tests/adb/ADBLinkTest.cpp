#include "adb/direct/ADBLink.h"
#include "adb/keys/ADBAuthManager.h"

#include "adb/ADBFilesFixture.h"
#include "base/threads/Deadline.h"
#include "support/Soon.h"

#include <condition_variable>
#include <deque>
#include <future>
#include <semaphore>

namespace tessary {

namespace {

using namespace Qt::StringLiterals;

Bytes bytesOf(const QByteArray& text) {
    const auto* data = reinterpret_cast<const std::byte*>(text.constData());
    return {data, data + text.size()};
}

/// A phone that says what a test tells it to, and nothing else.
class ScriptedTransport final : public ADBTransport {
public:
    struct State {
        std::mutex mutex;
        std::condition_variable changed;
        std::deque<ADBMessage> toHost;
        std::vector<ADBMessage> fromHost;
        bool isClosed = false;
    };
    explicit ScriptedTransport(std::shared_ptr<State> state) : state_(std::move(state)) {}

    ADBMessage read() override {
        std::unique_lock lock(state_->mutex);
        state_->changed.wait(lock, [&] { return state_->isClosed || !state_->toHost.empty(); });
        if (state_->toHost.empty())
            throw Error(ADBError::brokenOff);
        ADBMessage message = std::move(state_->toHost.front());
        state_->toHost.pop_front();
        return message;
    }
    void write(const ADBMessage& message) override {
        const std::scoped_lock lock(state_->mutex);
        state_->fromHost.push_back(message);
        state_->changed.notify_all();
    }
    void close() override {
        const std::scoped_lock lock(state_->mutex);
        state_->isClosed = true;
        state_->changed.notify_all();
    }

private:
    const std::shared_ptr<State> state_;
};

class ADBLinkTest : public testing::Test {
protected:
    void say(ADBCommand command, std::uint32_t arg0, std::uint32_t arg1,
             const QByteArray& payload = {}, bool skipChecksum = true) {
        const std::scoped_lock lock(phone_->mutex);
        phone_->toHost.emplace_back(command, arg0, arg1, bytesOf(payload), skipChecksum);
        phone_->changed.notify_all();
    }
    void greet() {
        say(ADBCommand::cnxn, ADBConstants::versionV2, ADBConstants::maxPayloadV2,
            "device::ro.x=y;features=shell_v2,stat_v2", false);
    }
    /// Waits until the host has said `count` things, and returns the last of them.
    ADBMessage heard(std::size_t count) {
        std::unique_lock lock(phone_->mutex);
        EXPECT_TRUE(phone_->changed.wait_for(lock, soon, [&] {
            return phone_->fromHost.size() >= count;
        })) << phone_->fromHost.size();
        return phone_->fromHost.size() < count ? ADBMessage() : phone_->fromHost[count - 1];
    }
    /// A stream of local id 1 to the phone's 7, which answers once it has heard of it.
    std::unique_ptr<ADBStream> openStream() {
        greet();
        link_->awaitReady({{}, soon}, soon);
        const std::jthread phone([this] {
            (void)heard(2);
            say(ADBCommand::okay, 7, 1);
        });
        return link_->open("sync:", {{}, soon});
    }
    /// Another phone, to which this key is shown.
    void connectWith(const std::shared_ptr<ADBHostKey>& key) {
        phone_ = std::make_shared<ScriptedTransport::State>();
        link_ = std::make_shared<ADBLink>(std::make_unique<ScriptedTransport>(phone_), key);
    }
    static std::string codeOfRead(ADBStream& stream) {
        return codeOf([&] {
            Bytes bytes(100);
            while (stream.read(bytes, {{}, soon}) > 0) {
            }
        });
    }

    const TemporaryFolder keys_;
    std::shared_ptr<ScriptedTransport::State> phone_ = std::make_shared<ScriptedTransport::State>();
    std::shared_ptr<ADBLink> link_ = std::make_shared<ADBLink>(
        std::make_unique<ScriptedTransport>(phone_),
        std::make_shared<ADBAuthManager>(std::make_unique<FileKeyStore>(keys_.path()), u"ann"_s,
                                         u"desk"_s));
};

TEST_F(ADBLinkTest, pieceIsAcknowledgedOnceThereIsRoom) {
    const auto stream = openStream();
    const QByteArray piece(1'000'000, 'x');
    for (int n = 0; n < 3; ++n)
        say(ADBCommand::wrte, 7, 1, piece);
    EXPECT_EQ(heard(4), ADBMessage(ADBCommand::okay, 1, 7, {}, true)) << "two fit";
    Bytes bytes(1'500'000);
    std::size_t got = 0;
    while (got < bytes.size())
        got += stream->read(std::span(bytes).subspan(got), {{}, soon});
    EXPECT_EQ(heard(5), ADBMessage(ADBCommand::okay, 1, 7, {}, true)) << "the third, late";
    say(ADBCommand::clse, 7, 1);
    EXPECT_EQ(codeOfRead(*stream), "nothing") << "what arrived is read to its end";
}

TEST_F(ADBLinkTest, phoneThatBreaksTheRulesIsLostAtOnce) {
    struct Row {
        const char* what;
        std::vector<ADBMessage> said;
    };
    const Bytes much(1'048'576, std::byte{1});
    const Row rows[] = {
        {"does not wait for its credit",
         std::vector(4, ADBMessage(ADBCommand::wrte, 7, 1, much, true))},
        {"takes another id", {ADBMessage(ADBCommand::wrte, 8, 1, {}, true)}},
        {"acknowledges by another id", {ADBMessage(ADBCommand::okay, 8, 1, {}, true)}},
        {"says an unknown word", {ADBMessage(ADBCommand{1}, 2, 3)}},
        {"greets again", {ADBMessage(ADBCommand::cnxn, 1, 4096, {}, true)}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        connectWith(nullptr);
        const auto stream = openStream();
        for (const ADBMessage& message : row.said) {
            const std::scoped_lock lock(phone_->mutex);
            phone_->toHost.push_back(message);
        }
        phone_->changed.notify_all();
        EXPECT_TRUE(comesTrue([this] { return link_->isLost(); }));
        EXPECT_EQ(codeOf([&] {
                      (void)link_->open("sync:", {{}, soon});
                  }),
                  std::string(row.what) == "greets again" ? "brokenOff" : "nonsense");
    }
}

TEST_F(ADBLinkTest, whatPhonesSayToNobodyIsIgnoredOrRefused) {
    const auto stream = openStream();
    say(ADBCommand::wrte, 9, 42, "x");
    say(ADBCommand::okay, 9, 42);
    say(ADBCommand::clse, 9, 42);
    say(ADBCommand::open, 5, 0, "tcp:80");
    EXPECT_EQ(heard(3), ADBMessage(ADBCommand::clse, 0, 5, {}, true));
    say(ADBCommand::wrte, 7, 1, "hello");
    Bytes bytes(5);
    EXPECT_EQ(stream->read(bytes, {{}, soon}), 5U);
    EXPECT_EQ(bytes, bytesOf("hello"));
}

/// A virtual phone that has never seen this computer, and the real way there.
struct TrustTest : ADBFilesFixture {
    TrustTest() : ADBFilesFixture({.folder = {}, .asksForKeys = true}) {}
};

TEST_P(TrustTest, phoneIsAskedOnceAndKnowsTheKeyFromThenOn) {
    adbd_->setAllowsUnknownKeys(false);
    EXPECT_EQ(codeOf([&] { (void)listed(u"/"_s); }), "notTrusted");
    connection_->release();
    adbd_->setAllowsUnknownKeys(true);
    EXPECT_EQ(codeOf([&] { (void)listed(u"/"_s); }), "nothing");
    adbd_->setAllowsUnknownKeys(false);
    files_.reset();
    connection_ = connect();
    EXPECT_TRUE(connection_->features({{}, soon}).contains("ls_v2")) << "by its signature alone";
}

INSTANTIATE_TEST_SUITE_P(Ways, TrustTest, testing::Values(ADBWay::network, ADBWay::cable),
                         testing::PrintToStringParamName());

/// A phone whose wire is the first version, strict about checksums and sizes.
struct FirstVersionTest : ADBFilesFixture {
    FirstVersionTest() : ADBFilesFixture({.folder = {}, .isFirstVersion = true}) {}
};

TEST_P(FirstVersionTest, filesTravelInSmallPieces) {
    const QByteArray bytes = manyBytes(300'000);
    EXPECT_EQ(readAll(write(u"/"_s, u"x"_s, bytes)), bytes);
}

INSTANTIATE_TEST_SUITE_P(Ways, FirstVersionTest, allADBWays, testing::PrintToStringParamName());

struct USBPhoneTest : ADBFilesFixture {};

TEST_P(USBPhoneTest, whyThePhoneCannotBeOpenedIsTold) {
    const auto openWith = [&](USBCode device, USBCode interface) {
        bus_.setOpenFaults(u"1-1"_s, {.deviceOpen = device, .interfaceOpen = interface});
        connection_->release();
        return codeOf([&] { (void)listed(u"/"_s); });
    };
    EXPECT_EQ(openWith(usb::success, usb::exclusiveAccess), "held");
    EXPECT_EQ(openWith(usb::notPermitted, usb::success), "notPermitted");
    EXPECT_EQ(openWith(usb::success, usb::success), "nothing");
    EXPECT_EQ(codeOf([&] { ADBUSBTransport(bus_, u"1-1"_s, {}); }), "held") << "by this program";
    bus_.setProgramsHolding(u"1-1"_s, {u"adb"_s});
    try {
        ADBUSBTransport(bus_, {}, u"VIRTUAL"_s);
        FAIL() << "opened";
    } catch (const Error& error) {
        EXPECT_EQ(error.arguments().value(0), u"adb"_s);
    }
    connection_->release();
    cable_.unplug();
    EXPECT_EQ(codeOf([&] { ADBUSBTransport(bus_, u"1-1"_s, u"VIRTUAL"_s); }), "notFound");
}

INSTANTIATE_TEST_SUITE_P(Ways, USBPhoneTest, testing::Values(ADBWay::cable),
                         testing::PrintToStringParamName());

TEST_F(ADBLinkTest, phoneThatAsksOnAndOnIsAnsweredTwice) {
    class CountingKey final : public ADBHostKey {
    public:
        Bytes sign(ByteView /*token*/, const std::stop_token& /*stop*/) override {
            ++asked;
            return Bytes(256);
        }
        Bytes getPhonePublicKeyPayload(const std::stop_token& /*stop*/) override {
            ++asked;
            return Bytes(700);
        }
        std::atomic<int> asked = 0;
    };
    const auto key = std::make_shared<CountingKey>();
    connectWith(key);
    for (int n = 0; n < 5; ++n)
        say(ADBCommand::auth, ADBConstants::authTypeToken, 0, QByteArray(20, 't'), false);
    greet();
    link_->awaitReady({{}, soon}, soon);
    EXPECT_EQ(key->asked, 2) << "its signature, and its public half";
}

// The desktop may be asking for the password of the key store for a minute.
TEST_F(ADBLinkTest, linkThatGoesWaitsForNoKey) {
    class LockedKey final : public ADBHostKey {
    public:
        Bytes sign(ByteView /*token*/, const std::stop_token& stop) override {
            return getPhonePublicKeyPayload(stop);
        }
        Bytes getPhonePublicKeyPayload(const std::stop_token& stop) override {
            isAsked.release();
            std::binary_semaphore isOver{0};
            const std::stop_callback wake(stop, [&] { isOver.release(); });
            EXPECT_TRUE(isOver.try_acquire_for(soon));
            throw CancellationError();
        }
        std::binary_semaphore isAsked{0};
    };
    const auto key = std::make_shared<LockedKey>();
    connectWith(key);
    say(ADBCommand::auth, ADBConstants::authTypeToken, 0, QByteArray(20, 't'), false);
    ASSERT_TRUE(key->isAsked.try_acquire_for(soon));
    std::stop_source stop;
    auto waiting = std::async(std::launch::async, [this, stop = stop.get_token()] {
        return codeOf([&] { link_->awaitReady({stop, 50ms}, soon); });
    });
    EXPECT_EQ(waiting.wait_for(300ms), std::future_status::timeout) << "it is not the phone's";
    stop.request_stop();
    EXPECT_EQ(waiting.get(), "cancelled");
    link_.reset();
}

TEST(ADBDirectConnection, whoWaitsForAnothersLinkHearsAStop) {
    std::binary_semaphore begun{0};
    std::binary_semaphore goOn{0};
    ADBDirectConnection phone(
        [&](const Wait&) -> std::unique_ptr<ADBTransport> {
            begun.release();
            EXPECT_TRUE(goOn.try_acquire_for(soon));
            throw Error(ADBError::notFound);
        },
        nullptr);
    const auto use = [&](const std::stop_token& stop) {
        return codeOf([&] { (void)phone.features({stop, soon}); });
    };
    auto first = std::async(std::launch::async, use, std::stop_token());
    begun.acquire();
    const Deadline deadline(50ms);
    EXPECT_EQ(use(deadline.token()), "cancelled");
    phone.release(); // does not wait, either
    goOn.release();
    EXPECT_EQ(first.get(), "notFound");
}

} // namespace

} // namespace tessary
