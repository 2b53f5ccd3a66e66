#include "sync/SyncManifest.h"
#include "support/QtPrinters.h"

#include <QJsonDocument>
#include <QTimeZone>
#include <gtest/gtest.h>

#include <chrono>

namespace tessary {
namespace {

QDateTime date(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return {QDate(year, month, day), QTime(hour, minute, second), QTimeZone::utc()};
}

SyncManifest sample() {
    SyncManifest manifest;
    SyncHostEntry& host = manifest.hosts[QStringLiteral("HOST-1")];
    host = {QStringLiteral("Desk"),     QStringLiteral("ABC"), QStringLiteral("/DCIM"),
            QStringLiteral("/home/me"), date(2024, 5, 1, 10),  {}};
    host.files[QStringLiteral("a/b.txt")] = {7, date(1969, 12, 31, 23, 59, 59), {}, {}};
    host.files[QStringLiteral("z")] = {1LL << 40, date(2107, 12, 31, 23, 59, 58), date(2024, 1, 2),
                                       date(9999, 12, 31)};
    return manifest;
}

constexpr const char* sampleJson = R"({
  "hosts" : {
    "HOST-1" : {
      "deviceUDID" : "ABC",
      "files" : {
        "a/b.txt" : {
          "modifiedDate" : "1969-12-31T23:59:59Z",
          "size" : 7
        },
        "z" : {
          "deviceModifiedDate" : "2024-01-02T00:00:00Z",
          "differingDate" : "9999-12-31T00:00:00Z",
          "modifiedDate" : "2107-12-31T23:59:58Z",
          "size" : 1099511627776
        }
      },
      "lastSynced" : "2024-05-01T10:00:00Z",
      "localFolderPath" : "/home/me",
      "macName" : "Desk",
      "remoteFolderPath" : "/DCIM"
    }
  },
  "version" : 1
})";

TEST(SyncManifestTest, jsonIsSortedAndDatedInWholeSeconds) {
    EXPECT_EQ(sample().encode().toStdString(), sampleJson);
    EXPECT_EQ(SyncManifest::decode(sampleJson), sample());
    EXPECT_EQ(SyncManifest::decode(SyncManifest().encode()), SyncManifest());
    // Fractions are cut off, in front of 1970 too, and other zones understood.
    SyncManifest manifest = sample();
    auto& entry = manifest.hosts.begin()->second.files.begin()->second;
    entry.modifiedDate = entry.modifiedDate.addMSecs(999);
    EXPECT_EQ(manifest.encode().toStdString(), sampleJson);
    QByteArray zoned(sampleJson);
    zoned.replace("2024-05-01T10:00:00Z", "2024-05-01T12:00:00+02:00");
    EXPECT_EQ(SyncManifest::decode(zoned), sample());
}

TEST(SyncManifestTest, anyNameSurvives) {
    SyncManifest manifest = sample();
    auto& files = manifest.hosts.begin()->second.files;
    for (const QString& name :
         {QStringLiteral("\"quoted\"\\"), QStringLiteral("line\nbreak\x01"),
          QStringLiteral("snow ☃ and 😀"), QString(QChar(0xD83D)) + QStringLiteral("x"),
          QStringLiteral("é"), QStringLiteral("e\u0301"), QStringLiteral("… x")})
        files[name] = {1, date(2020, 1, 1), {}, {}};
    const QByteArray json = manifest.encode();
    EXPECT_FALSE(QJsonDocument::fromJson(json).isNull());
    EXPECT_EQ(SyncManifest::decode(json), manifest);
}

TEST(SyncManifestTest, textThatIsNoManifestIsNone) {
    const QByteArray whole(sampleJson);
    for (qsizetype length = 0; length < whole.size(); ++length)
        ASSERT_FALSE(SyncManifest::decode(whole.left(length))) << length;
    const std::pair<const char*, const char*> replacements[] = {
        {"\"size\" : 7", "\"size\" : \"7\""},
        {"\"modifiedDate\" : \"1969-12-31T23:59:59Z\"", "\"modifiedDate\" : 7"},
        {"2107-12-31", "2107-13-31"},
        {"2107-12-31", "21O7-12-31"},
        {"\"macName\" : \"Desk\"", "\"macName\" : null"},
        {"\"version\" : 1", "\"version\" : \"1\""},
        {"\"lastSynced\"", "\"synced\""},
    };
    for (const auto& [from, to] : replacements)
        EXPECT_FALSE(SyncManifest::decode(QByteArray(whole).replace(from, to))) << to;
    EXPECT_FALSE(SyncManifest::decode(QByteArray(100'000, '[')));
}

TEST(SyncManifestTest, hostileKeysAndSizesAreLeftOut) {
    for (const char* key : {"../x", "/x", "a//b", "", "a/", ".", "a/../b", ".tessary.sync",
                            "a/.tessary.sync", "a\\u0000b"}) {
        const QByteArray json = QByteArray(sampleJson).replace("a/b.txt", key);
        const auto manifest = SyncManifest::decode(json);
        ASSERT_TRUE(manifest) << key;
        EXPECT_EQ(manifest->hosts.begin()->second.files.size(), 1U) << key;
    }
    for (const char* size : {"-1", "1e300", "0.5"}) {
        const auto manifest = SyncManifest::decode(
            QByteArray(sampleJson).replace("\"size\" : 7", QByteArray("\"size\" : ") + size));
        ASSERT_TRUE(manifest) << size;
        EXPECT_EQ(manifest->hosts.begin()->second.files.size(), 1U) << size;
    }
    EXPECT_EQ(
        SyncManifest::decode(QByteArray(sampleJson).replace("\"version\" : 1", "\"version\" : -3"))
            ->version,
        1);
}

TEST(SyncManifestTest, deviceCopyWinsInAMerge) {
    const auto with = [](std::initializer_list<const char*> hosts, const char* name, int version) {
        SyncManifest manifest;
        manifest.version = version;
        for (const char* host : hosts)
            manifest.hosts[QString::fromLatin1(host)].macName = QString::fromLatin1(name);
        return manifest;
    };
    const SyncManifest both =
        SyncManifest::merged(with({"H1", "H2"}, "here", 2), with({"H2", "H3"}, "device", 3));
    EXPECT_EQ(both.version, 3);
    ASSERT_EQ(both.hosts.size(), 3U);
    EXPECT_EQ(both.hosts.at(QStringLiteral("H1")).macName, QStringLiteral("here"));
    EXPECT_EQ(both.hosts.at(QStringLiteral("H2")).macName, QStringLiteral("device"));
    EXPECT_EQ(SyncManifest::merged({}, {}), SyncManifest());
    EXPECT_EQ(SyncManifest::merged(with({}, "", -5), {}).version, 1);
}

TEST(SyncManifestTest, hundredThousandFilesAreQuick) {
    SyncManifest manifest = sample();
    auto& files = manifest.hosts.begin()->second.files;
    for (int n = 0; n < 100'000; ++n)
        files[QStringLiteral("DCIM/Camera %1/IMG_2024_%2.jpg").arg(n % 97).arg(n * 7919)] = {
            n, date(2024, 1, 1).addSecs(n), date(2024, 1, 2).addSecs(n), {}};
    using Clock = std::chrono::steady_clock;
    const auto begin = Clock::now();
    const QByteArray json = manifest.encode();
    const auto encoded = Clock::now();
    const auto decoded = SyncManifest::decode(json);
    const auto end = Clock::now();
    EXPECT_EQ(decoded, manifest);
    const auto milliseconds = [](auto duration) {
        return static_cast<int>(
            std::chrono::duration_cast<std::chrono::milliseconds>(duration).count());
    };
    RecordProperty("encodeMilliseconds", milliseconds(encoded - begin));
    RecordProperty("decodeMilliseconds", milliseconds(end - encoded));
    // Sanitizers and busy machines slow everything; the wrong algorithm would take minutes.
    EXPECT_LT(milliseconds(encoded - begin), 20'000);
    EXPECT_LT(milliseconds(end - encoded), 20'000);
}

} // namespace
} // namespace tessary
