#include "base/text/Printable.h"

namespace tessary {

QString printable(const QString& text) {
    QString result;
    result.reserve(text.size());
    for (const QChar c : text) {
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
            c == QChar::ParagraphSeparator)
            result += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
        else
            result += c;
    }
    return result;
}

} // namespace tessary
