#include "app/UpdateInfo.h"
#include "support/QtPrinters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessary;

namespace {

const QByteArray whole = R"({
  "version": "1.10.2",
  "build": "42",
  "release_notes": "Faster \"copies\".",
  "download_url": "https://tessary.example/get",
  "homepage_url": "https://tessary.example",
  "pub_date": "2026-05-01",
  "mandatory": true
})";

TEST(UpdateManifest, wholeManifestIsRead) {
    const UpdateInfo expected{QStringLiteral("1.10.2"),
                              QStringLiteral("42"),
                              QStringLiteral("Faster \"copies\"."),
                              QStringLiteral("https://tessary.example/get"),
                              QStringLiteral("https://tessary.example"),
                              QStringLiteral("2026-05-01"),
                              true};
    EXPECT_EQ(parseUpdateManifest(whole), expected);
    EXPECT_EQ(parseUpdateManifest("\xef\xbb\xbf" + whole), expected);
}

TEST(UpdateManifest, handEditedManifestsStillTellTheVersion) {
    const QString defaultNotes = QStringLiteral("A new version of Tessary is available.");
    struct Row {
        const char* name;
        QByteArray body;
        const char* version;
        QString notes;
        const char* download;
    };
    const Row rows[] = {
        {"only a version", R"({"version": "2.0"})", "2.0", {}, ""},
        {"other fields of other types",
         R"({"version": "2.0", "build": 7, "mandatory": "yes"})",
         "2.0",
         {},
         ""},
        {"notes without their quote and comma",
         "{\"version\": \"2.0\", \"release_notes\": \"New\n  \"download_url\": "
         "\"https://a.example\"}",
         "2.0", QStringLiteral("New"), "https://a.example"},
        {"the same with more lines",
         "{\n  \"version\": \"2.0\",\n  \"release_notes\": \"New\n  \"pub_date\": \"today\"\n}",
         "2.0", QStringLiteral("New\n  "), ""},
        {"a comma too many",
         R"({"version" : "2.0", "download_url":"https://a.example", "release_notes": "N",})", "2.0",
         QStringLiteral("N"), "https://a.example"},
        {"blank lines without end", "{\"version\": \"2.0\",," + QByteArray(200'000, '\n'), "2.0",
         defaultNotes, ""},
        {"broken, with a version only", R"({"version": "2.0",,,)", "2.0", defaultNotes, ""},
        {"no JSON at all", R"(<p>"version": "2.0"</p>)", "2.0", defaultNotes, ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto info = parseUpdateManifest(row.body);
        ASSERT_TRUE(info.has_value());
        EXPECT_EQ(info->version, QString::fromLatin1(row.version));
        EXPECT_EQ(info->releaseNotes, row.notes);
        EXPECT_EQ(info->downloadUrl, QString::fromLatin1(row.download));
        EXPECT_FALSE(info->mandatory);
    }
}

TEST(UpdateManifest, withoutAVersionThereIsNothing) {
    for (const QByteArray& body :
         {QByteArray(), QByteArray("{}"), QByteArray("[]"), QByteArray("<html>404</html>"),
          QByteArray(R"({"version": ""})"), QByteArray(R"({"version": 2})"),
          QByteArray("\xff\xfe\0\0", 4), QByteArray(100'000, '['), QByteArray(50'000, '\n')})
        EXPECT_EQ(parseUpdateManifest(body), std::nullopt) << body.left(20).toStdString();
}

TEST(UpdateManifest, everyCutOfAManifestIsTaken) {
    for (qsizetype size = 0; size < whole.size(); ++size) {
        const auto info = parseUpdateManifest(whole.left(size));
        EXPECT_TRUE(!info || info->version == QStringLiteral("1.10.2")) << size;
    }
}

TEST(Versions, digitsCompareAsNumbers) {
    const std::pair<const char*, const char*> rows[] = {
        {"1.10", "1.9"},
        {"1.9.1", "1.9"},
        {"2", "1.99.99"},
        {"1.0b", "1.0"},
        {"1.01.1", "1.1"},
        {"0.2", "0.1.9"},
        {"99999999999999999999.1", "99999999999999999999"},
    };
    for (const auto& [newer, older] : rows) {
        const QString after = QString::fromLatin1(newer);
        const QString before = QString::fromLatin1(older);
        EXPECT_TRUE(isNewerVersion(after, before)) << newer;
        EXPECT_FALSE(isNewerVersion(before, after)) << newer;
        EXPECT_FALSE(isNewerVersion(after, after)) << newer;
    }
}

} // namespace
