#include "platform/desktop/SingleInstance.h"
#include "support/MainLoop.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <future>

using namespace tessary;
using Outcome = SingleInstance::Outcome;
using testing::ElementsAre;

namespace {

class SingleInstanceTest : public MainLoop {
protected:
    [[nodiscard]] std::unique_ptr<SingleInstance> instance() const {
        return std::make_unique<SingleInstance>(QStringLiteral("tessary"), folder_.path());
    }
    /// A later start, on a thread of its own while this one's loop turns.
    Outcome startAgain(const QByteArray& token) {
        auto outcome = std::async(
            std::launch::async, [&] { return instance()->claim([](const QByteArray&) {}, token); });
        EXPECT_TRUE(eventually([&] { return outcome.wait_for(0s) == std::future_status::ready; }));
        return outcome.get();
    }

    TemporaryFolder folder_;
    std::vector<std::string> raised_;
    SingleInstance::Raise raise_ = [this](const QByteArray& token) {
        raised_.push_back(token.toStdString());
    };
};

TEST_F(SingleInstanceTest, aLaterStartRaisesTheFirstAndEnds) {
    const auto first = instance();
    ASSERT_EQ(first->claim(raise_), Outcome::first);
    EXPECT_EQ(startAgain("token-1"), Outcome::raisedOther);
    EXPECT_EQ(startAgain({}), Outcome::raisedOther);
    EXPECT_EQ(startAgain("two\nlines"), Outcome::raisedOther);
    EXPECT_EQ(startAgain(QByteArray(10'000, 'x')), Outcome::raisedOther);
    EXPECT_THAT(raised_, ElementsAre("token-1", "", "", ""));
}

TEST_F(SingleInstanceTest, theNextOneIsFirstAgainAfterAnEndAndAfterACrash) {
    {
        const auto ended = instance();
        ASSERT_EQ(ended->claim(raise_), Outcome::first);
    }
    // What a crash leaves behind: a socket that nobody listens on, and the lock of a dead process.
    folder_.write(QStringLiteral("tessary.socket"), "");
    folder_.write(QStringLiteral("tessary.lock"), "4194999\ntessary\n\n\n\n");
    EXPECT_EQ(instance()->claim(raise_), Outcome::first);
}

TEST_F(SingleInstanceTest, oneThatHangsHoldsNobodyUpForLong) {
    const auto hanging = instance();
    ASSERT_EQ(hanging->claim(raise_), Outcome::first);
    const auto start = std::chrono::steady_clock::now();
    // Its event loop does not turn.
    EXPECT_EQ(instance()->claim(raise_), Outcome::noAnswer);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 15s);
}

} // namespace
