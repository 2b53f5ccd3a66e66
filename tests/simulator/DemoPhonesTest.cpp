#include "simulator/demo/DemoPhones.h"

#include "simulator/PhoneFixture.h"
#include "simulator/content/DemoContent.h"
#include "support/TemporaryFolder.h"

namespace tessary {
namespace {

TEST(DemoPhones, showTheirContentOverTheirBuses) {
    const TemporaryFolder folder;
    DemoPhones demo(folder.path());
    ASSERT_EQ(demo.bus().devices().size(), 2U);
    RawHost host(demo.bus(), demo.bus().devices()[0].id);
    host.openSession();
    EXPECT_EQ(host.handles(0x00010001).size(), 5U);
    EXPECT_EQ(host.handles(0x00020001).size(), 2U);

    ASSERT_NE(demo.iPhones(), nullptr);
    EXPECT_EQ(qgetenv("USBMUXD_SOCKET_ADDRESS"), demo.iPhones()->mux().address());
    for (const auto& phone : demo.iPhones()->phones())
        EXPECT_TRUE(phone->isPlugged());
    EXPECT_EQ(folder.names(QStringLiteral("iphone/notes/Documents/Journal")).size(),
              DemoContent::notesFiles);
}

} // namespace
} // namespace tessary
