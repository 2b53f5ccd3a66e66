#include "ios/helper/IPhoneHelper.h"
#include "support/PluggedIPhone.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

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
    QStringList names;
    for (const AppInfo& each : askIPhoneApps(iphone.udid(), {}))
        names << each.displayName;
    EXPECT_EQ(names, QStringList({u"Apple"_s, u"banana"_s, u"Bundle"_s, u"cherry"_s, u"Notes"_s}));
}

} // namespace
} // namespace tessary
