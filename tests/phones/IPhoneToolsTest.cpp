#include "phones/IPhoneFixture.h"

#include <QProcess>
#include <QStandardPaths>

namespace tessary {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/// What a tool that is not ours makes of the virtual phone.
class IPhoneToolsTest : public IPhoneFixture {
protected:
    std::string run(const QString& tool, const QStringList& arguments) {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), folder_.path());
        process.setProcessEnvironment(environment);
        process.start(tool, arguments);
        if (!process.waitForFinished(30'000)) {
            process.kill();
            process.waitForFinished(5'000);
            return "(no end)";
        }
        return (process.readAllStandardOutput() + process.readAllStandardError()).toStdString();
    }
    std::string run(const char* tool, const char* arguments) {
        return run(QString::fromLatin1(tool),
                   QString::fromLatin1(arguments).split(u' ', Qt::SkipEmptyParts));
    }
};

TEST_F(IPhoneToolsTest, phonesAreListedWhileTheyArePluggedIn) {
    EXPECT_THAT(run("idevice_id", "-l"), Not(HasSubstr("0000")));
    plugIn();
    VirtualIPhoneConfig other = config();
    other.udid = QStringLiteral("1c2d3e4f5a6b7c8d9e0f1c2d3e4f5a6b7c8d9e0f");
    VirtualIPhone old(other);
    old.plugInto(*mux_);
    EXPECT_EQ(run("idevice_id", "-l"), "00008101-000A1B2C3D4E001E\n"
                                       "1c2d3e4f5a6b7c8d9e0f1c2d3e4f5a6b7c8d9e0f\n");
    phone_->unplug();
    EXPECT_EQ(run("idevice_id", "-l"), "1c2d3e4f5a6b7c8d9e0f1c2d3e4f5a6b7c8d9e0f\n");
}

TEST_F(IPhoneToolsTest, valuesAreTold) {
    for (const bool tls : {true, false}) {
        VirtualIPhoneConfig made = config();
        made.sessionTls = tls;
        made.name = QStringLiteral("Zoë’s phone");
        plugIn(made);
        EXPECT_THAT(run("ideviceinfo", ""),
                    AllOf(HasSubstr("DeviceName: Zoë’s phone\n"),
                          HasSubstr("ProductType: iPhone13,2\n"),
                          HasSubstr("ProductVersion: 16.7.2\n"),
                          HasSubstr("UniqueDeviceID: 00008101-000A1B2C3D4E001E\n")))
            << tls;
        EXPECT_THAT(run("ideviceinfo", "-q com.apple.disk_usage"),
                    AllOf(HasSubstr("TotalDiskCapacity: 128000000000\n"),
                          HasSubstr("AmountDataAvailable: 64000000000\n")));
        EXPECT_THAT(run("ideviceinfo", "-q com.apple.mobile.battery"),
                    HasSubstr("BatteryCurrentCapacity: 80\n"));
        phone_.reset();
    }
}

TEST_F(IPhoneToolsTest, appsAreListed) {
    for (const bool tls : {false, true}) {
        VirtualIPhoneConfig made = config();
        made.serviceTls = tls;
        plugIn(made);
        EXPECT_THAT(run("ideviceinstaller", "-l"),
                    AllOf(HasSubstr("org.test.notes, \"42\", \"Notes\"\n"),
                          HasSubstr("org.test.paint, \"42\", \"Paint\"\n"),
                          HasSubstr("org.test.closed, \"42\", \"Closed\"\n")))
            << tls;
        phone_.reset();
    }
}

TEST_F(IPhoneToolsTest, pairingFollowsWhatTheOwnerOfThePhoneAnswers) {
    VirtualIPhoneConfig made = config();
    made.isPaired = false;
    made.trust = VirtualTrust::asking;
    plugIn(made);
    EXPECT_THAT(run("idevicepair", "pair"), HasSubstr("trust dialog"));
    phone_->setTrust(VirtualTrust::denied);
    EXPECT_THAT(run("idevicepair", "pair"), HasSubstr("denied"));
    phone_->setLocked(true);
    EXPECT_THAT(run("idevicepair", "pair"), HasSubstr("passcode"));
    phone_->setLocked(false);
    phone_->setTrust(VirtualTrust::trusted);
    EXPECT_THAT(run("idevicepair", "pair"), HasSubstr("SUCCESS"));
    EXPECT_THAT(run("idevicepair", "validate"), HasSubstr("SUCCESS"));
    EXPECT_THAT(run("ideviceinfo", "-k DeviceName"), HasSubstr("iPhone"));
    EXPECT_THAT(run("idevicepair", "unpair"), HasSubstr("SUCCESS"));
    EXPECT_EQ(phone_->requestCount(QStringLiteral("lockdown.Unpair")), 1U);
}

} // namespace
} // namespace tessary
