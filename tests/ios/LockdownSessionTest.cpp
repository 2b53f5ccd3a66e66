#include "ios/LockdownSession.h"

#include "core/CancellationError.h"
#include "ios/AppLister.h"
#include "support/IOSFailure.h"
#include "support/PluggedIPhone.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <thread>

namespace tessary {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

/// Pauses that are counted and take no time.
struct CountedPauses {
    int count = 0;
    LockdownSession::Pause pause = [this](std::chrono::milliseconds time, const std::stop_token&) {
        EXPECT_EQ(time, 250ms);
        ++count;
    };
};

TEST(LockdownSession, aDeviceThatIsNotThereIsLookedUpFiveTimes) {
    PluggedIPhone iphone;
    CountedPauses pauses;
    EXPECT_EQ(failureOf([&] { LockdownSession(u"absent"_s, {}, pauses.pause); }),
              u"Device not found: absent"_s);
    EXPECT_EQ(iphone.mux.log().count(u"mux.ListDevices"_s), 5U);
    EXPECT_EQ(pauses.count, 4);
}

TEST(LockdownSession, aPhoneThatIsStillStartingIsGivenFiveAttempts) {
    for (const unsigned failing : {0U, 1U, 4U}) {
        PluggedIPhone iphone;
        CountedPauses pauses;
        iphone.faults([&](VirtualIPhoneFaults& faults) { faults.handshakesToFail = failing; });
        const LockdownSession session(iphone.udid(), {}, pauses.pause);
        EXPECT_NE(session.client(), nullptr);
        EXPECT_EQ(pauses.count, static_cast<int>(failing));
        EXPECT_EQ(iphone.count("lockdown.StartSession"), failing + 1);
    }
    PluggedIPhone iphone;
    CountedPauses pauses;
    iphone.faults([](VirtualIPhoneFaults& faults) {
        faults.handshakesToFail = 100;
        faults.handshakeError = u"PasswordProtected"_s;
    });
    EXPECT_EQ(failureOf([&] { LockdownSession(iphone.udid(), {}, pauses.pause); }),
              u"Lockdown error: Handshake failed: -17"_s);
    EXPECT_EQ(pauses.count, 4);
    EXPECT_EQ(iphone.count("lockdown.StartSession"), 5U);
}

TEST(LockdownSession, aPhoneThatRefusesTrustFailsTheHandshake) {
    VirtualIPhoneConfig config;
    config.isPaired = false;
    for (const auto& [trust, status] :
         {std::pair(VirtualTrust::asking, -19), std::pair(VirtualTrust::denied, -18)}) {
        config.trust = trust;
        PluggedIPhone iphone(config);
        CountedPauses pauses;
        EXPECT_EQ(failureOf([&] { LockdownSession(iphone.udid(), {}, pauses.pause); }),
                  u"Lockdown error: Handshake failed: %1"_s.arg(status));
    }
}

TEST(LockdownSession, stopEndsThePauseBetweenTwoAttempts) {
    PluggedIPhone iphone;
    std::stop_source stop;
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_THROW(LockdownSession(u"absent"_s, stop.get_token(),
                                 [&](std::chrono::milliseconds, const std::stop_token& token) {
                                     stop.request_stop();
                                     LockdownSession::waitFor(1h, token);
                                 }),
                 CancellationError);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 10s);
}

TEST(LockdownSession, tellsNameAndStorage) {
    VirtualIPhoneConfig config;
    config.name = u"Ada’s iPhone"_s;
    config.capacity = 64'000'000'000;
    config.free = 20'000'000'000;
    const struct {
        VirtualDiskUsage form;
        std::optional<StorageInfo> expected;
    } rows[] = {{VirtualDiskUsage::full, StorageInfo{20'000'000'000, 64'000'000'000}},
                {VirtualDiskUsage::empty, {}},
                {VirtualDiskUsage::refused, {}}};
    for (const auto& row : rows) {
        config.diskUsage = row.form;
        PluggedIPhone iphone(config);
        LockdownSession session(iphone.udid());
        EXPECT_EQ(session.deviceName(), config.name);
        EXPECT_EQ(session.getStorageInfo(), row.expected) << static_cast<int>(row.form);
        EXPECT_FALSE(session.usesNetwork());
    }
}

VirtualIPhoneApp app(const QString& bundleID, const QString& displayName,
                     const TemporaryFolder& on) {
    VirtualIPhoneApp made;
    made.bundleID = bundleID;
    made.displayName = displayName;
    made.name = u"Bundle of "_s + bundleID;
    made.folder = on.path(bundleID);
    return made;
}

TEST(AppLister, listsTheUsersAppsThatShareFilesFromSeveralAnswers) {
    const TemporaryFolder disk;
    VirtualIPhoneConfig config;
    config.appsPerAnswer = 1;
    config.apps = {app(u"com.b"_s, u"banana"_s, disk),      app(u"com.a"_s, u"Apple"_s, disk),
                   app(u"com.c"_s, u"cherry"_s, disk),      app(u"com.empty"_s, u""_s, disk),
                   app(u"com.closed"_s, u"Closed"_s, disk), app(u"com.sys"_s, u"System"_s, disk)};
    config.apps[4].sharesFiles = false;
    config.apps[5].isSystem = true;
    PluggedIPhone iphone(config);
    LockdownSession session(iphone.udid());
    QStringList names;
    for (const AppInfo& each : AppLister::listFileSharingApps(session))
        names << each.displayName;
    EXPECT_EQ(names, QStringList({u"Apple"_s, u"banana"_s, u"Bundle of com.empty"_s, u"cherry"_s,
                                  u"Notes"_s}));
}

TEST(AppLister, refusalsAreNamed) {
    PluggedIPhone iphone;
    LockdownSession session(iphone.udid());
    iphone.faults([](VirtualIPhoneFaults& faults) { faults.browseError = u"APIInternalError"_s; });
    EXPECT_EQ(failureOf([&] { (void)AppLister::listFileSharingApps(session); }),
              u"InstProxy error: Browse failed: -8"_s);
    iphone.faults([](VirtualIPhoneFaults& faults) {
        faults.serviceErrors[u"com.apple.mobile.installation_proxy"_s] = u"PasswordProtected"_s;
    });
    EXPECT_EQ(failureOf([&] { (void)AppLister::listFileSharingApps(session); }),
              u"Failed to start service: com.apple.mobile.installation_proxy failed: -17"_s);
}

} // namespace
} // namespace tessary
