#include "phones/DemoContent.h"

#include "phones/DemoPhones.h"
#include "phones/PhoneFixture.h"
#include "support/TemporaryFolder.h"

#include <QDirIterator>

#include <map>

namespace tessary {
namespace {

std::map<QString, QByteArray> contents(const TemporaryFolder& folder) {
    std::map<QString, QByteArray> found;
    QDirIterator walk(folder.path(), QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString path = walk.next().mid(folder.path().size() + 1);
        found[path] = folder.read(path);
    }
    return found;
}

TEST(DemoContent, isTheSameAtEachCallAndDatedOverTwoYears) {
    const TemporaryFolder first;
    const TemporaryFolder second;
    ASSERT_TRUE(DemoContent::fillPhone(first.path()));
    ASSERT_TRUE(DemoContent::fillPhone(second.path()));
    EXPECT_EQ(contents(first), contents(second));
    EXPECT_EQ(first.names(QStringLiteral("Download/Archive")).size(), DemoContent::archiveFiles);
    EXPECT_EQ(first.names(QStringLiteral("DCIM/Camera")).size(), 36);

    QDirIterator walk(first.path(), QDir::Files, QDirIterator::Subdirectories);
    QDateTime oldest = DemoContent::newest();
    while (walk.hasNext()) {
        const QDateTime date = QFileInfo(walk.next()).lastModified();
        EXPECT_LE(date, DemoContent::newest());
        oldest = std::min(oldest, date);
    }
    EXPECT_GT(oldest.daysTo(DemoContent::newest()), 500);
    EXPECT_LT(oldest.daysTo(DemoContent::newest()), 800);
}

TEST(DemoPhones, showTheirContentOverTheBus) {
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
