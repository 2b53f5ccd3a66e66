#include "ios/PairingQuestions.h"

#include <gtest/gtest.h>

namespace tessary {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

constexpr std::int32_t pending = -19;
constexpr std::int32_t denied = -18;

TEST(PairingQuestions, comeOnceAnAttachmentAndThenAfterPausesThatGrow) {
    PairingQuestions questions;
    const auto begin = PairingQuestions::Clock::now();
    const auto mayAsk = [&](std::uint32_t attachment, std::chrono::seconds at) {
        return !questions.refusalOf(u"a"_s, attachment, begin + at);
    };
    EXPECT_TRUE(mayAsk(1, 0s));
    std::chrono::seconds now = 0s;
    for (const auto pause : {10s, 20s, 40s, 60s, 60s}) {
        questions.refused(u"a"_s, 1, pending, begin + now);
        EXPECT_FALSE(mayAsk(1, now + pause - 1s)) << pause.count();
        EXPECT_TRUE(mayAsk(1, now + pause)) << pause.count();
        now += pause;
    }
    questions.refused(u"a"_s, 1, pending, begin + now);
    EXPECT_EQ(questions.refusalOf(u"a"_s, 1, begin + now), pending);
    EXPECT_TRUE(mayAsk(2, now)); // plugged in anew
    EXPECT_EQ(questions.refusalOf(u"b"_s, 1, begin + now), std::nullopt);
    questions.refused(u"a"_s, 2, pending, begin + now);
    EXPECT_TRUE(mayAsk(2, now + 10s)); // and with the shortest pause
    questions.forget(u"a"_s);
    EXPECT_TRUE(mayAsk(2, now));
}

TEST(PairingQuestions, neverComeAgainToWhoWasToldNoUntilItIsPluggedInAnew) {
    PairingQuestions questions;
    const auto begin = PairingQuestions::Clock::now();
    questions.refused(u"a"_s, 7, denied, begin);
    EXPECT_EQ(questions.refusalOf(u"a"_s, 7, begin + 24h), denied);
    EXPECT_EQ(questions.refusalOf(u"a"_s, 8, begin), std::nullopt);
}

} // namespace
} // namespace tessary
