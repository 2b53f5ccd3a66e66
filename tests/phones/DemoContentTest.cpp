#include "phones/DemoContent.h"

#include "phones/DemoMedia.h"
#include "phones/DemoPhones.h"
#include "phones/RawHost.h"
#include "support/TemporaryFolder.h"

#include <QDirIterator>
#include <QtEndian>

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

TEST(DemoContent, picturesAreWholePngFiles) {
    const QByteArray png = DemoMedia::picture(31, 9, 4);
    ASSERT_EQ(png.left(8).toHex(), "89504e470d0a1a0a");
    EXPECT_EQ(png.mid(8, 21).toHex().toStdString(), "0000000d494844520000001f00000009"
                                                    "0802000000");
    // The picture's rows, out of the one IDAT chunk: each has a filter byte and 31 pixels.
    const auto length = static_cast<qsizetype>(qFromBigEndian<quint32>(png.constData() + 33));
    ASSERT_EQ(png.mid(37, 4), "IDAT");
    QByteArray packed("\0\0\0\0", 4);
    EXPECT_EQ(qUncompress(packed + png.mid(41, length)).size(), 9 * (31 * 3 + 1));
    EXPECT_EQ(png.last(12).toHex(), "0000000049454e44ae426082");
}

TEST(DemoContent, soundsAreWholeWavFiles) {
    const QByteArray wav = DemoMedia::melody(3, 1);
    const auto samples = static_cast<qsizetype>(qFromLittleEndian<quint32>(wav.constData() + 40));
    EXPECT_EQ(wav.left(4), "RIFF");
    EXPECT_EQ(wav.mid(36, 4), "data");
    EXPECT_EQ(samples, 3 * 2205 * 2);
    EXPECT_EQ(wav.size(), 44 + samples);
    EXPECT_EQ(qFromLittleEndian<quint32>(wav.constData() + 4), wav.size() - 8);
}

TEST(DemoPhones, showTheirContentOverTheBus) {
    const TemporaryFolder folder;
    DemoPhones demo(folder.path());
    ASSERT_EQ(demo.bus().devices().size(), 2U);
    RawHost host(demo.bus(), demo.bus().devices()[0].id);
    host.openSession();
    EXPECT_EQ(host.run(0x1004).data, RawHost::words({2, 0x00010001, 0x00020001}));
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
