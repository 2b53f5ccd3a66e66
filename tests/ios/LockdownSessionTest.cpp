#include "ios/LockdownSession.h"

#include "base/threads/CancellationError.h"
#include "ios/AppLister.h"
#include "support/Failure.h"
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
    for (const unsigned failing : {0U, 4U, 5U}) {
        PluggedIPhone iphone;
        CountedPauses pauses;
        iphone.faults([&](VirtualIPhoneFaults& faults) {
            faults.handshakesToFail = failing;
            faults.handshakeError = u"PasswordProtected"_s;
        });
        EXPECT_EQ(failureOf([&] { LockdownSession(iphone.udid(), {}, pauses.pause); }),
                  failing < 5 ? u"nothing was thrown"_s
                              : u"Lockdown error: Handshake failed: -17"_s);
        EXPECT_EQ(pauses.count, static_cast<int>(std::min(failing, 4U)));
        EXPECT_EQ(iphone.count("lockdown.StartSession"), std::min(failing + 1, 5U));
    }
}

TEST(LockdownSession, aPhoneThatRefusesTrustFailsTheHandshake) {
    VirtualIPhoneConfig config;
    config.isPaired = false;
    config.trust = VirtualTrust::denied;
    PluggedIPhone iphone(config);
    CountedPauses pauses;
    EXPECT_EQ(failureOf([&] { LockdownSession(iphone.udid(), {}, pauses.pause); }),
              u"Lockdown error: Handshake failed: -18"_s);
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

TEST(AppLister, listsTheUsersAppsThatShareFilesFromSeveralAnswers) {
    const TemporaryFolder disk;
    VirtualIPhoneConfig config;
    config.appsPerAnswer = 1;
    for (const QString& name :
         {u"banana"_s, u"Apple"_s, u"cherry"_s, QString(), u"Closed"_s, u"System"_s}) {
        VirtualIPhoneApp app;
        app.bundleID = u"com."_s + name;
        app.displayName = name;
        app.name = u"Bundle"_s;
        app.folder = disk.path(app.bundleID);
        app.sharesFiles = name != u"Closed"_s;
        app.isSystem = name == u"System"_s;
        config.apps.push_back(app);
    }
    PluggedIPhone iphone(config);
    Lockdown session(iphone.udid());
    QStringList names;
    for (const AppInfo& each : AppLister::appsOf(session))
        names << each.displayName;
    EXPECT_EQ(names, QStringList({u"Apple"_s, u"banana"_s, u"Bundle"_s, u"cherry"_s, u"Notes"_s}));
}

} // namespace
} // namespace tessary
