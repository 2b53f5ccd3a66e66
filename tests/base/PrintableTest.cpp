#include "base/text/Printable.h"
#include "support/QtPrinters.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace tessary;

namespace {

TEST(Printable, onlySignsReachTheScreen) {
    const std::pair<QString, QString> rows[] = {
        // name on a phone, what is shown
        {u"holiday.jpg"_s, u"holiday.jpg"_s},
        {u"Größe 写真 \U0001F469\u200D\U0001F680 می\u200Cخواهم.jpg"_s,
         u"Größe 写真 \U0001F469\u200D\U0001F680 می\u200Cخواهم.jpg"_s},
        {u"100%1 \\u0041"_s, u"100%1 \\u0041"_s},
        {u"bidi\u202Egpj.exe"_s, u"bidi\\u202egpj.exe"_s},
        {u"a\u2066b\u2069\u200F\u061C"_s, u"a\\u2066b\\u2069\\u200f\\u061c"_s},
        {u"\x1B[2Jcleared\x07"_s, u"\\u001b[2Jcleared\\u0007"_s},
        {u"\u009B31m"_s, u"\\u009b31m"_s},
        {u"two\nlines\r\u2028\u0085"_s, u"two\\u000alines\\u000d\\u2028\\u0085"_s},
        {u"hid\u200Bden\uFEFF"_s, u"hid\\u200bden\\ufeff"_s},
        {QString(QChar(0xD83D)) + u"x"_s + QChar(0xDE00), u"\\ud83dx\\ude00"_s},
        {QString(), QString()},
    };
    for (const auto& [name, shown] : rows)
        EXPECT_EQ(printable(name), shown);
    EXPECT_EQ(shortened(QString(255, u'x') + u"\U0001F469"_s), QString(255, u'x'));
    EXPECT_EQ(shortened(QString(256, u'x') + u"y"_s), QString(256, u'x'));
}

TEST(Printable, documentsMeanTheSameAfterwards) {
    const QJsonObject object{{u"name"_s, u"a\u202E\u009Bb\x1B\"\\\n"_s}};
    const QString text = QString::fromUtf8(QJsonDocument(object).toJson());
    const QString shown = printableLines(text);
    EXPECT_FALSE(shown.contains(u'\u202E') || shown.contains(u'\u009B'));
    EXPECT_EQ(shown.count(u'\n'), text.count(u'\n'));
    EXPECT_EQ(QJsonDocument::fromJson(shown.toUtf8()).object(), object);
}

} // namespace
