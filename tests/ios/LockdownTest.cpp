#include "ios/Lockdown.h"

#include "base/threads/CancellationError.h"
#include "ios/AppLister.h"
#include "ios/IPhoneError.h"
#include "phone/PhoneError.h"
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
    Lockdown::Pause pause = [this](std::chrono::milliseconds time, const std::stop_token&) {
        EXPECT_EQ(time, 250ms);
        ++count;
    };
};

/// What a handshake ends with; no value when a session is open.
std::optional<PhoneError> refusalOf(const QString& udid, const CountedPauses& pauses) {
    try {
        const Lockdown session(udid, {}, pauses.pause);
        return std::nullopt;
    } catch (const Error& error) {
        return error.code().as<PhoneError>();
    }
}

TEST(Lockdown, aDeviceThatIsNotThereIsLookedUpFiveTimes) {
    PluggedIPhone iphone;
    CountedPauses pauses;
    EXPECT_EQ(refusalOf(u"absent"_s, pauses), PhoneError::notConnected);
    EXPECT_EQ(iphone.mux.log().count(u"mux.ListDevices"_s), 5U);
    EXPECT_EQ(pauses.count, 4);
}

TEST(Lockdown, aPhoneThatIsStillStartingIsGivenFiveAttempts) {
    for (const unsigned failing : {0U, 4U, 5U}) {
        PluggedIPhone iphone;
        CountedPauses pauses;
        iphone.faults([&](VirtualIPhoneFaults& faults) {
            faults.handshakesToFail = failing;
            faults.handshakeError = u"PasswordProtected"_s;
        });
        EXPECT_EQ(refusalOf(iphone.udid(), pauses),
                  failing < 5 ? std::nullopt : std::optional(PhoneError::locked));
        EXPECT_EQ(pauses.count, static_cast<int>(std::min(failing, 4U)));
        EXPECT_EQ(iphone.count("lockdown.StartSession"), std::min(failing + 1, 5U));
    }
}

TEST(Lockdown, stopEndsThePauseBetweenTwoAttempts) {
    PluggedIPhone iphone;
    std::stop_source stop;
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_THROW(Lockdown(u"absent"_s, stop.get_token(),
                          [&](std::chrono::milliseconds, const std::stop_token& token) {
                              stop.request_stop();
                              Lockdown::waitFor(1h, token);
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
