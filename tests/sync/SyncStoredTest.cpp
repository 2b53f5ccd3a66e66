#include "support/QtPrinters.h"
#include "sync/pair/SyncPairJson.h"
#include "sync/plan/SyncManifest.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTimeZone>
#include <gtest/gtest.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

QDateTime date(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return {QDate(year, month, day), QTime(hour, minute, second), QTimeZone::utc()};
}

SyncManifest sample() {
    SyncManifest manifest;
    SyncHostEntry& host = manifest.hosts[u"HOST-1"_s];
    host = {u"Desk"_s,  u"ABC"_s, u"device.storage"_s,        u"/DCIM"_s,           u"/home/me"_s,
            u"RUN-7"_s, 7,        date(2024, 5, 1, 9, 59, 1), date(2024, 5, 1, 10), {}};
    host.files[u"a/b.txt"_s] = {7, date(1969, 12, 31, 23, 59, 59), {}, {}};
    host.files[u"z"_s] = {1LL << 40, date(2107, 12, 31, 23, 59, 58), date(2024, 1, 2),
                          date(9999, 12, 31), true};
    host.files[u"z"_s].sha256 = QByteArray(32, '\xA5');
    return manifest;
}

constexpr const char* sampleJson = R"({
  "hosts" : {
    "HOST-1" : {
      "appBundleID" : "device.storage",
      "deviceUDID" : "ABC",
      "files" : {
        "a/b.txt" : {
          "modifiedDate" : "1969-12-31T23:59:59Z",
          "size" : 7
        },
        "z" : {
          "contentKnown" : true,
          "deviceModifiedDate" : "2024-01-02T00:00:00Z",
          "differingDate" : "9999-12-31T00:00:00Z",
          "modifiedDate" : "2107-12-31T23:59:58Z",
          "sha256" : "a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5",
          "size" : 1099511627776
        }
      },
      "lastSynced" : "2024-05-01T10:00:00Z",
      "localFolderPath" : "/home/me",
      "macName" : "Desk",
      "remoteFolderPath" : "/DCIM",
      "runID" : "RUN-7",
      "runNumber" : 7,
      "startedAt" : "2024-05-01T09:59:01Z"
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

TEST(SyncManifestTest, textThatIsNoManifestIsNone) {
    const QByteArray whole(sampleJson);
    for (qsizetype length = 0; length < whole.size(); ++length)
        ASSERT_FALSE(SyncManifest::decode(whole.left(length))) << length;
    const std::pair<const char*, const char*> replacements[] = {
        {"\"size\" : 7", "\"size\" : \"7\""},
        {"\"modifiedDate\" : \"1969-12-31T23:59:59Z\"", "\"modifiedDate\" : 7"},
        {"2107-12-31", "2107-13-31"},
        {"\"macName\" : \"Desk\"", "\"macName\" : null"},
        {"\"version\" : 1", "\"version\" : \"1\""},
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

SyncPair samplePair() {
    SyncPair pair;
    pair.id = QUuid::fromString(u"0f2a9c1e-1111-4222-8333-abcdefabcdef"_s);
    pair.deviceUDID = u"ABC"_s;
    pair.deviceName = u"Pixel"_s;
    pair.appBundleID = SyncPair::deviceStorage;
    pair.appName = u"Internal"_s;
    pair.remoteFolderPath = u"/DCIM/Camera"_s;
    pair.localFolderPath = u"/home/me/Camera"_s;
    return pair;
}

QJsonObject onlyPair(const QJsonArray& json) {
    return json.at(0).toObject();
}

TEST(SyncPairTest, pairListSurvivesItsJson) {
    std::vector<SyncPair> pairs{samplePair(), samplePair()};
    pairs[0].lastSyncedAt = QDateTime(QDate(2024, 2, 29), QTime(1, 2, 3, 500), QTimeZone::utc());
    pairs[0].status = SyncStatus::error(u"boom"_s);
    pairs[0].progress.completedBytes = (1LL << 53) + 1;
    pairs[1].status = SyncStatus::syncing(SyncStage::scanning);
    pairs[1].moveFilesEnabled = true;
    pairs[1].runsWhenPluggedIn = true;
    pairs[1].patterns = {u"*.tmp"_s};
    const QJsonArray json = encodeSyncPairs(pairs);
    EXPECT_EQ(decodeSyncPairs(json), pairs);

    const QJsonObject object = onlyPair(json);
    EXPECT_EQ(object.value(u"id"_s).toString(), u"0F2A9C1E-1111-4222-8333-ABCDEFABCDEF"_s);
    EXPECT_DOUBLE_EQ(object.value(u"lastSyncedAt"_s).toDouble(), 730861323.5);
    EXPECT_EQ(object.value(u"status"_s).toObject(),
              (QJsonObject{{u"error"_s, QJsonObject{{u"_0"_s, u"boom"_s}}}}));
    EXPECT_FALSE(json.at(1).toObject().contains(u"lastSyncedAt"_s));
}

TEST(SyncPairTest, fieldsThatOlderListsLackHaveDefaults) {
    QJsonObject object = onlyPair(encodeSyncPairs({samplePair()}));
    for (const char* key : {"deleteSyncEnabled", "moveFilesEnabled", "runsWhenPluggedIn",
                            "patterns", "status", "progress"})
        object.remove(QString::fromLatin1(key));
    const auto pairs = decodeSyncPairs(QJsonArray{object});
    ASSERT_TRUE(pairs);
    EXPECT_EQ(pairs->at(0), samplePair());
}

} // namespace
} // namespace tessary
