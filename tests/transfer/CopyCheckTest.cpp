#include "transfer/copy/CopyCheck.h"

#include "support/QtPrinters.h"
#include "transfer/CopySides.h"
#include "transfer/copy/Leftovers.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

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
    EXPECT_FALSE(check.items[1].existing);
    EXPECT_EQ(check.items[2].existing->name, s("D"));
    EXPECT_EQ(check.items[2].bytes, 700);
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

} // namespace
} // namespace tessary
