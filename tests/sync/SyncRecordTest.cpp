#include "sync/plan/SyncRecord.h"
#include "support/QtPrinters.h"

#include <QTimeZone>
#include <gtest/gtest.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

const QString host = u"HOST"_s;

QDateTime at(int seconds) {
    return QDateTime::fromSecsSinceEpoch(1'700'000'000 + seconds, QTimeZone::utc());
}

SyncPair samplePair() {
    SyncPair pair;
    pair.deviceUDID = u"ABC"_s;
    pair.appBundleID = SyncPair::deviceStorage;
    pair.remoteFolderPath = u"/DCIM"_s;
    pair.localFolderPath = u"/home/me/Camera"_s;
    return pair;
}

SyncHostEntry entry(const QString& run, qint64 number, const QString& file) {
    const SyncPair pair = samplePair();
    return {u"Desk"_s,
            pair.deviceUDID,
            pair.appBundleID,
            pair.remoteFolderPath,
            pair.localFolderPath,
            run,
            number,
            at(0),
            at(9),
            {{file, {1, at(0), {}, {}, true}}}};
}

SyncManifest manifest(const SyncHostEntry& held) {
    SyncManifest result;
    result.hosts[syncRecordKey(host, samplePair())] = held;
    return result;
}

TEST(SyncRecordTest, countsOnlyWhereBothSidesHoldOneRun) {
    const SyncHostEntry old = entry(u"R1"_s, 1, u"old"_s);
    const SyncHostEntry newer = entry(u"R2"_s, 2, u"new"_s);
    const SyncHostEntry without = entry(QString(), 0, u"old"_s);
    struct Row {
        const char* name;
        std::optional<SyncHostEntry> local;
        std::optional<SyncHostEntry> device;
        const char* file; ///< of the record; null: none
        bool isShared;
    };
    const Row rows[] = {
        {"same run", newer, newer, "new", true},
        {"device has an older one", newer, old, "new", false},
        {"device has a newer one", old, newer, "new", false},
        {"here only", newer, {}, nullptr, false},
        {"there only", {}, newer, nullptr, false},
        {"of a time without runs", without, without, "old", false},
        {"none", {}, {}, nullptr, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto local = row.local ? std::optional(manifest(*row.local)) : std::nullopt;
        const auto device = row.device ? std::optional(manifest(*row.device)) : std::nullopt;
        const auto record = syncRecord(local, device, host, samplePair());
        ASSERT_EQ(record.has_value(), row.file != nullptr);
        EXPECT_EQ(filesOnceSynced(local, device, host, samplePair()),
                  row.local || row.device ? std::optional<qint64>(1) : std::nullopt);
        if (!record)
            continue;
        EXPECT_EQ(record->files.begin()->first, QString::fromUtf8(row.file));
        EXPECT_EQ(record->isShared, row.isShared);
        EXPECT_EQ(record->files.begin()->second.isContentKnown, row.isShared);
    }
}

TEST(SyncRecordTest, isOfThisVeryPair) {
    using Change = void (*)(SyncPair&);
    const std::pair<const char*, Change> others[] = {
        {"another phone", [](SyncPair& pair) { pair.deviceUDID = u"XYZ"_s; }},
        {"another app", [](SyncPair& pair) { pair.appBundleID = u"org.app"_s; }},
        {"another folder there", [](SyncPair& pair) { pair.remoteFolderPath = u"/DCIM/x"_s; }},
        {"another folder here", [](SyncPair& pair) { pair.localFolderPath = u"/home/you"_s; }},
    };
    const SyncManifest held = manifest(entry(u"R"_s, 1, u"a"_s));
    for (const auto& [name, change] : others) {
        SCOPED_TRACE(name);
        SyncPair other = samplePair();
        change(other);
        EXPECT_NE(syncRecordKey(host, other), syncRecordKey(host, samplePair()));
        // Not even under the very key: the entry names what it is about.
        SyncManifest forged;
        forged.hosts[syncRecordKey(host, other)] = held.hosts.begin()->second;
        EXPECT_FALSE(syncRecord(forged, forged, host, other));
    }
    EXPECT_FALSE(syncRecord(held, held, u"OTHER COMPUTER"_s, samplePair()));
    SyncPair same = samplePair();
    same.id = QUuid::createUuid();
    same.remoteFolderPath = u"DCIM/"_s;
    same.localFolderPath = u"/home/me/../me/Camera/"_s;
    same.syncMode = SyncMode::toMac;
    EXPECT_TRUE(syncRecord(held, held, host, same)) << "a path can be written in many ways";
}

} // namespace
} // namespace tessary
