#include "preview/TextSample.h"
#include "support/QtPrinters.h"

#include <QStringEncoder>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace tessary;

namespace {

QByteArray in(QStringConverter::Encoding encoding, const QString& text, bool mark = false) {
    return QStringEncoder(encoding,
                          mark ? QStringConverter::Flag::WriteBom : QStringConverter::Flag::Default)
        .encode(text);
}

} // namespace

TEST(TextSample, encodingIsGuessed) {
    const QString umlauts = u"Größe, Übermut und Äpfel\n"_s;
    using Code = QStringConverter;
    const std::pair<const char*, QByteArray> rows[] = {
        {"UTF-8", umlauts.toUtf8()},
        {"UTF-8 with mark", in(Code::Utf8, umlauts, true)},
        {"UTF-16 with mark", in(Code::Utf16LE, umlauts, true)},
        {"UTF-16, big-endian, with mark", in(Code::Utf16BE, umlauts, true)},
        {"UTF-32 with mark", in(Code::Utf32LE, umlauts, true)},
        {"UTF-16 without mark", in(Code::Utf16LE, umlauts)},
        {"UTF-16, big-endian, without mark", in(Code::Utf16BE, umlauts)},
        {"Latin-1", umlauts.toLatin1()},
    };
    for (const auto& [name, bytes] : rows) {
        const auto sample = textSampleOf(bytes);
        ASSERT_TRUE(sample) << name;
        EXPECT_EQ(sample->text, umlauts) << name;
        EXPECT_FALSE(sample->isCut);
    }
    EXPECT_EQ(textSampleOf("")->text, QString());
}

TEST(TextSample, bytesThatAreNoTextAreNotShownAsOne) {
    QByteArray everyByte;
    for (int i = 0; i < 256; ++i)
        everyByte.append(static_cast<char>(i));
    const std::pair<const char*, QByteArray> rows[] = {
        {"zeros", QByteArray(1000, '\0')},
        {"every byte", everyByte.repeated(10)},
        {"control characters", QByteArray("\1\2\3\4\5\6").repeated(50)},
    };
    for (const auto& [name, bytes] : rows)
        EXPECT_FALSE(textSampleOf(bytes)) << name;
    EXPECT_FALSE(readTextSample(u"/no/such/file"_s));
}
