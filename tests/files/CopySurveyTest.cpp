#include "files/CopySurvey.h"
#include "FakeFileAccess.h"
#include "support/QtPrinters.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessary;
using testing::ElementsAre;

namespace {

QStringList freeNames(const CopySurvey& survey) {
    QStringList names;
    for (const CopyCandidate& candidate : survey.candidates)
        names.append(candidate.freeName);
    return names;
}

FileItem file(const QString& name, qint64 size, std::uint32_t handle = 0) {
    return {name, QStringLiteral("/root/") + name, false, size, std::nullopt, handle};
}

TEST(CopySurveyTest, whatIsNeededFollowsTheChoices) {
    CopySurvey survey;
    for (const char* key : {"a", "b"}) {
        CopyCandidate candidate;
        candidate.key = QString::fromLatin1(key);
        candidate.existing = CopySide{30, std::nullopt};
        candidate.bytes = 100;
        survey.candidates.push_back(candidate);
    }
    const struct {
        const char* name;
        NameClash first;
        NameClash second;
        qint64 needed;
    } rows[] = {
        {"both stay", NameClash::keepBoth, NameClash::keepBoth, 200},
        {"one is left out", NameClash::skip, NameClash::keepBoth, 100},
        {"one old file goes after the copy", NameClash::replace, NameClash::skip, 100},
        {"the first old file has gone before the second", NameClash::replace, NameClash::replace,
         170},
    };
    for (const auto& row : rows)
        EXPECT_EQ(survey.neededBytes(
                      {{QStringLiteral("a"), row.first}, {QStringLiteral("b"), row.second}}),
                  row.needed)
            << row.name;
}

TEST(CopySurveyTest, downloadsAreNamedAndMeasuredBeforeTheyStart) {
    const TemporaryFolder local;
    local.write(QStringLiteral("in/a.txt"), "old!");
    const auto phone = std::make_shared<FakeFileAccess>();
    phone->fill(QStringLiteral("/root"), {QStringLiteral("v1.0/")});
    phone->fill(QStringLiteral("/root/v1.0"), {QStringLiteral("x"), QStringLiteral("y")});
    local.makeFolder(QStringLiteral("in/v1.0"));
    const FileItem folder = phone->itemAt(QStringLiteral("/root/v1.0"), {});
    const FileItem huge = file(QStringLiteral("a.txt"), std::numeric_limits<qint64>::max());
    DownloadPlan plan{
        {huge, file(QStringLiteral("A.txt"), 3, 7), file(QStringLiteral(".."), 5), folder},
        local.path(QStringLiteral("in")),
        {},
        std::nullopt};
    const CopySurvey survey = surveyDownload(phone, plan, {}, {});
    EXPECT_THAT(freeNames(survey), ElementsAre(QStringLiteral("a (2).txt"), QStringLiteral("A.txt"),
                                               QString(), QStringLiteral("v1.0 (2)")));
    ASSERT_TRUE(survey.candidates[0].existing && survey.freeBytes);
    EXPECT_EQ(survey.candidates[0].existing->size, 4);
    EXPECT_EQ(survey.candidates[3].bytes, 20);
    EXPECT_FALSE(survey.isPartial);
    EXPECT_GT(survey.neededBytes({}), *survey.freeBytes);

    // What waits in the queue takes its part, on the same disk.
    plan.queued = {{QStringLiteral("/proc"), *survey.freeBytes}};
    EXPECT_GT(*surveyDownload(phone, plan, {}, {}).freeBytes, *survey.freeBytes / 2);
    plan.queued.push_back({local.path(), *survey.freeBytes});
    EXPECT_LT(*surveyDownload(phone, plan, {}, {}).freeBytes, *survey.freeBytes / 2);
    // A phone that holds less than there is room for is not walked through.
    plan.queued.clear();
    plan.mostBytes = 10;
    const int listed = phone->count(QStringLiteral("list /root/v1.0"));
    (void)surveyDownload(phone, plan, {}, {});
    EXPECT_EQ(phone->count(QStringLiteral("list /root/v1.0")), listed);
}

TEST(CopySurveyTest, uploadsAreNamedByWhatThePhoneHolds) {
    const TemporaryFolder local;
    const auto phone = std::make_shared<FakeFileAccess>();
    phone->fill(QStringLiteral("/root"), {QStringLiteral("A.jpg"), QStringLiteral("Trip/")});
    UploadPlan plan;
    plan.paths = {local.write(QStringLiteral("a.jpg"), "1"),
                  local.write(QStringLiteral("other/A.jpg"), "22"),
                  local.makeFolder(QStringLiteral("Trip"))};
    local.write(QStringLiteral("Trip/deep/x"), "333");
    plan.target = QStringLiteral("/root");
    plan.freeBytes = 5;
    CopySurvey survey = surveyUpload(phone, plan, {}, {});
    EXPECT_THAT(freeNames(survey),
                ElementsAre(QStringLiteral("a (2).jpg"), QStringLiteral("A (3).jpg"),
                            QStringLiteral("Trip (2)")));
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
