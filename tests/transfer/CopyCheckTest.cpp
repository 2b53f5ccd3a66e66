#include "transfer/copy/CopyCheck.h"

#include "base/threads/CancellationError.h"
#include "support/QtPrinters.h"
#include "transfer/CopySides.h"
#include "transfer/copy/ContentCount.h"
#include "transfer/copy/Leftovers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tessary {
namespace {

using Operation = MemoryFileSystem::Operation;

class CopyCheckTest : public testing::Test {
protected:
    CopyCheckTest() {
        source.fill({{s("a"), "123"}, {s("b"), "12345"}, {s("d/e/f"), QByteArray(700, 'f')}}, noon);
        target.fill({{s("A"), "12"}, {s("D/"), {}}, {newPartName({}), "part"}}, noon);
        request = requestFor(source, target, ClashAnswer::skip);
        std::sort(request.items.begin(), request.items.end(),
                  [](const auto& one, const auto& other) { return one.name < other.name; });
    }

    MemorySide source;
    MemorySide target{{.identity = s("target"), .rules = {.ignoresCase = true}, .capacity = 1000}};
    TreeCopyRequest request;
};

TEST_F(CopyCheckTest, clashesNamesAndSpaceAreKnownBefore) {
    request.items.push_back({source.memory->item(s("/side/b")), s("a:b/c")});
    const CopyCheck check = checkCopy(request, {.bytesOnTheWay = 100}, {}, {});
    ASSERT_EQ(check.items.size(), 4U);
    EXPECT_EQ(check.items[0].existing->name, s("A"));
    EXPECT_EQ(check.items[0].freeName, s("a (2)"));
    EXPECT_FALSE(check.items[1].existing);
    EXPECT_EQ(check.items[1].freeName, s("b"));
    EXPECT_EQ(check.items[2].existing->name, s("D"));
    EXPECT_EQ(check.items[2].bytes, 700);
    EXPECT_EQ(check.items[3].freeName, QString()); // it cannot be held
    EXPECT_EQ(check.freeBytes, 1000 - 6 - 100);
    EXPECT_FALSE(check.isPartial);
}

TEST_F(CopyCheckTest, neededBytesFollowTheAnswers) {
    const CopyCheck check = checkCopy(request, {}, {}, {});
    const QString a = request.items[0].item.id();
    const QString d = request.items[2].item.id();
    const struct {
        CopyAnswers answers;
        qint64 needed;
    } rows[] = {
        {{}, 708},
        {{{a, ClashAnswer::skip}}, 705},
        {{{d, ClashAnswer::skip}}, 8},
        // The old one goes when the new one is there: room for both is needed once.
        {{{a, ClashAnswer::replace}}, 1 + 5 + 700 + 2},
    };
    for (const auto& row : rows)
        EXPECT_EQ(check.neededBytes(row.answers), row.needed);
    const ClashPolicy policy = policyFor({{a, ClashAnswer::skip}}, ClashAnswer::merge);
    EXPECT_EQ(policy({request.items[0].item, {}}), ClashAnswer::skip);
    EXPECT_EQ(policy({request.items[1].item, {}}), ClashAnswer::merge);
}

TEST_F(CopyCheckTest, aTargetThatCannotBeAskedCountsAsEmpty) {
    target.memory->loseLink();
    const CopyCheck check = checkCopy(request, {}, {}, {});
    EXPECT_FALSE(check.items[0].existing);
    EXPECT_FALSE(check.freeBytes);
}

TEST(ContentCounts, whatCannotBeReadIsCountedAsSuch) {
    MemorySide side;
    side.fill({{s("a"), "1"}, {s("d/b"), "22"}, {s("d/e/c"), "333"}, {s("d/x/y"), "4"}}, noon);
    side.memory->addUnreadable(s("/side/d/u"), {PhoneError::unreadable});
    side.memory->fail(Operation::list, s("/side/d/x"), {PhoneError::accessDenied});
    EXPECT_EQ(countContent(*side.memory, side.items(), {}, {}),
              (ContentCount{.files = 3, .folders = 2, .bytes = 6, .unreadable = 2}));
    side.memory->loseLink();
    EXPECT_THROW((void)countContent(*side.memory, {side.memory->item(s("/side"))}, {}, {}), Error);
}

} // namespace
} // namespace tessary
