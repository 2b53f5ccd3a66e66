#include "ios/AFCConnection.h"
#include "support/PluggedIPhone.h"
#include "support/QtPrinters.h"

#include <QProcess>

#include <gmock/gmock.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::AllOf;
using testing::HasSubstr;

/// What a tool that is not ours says of the phone at its multiplexer.
std::string run(const PluggedIPhone& iphone, const char* tool, const char* arguments) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"HOME"_s, iphone.disk.path());
    process.setProcessEnvironment(environment);
    process.start(QString::fromLatin1(tool),
                  QString::fromLatin1(arguments).split(u' ', Qt::SkipEmptyParts));
    if (!process.waitForFinished(30'000)) {
        process.kill();
        process.waitForFinished(5'000);
        return "(no end)";
    }
    return (process.readAllStandardOutput() + process.readAllStandardError()).toStdString();
}

TEST(VirtualIPhone, toolsListPhonesTheirValuesAndApps) {
    for (const bool tls : {true, false}) {
        SCOPED_TRACE(tls);
        VirtualIPhoneConfig config;
        config.sessionTls = tls;
        config.serviceTls = tls;
        config.name = u"Zoë’s phone"_s;
        const PluggedIPhone iphone(config);
        EXPECT_EQ(run(iphone, "idevice_id", "-l"), "00008101-000A1B2C3D4E001E\n");
        EXPECT_THAT(run(iphone, "ideviceinfo", ""),
                    AllOf(HasSubstr("DeviceName: Zoë’s phone\n"),
                          HasSubstr("ProductType: iPhone13,2\n"),
                          HasSubstr("UniqueDeviceID: 00008101-000A1B2C3D4E001E\n")));
        EXPECT_THAT(run(iphone, "ideviceinfo", "-q com.apple.disk_usage"),
                    HasSubstr("AmountDataAvailable: 64000000000\n"));
        EXPECT_THAT(run(iphone, "ideviceinstaller", "-l"),
                    HasSubstr("com.example.notes, \"42\", \"Notes\"\n"));
    }
}

TEST(VirtualIPhone, noPathLeavesTheContainer) {
    const PluggedIPhone iphone;
    const QString outside = iphone.disk.write(u"outside/secret"_s, "secret");
    iphone.write(u"inside"_s, "inside");
    QFile::link(iphone.disk.path(u"outside"_s), iphone.disk.path(iphone.inDocuments(u"link"_s)));
    QFile::link(outside, iphone.disk.path(iphone.inDocuments(u"file"_s)));
    AFCConnection client(std::make_unique<Lockdown>(iphone.udid()), PluggedIPhone::bundleId, [] {});
    for (const QString& path : {u"/Documents/../../outside/secret"_s, u"/Documents/link/secret"_s,
                                u"/Documents/file"_s, u"/Documents/../.."_s, u"/Documents/.."_s}) {
        SCOPED_TRACE(path.toStdString());
        EXPECT_THROW(AFCFile(client, path, AFC_FOPEN_RDONLY), Error);
        EXPECT_THROW((void)client.readNames(path), Error);
        try {
            // It may take the place of a link, and go no further.
            AFCFile file(client, path, AFC_FOPEN_WRONLY);
            (void)file.write(std::as_bytes(std::span("inside", 6)));
        } catch (const Error&) {
        }
    }
    EXPECT_NO_THROW(client.removePath(u"/Documents/link"_s));
    EXPECT_THROW(client.removePath(u"/Documents/.."_s), Error);
    EXPECT_THROW(client.renamePath(u"/Documents/inside"_s, u"/Documents/../../out"_s), Error);
    EXPECT_EQ(iphone.disk.names(), (QStringList{u"notes"_s, u"outside"_s}));
    EXPECT_EQ(iphone.disk.names(u"outside"_s), QStringList(u"secret"_s));
    EXPECT_EQ(iphone.disk.read(u"outside/secret"_s), "secret");
    EXPECT_EQ(iphone.read(u"inside"_s), "inside");
}

} // namespace
} // namespace tessary
