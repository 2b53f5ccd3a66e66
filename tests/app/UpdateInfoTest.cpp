#include "app/updates/UpdateInfo.h"
#include "support/QtPrinters.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
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
    const UpdateInfo expected{u"1.10.2"_s, u"Faster \"copies\"."_s,
                              u"https://tessary.example/get"_s, true};
    EXPECT_EQ(parseUpdateManifest(whole), expected);
    EXPECT_EQ(parseUpdateManifest("\xef\xbb\xbf" + whole), expected);
}

TEST(UpdateManifest, handEditedManifestsStillTellTheVersion) {
    const QString defaultNotes = u"A new version of Tessary is available."_s;
    const std::tuple<const char*, QByteArray, QString, QString> rows[] = {
        // name, body, notes, download
        {"fields of other types", R"({"version": "2.0", "build": 7, "mandatory": "yes"})", {}, {}},
        {"notes without their quote and comma",
         "{\"version\": \"2.0\", \"release_notes\": \"New\n  \"download_url\": "
         "\"https://a.example\"}",
         u"New"_s, u"https://a.example"_s},
        {"a comma too many",
         R"({"version" : "2.0", "download_url":"https://a.example", "release_notes": "N",})",
         u"N"_s, u"https://a.example"_s},
        {"broken, with a version only", R"({"version": "2.0",,,)", defaultNotes, {}},
        {"no JSON at all", R"(<p>"version": "2.0"</p>)", defaultNotes, {}},
        {"blank lines without end",
         "{\"version\": \"2.0\",," + QByteArray(200'000, '\n'),
         defaultNotes,
         {}},
    };
    for (const auto& [name, body, notes, download] : rows) {
        SCOPED_TRACE(name);
        const auto info = parseUpdateManifest(body);
        ASSERT_TRUE(info.has_value());
        EXPECT_EQ(info->version, u"2.0"_s);
        EXPECT_EQ(info->releaseNotes, notes);
        EXPECT_EQ(info->downloadUrl, download);
        EXPECT_FALSE(info->mandatory);
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
