#include "ios/helper/HelperMessages.h"

#include "ios/AFCStatus.h"
#include "ios/IPhoneError.h"
#include "phone/PhoneError.h"
#include "support/QtPrinters.h"

#include <QIODevice>
#include <QTimeZone>

#include <gtest/gtest.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

template <typename Value>
QByteArray written(const Value& value) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << value;
    return bytes;
}

/// What comes back of it; and, cut at each length, an end of the stream and nothing worse.
template <typename Value>
void expectSame(const Value& value) {
    const QByteArray bytes = written(value);
    for (qsizetype length = 0; length <= bytes.size(); ++length) {
        QDataStream stream(bytes.first(length));
        Value read{};
        stream >> read;
        const bool isWhole = length == bytes.size();
        EXPECT_EQ(stream.status() == QDataStream::Ok, isWhole) << length;
        EXPECT_TRUE(!isWhole || read == value);
    }
}

TEST(HelperMessages, comeBackAsTheyWereAndCutOnesAreNoticed) {
    expectSame(std::vector<QByteArray>{"a", "", QByteArray("\xff\0x", 3)});
    const QDateTime date = QDateTime::fromMSecsSinceEpoch(1'700'000'000'123, QTimeZone::utc());
    expectSame(std::optional<AFCFileInfo>());
    expectSame(std::optional(AFCFileInfo{true, false, false, 64, {}}));
    expectSame(std::optional(AFCFileInfo{false, false, true, 5, date}));
    expectSame(std::vector<AFCLookup>{std::optional<AFCFileInfo>(),
                                      AFCFileInfo{true, false, false, 64, {}}});
    expectSame(IPhoneFacts());
    expectSame(IPhoneFacts{u"Ann's"_s, StorageInfo{5, 7}, 100});
    expectSame(
        std::vector<AppInfo>{{u"com.a"_s, u"A"_s, true, false}, {u"b"_s, u""_s, false, true}});
    expectSame(std::optional<std::uint64_t>());
    expectSame(std::optional(~std::uint64_t{0}));
}

TEST(HelperMessages, errorsKeepTheirCausesAndArguments) {
    const Error errors[] = {
        Error(PhoneError::noAnswer),
        Error(PhoneError::wrongSize, {u"/a"_s, qint64{1} << 40, 7}),
        phoneErrorOf(10, u"/b"_s),
        phoneErrorOf(999, u"/b"_s),
        lockdownErrorOf(-19, {IPhoneError::handshake, {-19}}),
        houseArrestErrorOf(u"com.a"_s, u"Reason"_s),
    };
    for (const Error& error : errors) {
        const QByteArray bytes = written(error);
        for (qsizetype length = 0; length <= bytes.size(); ++length) {
            QDataStream stream(bytes.first(length));
            const auto read = readError(stream);
            ASSERT_EQ(read.has_value(), length == bytes.size()) << error.what() << ' ' << length;
            EXPECT_TRUE(!read || read->logText() == error.logText()) << read->what();
        }
    }
}

TEST(HelperMessages, whatIsNoErrorOfOursIsNone) {
    const auto bytesOf = [](qint32 layer, qint32 value, quint8 arguments) {
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream << layer << value << arguments << false;
        return bytes;
    };
    const struct {
        const char* name;
        QByteArray bytes;
        bool isError;
    } rows[] = {
        {"a code", bytesOf(static_cast<qint32>(ErrorLayer::phone), 0, 0), true},
        {"a code below all", bytesOf(static_cast<qint32>(ErrorLayer::phone), -1, 0), false},
        {"a code above all", bytesOf(static_cast<qint32>(ErrorLayer::phone), 1000, 0), false},
        {"a cause above all", bytesOf(static_cast<qint32>(ErrorLayer::iphone), 1000, 0), false},
        {"any status", bytesOf(static_cast<qint32>(ErrorLayer::afc), -7, 0), true},
        {"a layer of others", bytesOf(static_cast<qint32>(ErrorLayer::sync), 0, 0), false},
        {"no layer", bytesOf(99, 0, 0), false},
        {"many arguments", bytesOf(static_cast<qint32>(ErrorLayer::phone), 0, 255), false},
    };
    for (const auto& row : rows) {
        QDataStream stream(row.bytes);
        EXPECT_EQ(readError(stream).has_value(), row.isError) << row.name;
    }
    // Causes without an end.
    Error deep(PhoneError::nonsense);
    for (int n = 0; n < 100; ++n)
        deep = Error(PhoneError::nonsense, {}, Error(deep));
    const QByteArray bytes = written(deep);
    QDataStream stream(bytes);
    EXPECT_FALSE(readError(stream));
}

} // namespace
} // namespace tessary
