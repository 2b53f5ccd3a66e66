#include "sync/SyncPair.h"
#include "support/QtPrinters.h"

#include <QJsonObject>
#include <QTimeZone>
#include <gtest/gtest.h>

#include <limits>

namespace tessary {
namespace {

SyncPair samplePair() {
    SyncPair pair;
    pair.id = QUuid::fromString(QStringLiteral("0f2a9c1e-1111-4222-8333-abcdefabcdef"));
    pair.deviceUDID = QStringLiteral("ABC");
    pair.deviceName = QStringLiteral("Pixel");
    pair.appBundleID = SyncPair::deviceStorage;
    pair.appName = QStringLiteral("Internal");
    pair.remoteFolderPath = QStringLiteral("/DCIM/Camera");
    pair.localFolderPath = QStringLiteral("/home/me/Camera");
    return pair;
}

QJsonObject onlyPair(const QJsonArray& json) {
    return json.at(0).toObject();
}

TEST(SyncPairTest, namesOfModesAndFolders) {
    struct Row {
        const char* name;
        SyncMode mode;
        bool moves;
        const char* bundle;
        const char* device;
        const char* remote;
        const char* modeText;
        const char* pathText;
    };
    const Row rows[] = {
        {"storage", SyncMode::toiPhone, false, "device.storage", "x", "/DCIM/Camera", "To Android",
         "Internal: /DCIM/Camera"},
        {"app", SyncMode::toiPhone, false, "org.notes", "Me", "/Documents/Letters", "To iPhone",
         "Internal / Letters"},
        {"app of an android by name", SyncMode::toiPhone, true, "org.notes", "my ANDROID", "/",
         "Move to Android", "Internal (Root)"},
        {"move to phone", SyncMode::toiPhone, true, "org.notes", "Me", "", "Move to iPhone",
         "Internal (Root)"},
        {"move here", SyncMode::toMac, true, "org.notes", "Me", "/a/", "Move to Mac",
         "Internal / a"},
        {"here", SyncMode::toMac, false, "org.notes", "Me", "a", "To Mac", "Internal / a"},
        {"both ignores move", SyncMode::biDirectional, true, "org.notes", "Me", "/",
         "Bi-directional", "Internal (Root)"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        SyncPair pair = samplePair();
        pair.syncMode = row.mode;
        pair.moveFilesEnabled = row.moves;
        pair.appBundleID = QString::fromLatin1(row.bundle);
        pair.deviceName = QString::fromLatin1(row.device);
        pair.remoteFolderPath = QString::fromLatin1(row.remote);
        EXPECT_EQ(pair.modeDisplayName(), QString::fromLatin1(row.modeText));
        EXPECT_EQ(pair.displayRemotePath(), QString::fromLatin1(row.pathText));
    }
}

TEST(SyncPairTest, progressTextsStayWithinTheirTotals) {
    EXPECT_EQ(SyncStatus::syncing({}).label(), QStringLiteral("Syncing…"));
    EXPECT_EQ(SyncStatus::completed().label(), QStringLiteral("Synced"));
    EXPECT_EQ(SyncStatus::error(QStringLiteral("x")).label(), QStringLiteral("Error: x"));
    SyncProgress progress;
    EXPECT_EQ(progress.filesDescription(), QString());
    EXPECT_EQ(progress.progressPercentDescription(), QStringLiteral("0%"));
    progress.totalFiles = 3;
    progress.completedFiles = 1;
    progress.currentFileBytes = 10;
    progress.totalBytes = 3000;
    progress.completedBytes = 1990;
    EXPECT_EQ(progress.filesDescription(), QStringLiteral("2/3"));
    EXPECT_EQ(progress.progressPercentDescription(), QStringLiteral("66%"));
    progress.currentFileBytes = std::numeric_limits<qint64>::max();
    EXPECT_EQ(progress.progressPercentDescription(), QStringLiteral("100%"));
    EXPECT_EQ(progress.bytesDescription(), QStringLiteral("3 kB / 3 kB"));
}

TEST(SyncPairTest, pairListSurvivesItsJson) {
    std::vector<SyncPair> pairs{samplePair(), samplePair()};
    pairs[0].lastSyncedAt = QDateTime(QDate(2024, 2, 29), QTime(1, 2, 3, 500), QTimeZone::utc());
    pairs[0].status = SyncStatus::error(QStringLiteral("boom"));
    pairs[0].progress.completedBytes = (1LL << 53) + 1;
    pairs[1].status = SyncStatus::syncing(QStringLiteral("Scanning folders…"));
    pairs[1].moveFilesEnabled = true;
    const QJsonArray json = encodeSyncPairs(pairs);
    EXPECT_EQ(decodeSyncPairs(json), pairs);

    const QJsonObject object = onlyPair(json);
    EXPECT_EQ(object.value(QStringLiteral("id")).toString(),
              QStringLiteral("0F2A9C1E-1111-4222-8333-ABCDEFABCDEF"));
    EXPECT_DOUBLE_EQ(object.value(QStringLiteral("lastSyncedAt")).toDouble(), 730861323.5);
    EXPECT_EQ(object.value(QStringLiteral("status")).toObject(),
              (QJsonObject{{QStringLiteral("error"),
                            QJsonObject{{QStringLiteral("_0"), QStringLiteral("boom")}}}}));
    EXPECT_FALSE(json.at(1).toObject().contains(QStringLiteral("lastSyncedAt")));
}

TEST(SyncPairTest, fieldsThatOlderListsLackHaveDefaults) {
    QJsonObject object = onlyPair(encodeSyncPairs({samplePair()}));
    for (const char* key : {"deleteSyncEnabled", "moveFilesEnabled", "status", "progress"})
        object.remove(QString::fromLatin1(key));
    const auto pairs = decodeSyncPairs(QJsonArray{object});
    ASSERT_TRUE(pairs);
    EXPECT_EQ(pairs->at(0), samplePair());
}

TEST(SyncPairTest, listWithABadPairIsNoList) {
    using Change = void (*)(QJsonObject&);
    const std::pair<const char*, Change> rows[] = {
        {"no device", [](QJsonObject& o) { o.remove(QStringLiteral("deviceUDID")); }},
        {"bad mode", [](QJsonObject& o) { o[QStringLiteral("syncMode")] = QStringLiteral("Up"); }},
        {"bad id", [](QJsonObject& o) { o[QStringLiteral("id")] = QStringLiteral("7"); }},
        {"status of two keys",
         [](QJsonObject& o) {
             o[QStringLiteral("status")] = QJsonObject{{QStringLiteral("idle"), QJsonObject()},
                                                       {QStringLiteral("error"), QJsonObject()}};
         }},
        {"endless date", [](QJsonObject& o) { o[QStringLiteral("lastSyncedAt")] = 1e300; }},
    };
    for (const auto& [name, change] : rows) {
        QJsonObject object = onlyPair(encodeSyncPairs({samplePair()}));
        change(object);
        EXPECT_FALSE(decodeSyncPairs(QJsonArray{object})) << name;
    }
    EXPECT_FALSE(decodeSyncPairs(QJsonObject()));
    EXPECT_FALSE(decodeSyncPairs(QJsonValue::Undefined));
}

} // namespace
} // namespace tessary
