#include "phones/PhoneFixture.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

namespace tessary {
namespace {

/// What a phone reads and writes, in bytes that were written by hand.
class MTPResponderBytes : public PhoneFixture {
protected:
    void expect(std::string_view sent, std::initializer_list<std::string_view> received) {
        ASSERT_EQ(host().write(hexBytes(sent)), usb::success);
        for (const std::string_view transfer : received)
            EXPECT_EQ(hexText(next()), hexText(hexBytes(transfer)));
    }
    Bytes next() {
        Bytes bytes;
        EXPECT_EQ(host().read(bytes), usb::success);
        return bytes;
    }
    static std::string hexText(ByteView bytes) {
        return asArray(bytes).toHex().toStdString();
    }
    void openTheSession() {
        expect("10000000 0100 0210 00000000 01000000", {"0C000000 0300 0120 00000000"});
    }
    void setDate(const QString& path, const char* isoText) {
        QFile file(phone_.disk.path(path));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(
            file.setFileTime(QDateTime::fromString(QString::fromLatin1(isoText), Qt::ISODate),
                             QFileDevice::FileModificationTime));
    }
};

TEST_F(MTPResponderBytes, deviceInfoNeedsNoSession) {
    behave([](VirtualBehaviour& behaviour) {
        for (std::uint16_t code = 0x1003; code < 0x9900; ++code)
            behaviour.unsupportedOperations.insert(code);
    });
    expect(
        "0C000000 0100 0110 00000000",
        {"CF000000 0200 0110 00000000"
         "6400 06000000 6400"
         "26 'microsoft.com: 1.0; android.com: 1.0;' 0000 0000"
         "02000000 0110 0210"
         "04000000 0240 0340 0440 0540"
         "01000000 0150"
         "00000000"
         "10000000 0030 0130 0138 0B38 0738 0438 0D38 0430 0530 0830 0930 03B9 06B9 0A30 82B9 0B30"
         "07 'Google' 0000 08 'Pixel 7' 0000 04 '1.0' 0000 00",
         "0C000000 0300 0120 00000000"});
}

TEST_F(MTPResponderBytes, objectsAndTheirFacts) {
    phone_.write(QStringLiteral("b/inner.txt"), "hello");
    phone_.write(QStringLiteral("a.JPG"), QByteArray(600, 'x'));
    setDate(QStringLiteral("0/a.JPG"), "2024-01-31T23:59:58");
    setDate(QStringLiteral("0/b/inner.txt"), "2023-02-03T04:05:06");
    openTheSession();
    expect(
        "18000000 0100 0710 01000000 01000100 00000000 FFFFFFFF",
        {"18000000 0200 0710 01000000 02000000 01000001 02000001", "0C000000 0300 0120 01000000"});
    expect("10000000 0100 0810 02000000 01000001",
           {"90000000 0200 0810 02000000"
            "01000100 0138 0000 58020000 0000 00000000 00000000 00000000 00000000 00000000 00000000"
            "00000000 0000 00000000 00000000"
            "06 'a.JPG' 0000 10 '20240131T235958' 0000 10 '20240131T235958' 0000 00",
            "0C000000 0300 0120 02000000"});
    expect("18000000 0100 0710 03000000 01000100 00000000 02000001",
           {"14000000 0200 0710 03000000 01000000 03000001", "0C000000 0300 0120 03000000"});
    expect("10000000 0100 0810 04000000 03000001",
           {"98000000 0200 0810 04000000"
            "01000100 0430 0000 05000000 0000 00000000 00000000 00000000 00000000 00000000 00000000"
            "02000001 0000 00000000 00000000"
            "0A 'inner.txt' 0000 10 '20230203T040506' 0000 10 '20230203T040506' 0000 00",
            "0C000000 0300 0120 04000000"});
    expect("10000000 0100 0910 05000000 03000001",
           {"11000000 0200 0910 05000000 68656C6C6F", "0C000000 0300 0120 05000000"});
    expect("18000000 0100 1B10 06000000 03000001 01000000 03000000",
           {"0F000000 0200 1B10 06000000 656C6C", "10000000 0300 0120 06000000 03000000"});
    expect("14000000 0100 0398 07000000 01000001 04DC0000",
           {"14000000 0200 0398 07000000 5802000000000000", "0C000000 0300 0120 07000000"});
    expect("14000000 0100 0398 08000000 03000001 07DC0000",
           {"21000000 0200 0398 08000000 0A 'inner.txt' 0000", "0C000000 0300 0120 08000000"});
    expect("18000000 0100 0610 09000000 01000100 00000000 00000000",
           {"10000000 0300 0120 09000000 03000000"});
}

TEST_F(MTPResponderBytes, uploadRenameMoveAndDelete) {
    openTheSession();
    // A folder "d"
    expect("14000000 0100 0C10 01000000 01000100 FFFFFFFF", {});
    expect("48000000 0200 0C10 01000000"
           "01000100 0130 0000 00000000 0000 00000000 00000000 00000000 00000000 00000000 00000000"
           "FFFFFFFF 0100 00000000 00000000 02 'd' 0000 00 00 00",
           {"18000000 0300 0120 01000000 01000100 FFFFFFFF 01000001"});
    // A file "f" of three bytes in it
    expect("14000000 0100 0C10 02000000 01000100 01000001", {});
    expect("48000000 0200 0C10 02000000"
           "01000100 0030 0000 03000000 0000 00000000 00000000 00000000 00000000 00000000 00000000"
           "01000001 0000 00000000 00000000 02 'f' 0000 00 00 00",
           {"18000000 0300 0120 02000000 01000100 01000001 02000001"});
    expect("0C000000 0100 0D10 03000000", {});
    expect("0F000000 0200 0D10 03000000 616263", {"0C000000 0300 0120 03000000"});
    EXPECT_EQ(phone_.content(QStringLiteral("d/f")), "abc");
    // Renamed to "ü😀"
    expect("14000000 0100 0498 04000000 02000001 07DC0000", {});
    expect("15000000 0200 0498 04000000 04 FC00 3DD8 00DE 0000", {"0C000000 0300 0120 04000000"});
    EXPECT_EQ(phone_.names(QStringLiteral("d")), QStringList(QStringLiteral("ü😀")));
    // Moved to the root
    expect("18000000 0100 1910 05000000 02000001 01000100 FFFFFFFF",
           {"0C000000 0300 0120 05000000"});
    EXPECT_EQ(phone_.content(QStringLiteral("ü😀")), "abc");
    expect("14000000 0100 0B10 06000000 01000001 00000000", {"0C000000 0300 0120 06000000"});
    EXPECT_EQ(phone_.names(), QStringList(QStringLiteral("ü😀")));
}

} // namespace
} // namespace tessary
