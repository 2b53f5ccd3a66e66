#include "support/PluggedIPhone.h"
#include "support/ProgramRun.h"
#include "support/QtPrinters.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::AllOf;
using testing::HasSubstr;

/// What a tool that is not ours says of the phone at its multiplexer.
std::string run(const PluggedIPhone& iphone, const char* tool, const char* arguments) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"HOME"_s, iphone.disk.path());
    const ProgramRun run(QString::fromLatin1(tool),
                         QString::fromLatin1(arguments).split(u' ', Qt::SkipEmptyParts),
                         environment);
    return (run.out + run.error).toStdString();
}

TEST(VirtualIPhone, toolsListPhonesTheirValuesAndApps) {
    for (const bool tls : {true, false}) {
        SCOPED_TRACE(tls);
        const PluggedIPhone iphone(
            {.name = u"Zoë’s phone"_s, .sessionTls = tls, .serviceTls = tls});
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

} // namespace
} // namespace tessary
