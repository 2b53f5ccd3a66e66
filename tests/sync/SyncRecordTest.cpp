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

SyncManifest manifest() {
    const SyncPair pair = samplePair();
    SyncManifest result;
    result.hosts[syncRecordKey(host, pair)] = {u"Desk"_s,
                                               pair.deviceUDID,
                                               pair.appBundleID,
                                               pair.remoteFolderPath,
                                               pair.localFolderPath,
                                               u"R"_s,
                                               1,
                                               at(0),
                                               at(9),
                                               {{u"a"_s, {1, at(0), {}, {}, true}}}};
    return result;
}

TEST(SyncRecordTest, isOfThisVeryPair) {
    using Change = void (*)(SyncPair&);
    const std::pair<const char*, Change> others[] = {
        {"another phone", [](SyncPair& pair) { pair.deviceUDID = u"XYZ"_s; }},
        {"another app", [](SyncPair& pair) { pair.appBundleID = u"org.app"_s; }},
        {"another folder there", [](SyncPair& pair) { pair.remoteFolderPath = u"/DCIM/x"_s; }},
        {"another folder here", [](SyncPair& pair) { pair.localFolderPath = u"/home/you"_s; }},
    };
    const SyncManifest held = manifest();
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
    same.syncMode = SyncMode::toComputer;
    EXPECT_TRUE(syncRecord(held, held, host, same)) << "a path can be written in many ways";
}

TEST(SyncRecordTest, ofOneFolderAndTwoPhonesIsTheNewerOneOfEachPair) {
    const SyncManifest old = manifest();
    SyncManifest newer = old;
    const QString key = old.hosts.begin()->first;
    newer.hosts[key].runNumber = 2;
    EXPECT_EQ(SyncManifest::merged(newer, old).hosts[key].runNumber, 2);
    EXPECT_EQ(SyncManifest::merged(old, newer).hosts[key].runNumber, 2);
}

} // namespace
} // namespace tessary
