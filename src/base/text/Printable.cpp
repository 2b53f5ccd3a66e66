#include "base/text/Printable.h"

namespace tessary {

namespace {

/// Embeddings, overrides and isolates. The mere marks of direction stay: names in some languages
/// need them, and they turn no letter round.
bool turnsDirection(QChar c) {
    return (c >= QChar(0x202A) && c <= QChar(0x202E)) || (c >= QChar(0x2066) && c <= QChar(0x2069));
}

} // namespace

QString printable(const QString& text) {
    QString result;
    result.reserve(text.size());
    for (const QChar c : text) {
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
            c == QChar::ParagraphSeparator || turnsDirection(c))
            result += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
        else
            result += c;
    }
    return result;
}

} // namespace tessary
