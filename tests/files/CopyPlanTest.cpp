#include "transfer/CopyPlan.h"
#include "FakeFileAccess.h"
#include "support/QtPrinters.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace tessary;
using testing::ElementsAre;

namespace {

QStringList freeNames(const CopyPlan& survey) {
    QStringList names;
    for (const CopyCandidate& candidate : survey.candidates)
        names.append(candidate.freeName);
    return names;
}

FileItem file(const QString& name, qint64 size, std::uint32_t handle = 0) {
    return {name, u"/root/"_s + name, false, size, std::nullopt, handle};
}

TEST(CopyPlanTest, whatIsNeededFollowsTheChoices) {
    CopyPlan survey;
    for (const char* key : {"a", "b"}) {
        CopyCandidate candidate;
        candidate.key = QString::fromLatin1(key);
        candidate.existing = CopySide{30, std::nullopt};
        candidate.bytes = 100;
        survey.candidates.push_back(candidate);
    }
    using enum NameClash;
    const std::tuple<NameClash, NameClash, qint64> rows[] = {
        {keepBoth, keepBoth, 200},
        {skip, keepBoth, 100},
        {replace, skip, 100},    // the old file goes after the copy
        {replace, replace, 170}, // the first old file has gone before the second
    };
    for (const auto& [first, second, needed] : rows)
        EXPECT_EQ(survey.neededBytes({{u"a"_s, first}, {u"b"_s, second}}), needed);
}

TEST(CopyPlanTest, downloadsAreNamedAndMeasuredBeforeTheyStart) {
    const TemporaryFolder local;
    local.write(u"in/a.txt"_s, "old!");
    const auto phone = std::make_shared<FakeFileAccess>();
    phone->fill(u"/root"_s, {u"v1.0/"_s});
    phone->fill(u"/root/v1.0"_s, {u"x"_s, u"y"_s});
    local.makeFolder(u"in/v1.0"_s);
    const FileItem folder = phone->itemAt(u"/root/v1.0"_s, {});
    const FileItem huge = file(u"a.txt"_s, std::numeric_limits<qint64>::max());
    DownloadPlan plan{{huge, file(u"A.txt"_s, 3, 7), file(u".."_s, 5), folder},
                      local.path(u"in"_s),
                      {},
                      std::nullopt};
    const CopyPlan survey = surveyDownload(phone, plan, {}, {});
    EXPECT_THAT(freeNames(survey),
                ElementsAre(u"a (2).txt"_s, u"A.txt"_s, QString(), u"v1.0 (2)"_s));
    ASSERT_TRUE(survey.candidates[0].existing && survey.freeBytes);
    EXPECT_EQ(survey.candidates[0].existing->size, 4);
    EXPECT_EQ(survey.candidates[3].bytes, 20);
    EXPECT_FALSE(survey.isPartial);
    EXPECT_GT(survey.neededBytes({}), *survey.freeBytes);

    // What waits in the queue takes its part, on the same disk.
    plan.queued = {{u"/proc"_s, *survey.freeBytes}};
    EXPECT_GT(*surveyDownload(phone, plan, {}, {}).freeBytes, *survey.freeBytes / 2);
    plan.queued.push_back({local.path(), *survey.freeBytes});
    EXPECT_LT(*surveyDownload(phone, plan, {}, {}).freeBytes, *survey.freeBytes / 2);
    // A phone that holds less than there is room for is not walked through.
    plan.queued.clear();
    plan.mostBytes = 10;
    const int listed = phone->count(u"list /root/v1.0"_s);
    (void)surveyDownload(phone, plan, {}, {});
    EXPECT_EQ(phone->count(u"list /root/v1.0"_s), listed);
}

TEST(CopyPlanTest, uploadsAreNamedByWhatThePhoneHolds) {
    const TemporaryFolder local;
    const auto phone = std::make_shared<FakeFileAccess>();
    phone->fill(u"/root"_s, {u"A.jpg"_s, u"Trip/"_s});
    UploadPlan plan;
    plan.paths = {local.write(u"a.jpg"_s, "1"), local.write(u"other/A.jpg"_s, "22"),
                  local.makeFolder(u"Trip"_s)};
    local.write(u"Trip/deep/x"_s, "333");
    plan.target = u"/root"_s;
    plan.freeBytes = 5;
    CopyPlan survey = surveyUpload(phone, plan, {}, {});
    EXPECT_THAT(freeNames(survey), ElementsAre(u"a (2).jpg"_s, u"A (3).jpg"_s, u"Trip (2)"_s));
    EXPECT_FALSE(survey.candidates[0].existing) << "another case is another name";
    EXPECT_EQ(survey.candidates[1].existing->size, 10);
    EXPECT_EQ(survey.neededBytes({}), 6);

    std::stop_source counting;
    counting.request_stop();
    survey = surveyUpload(phone, plan, counting.get_token(), {});
    EXPECT_TRUE(survey.isPartial);
    EXPECT_EQ(survey.neededBytes({}), 3);
}

} // namespace
