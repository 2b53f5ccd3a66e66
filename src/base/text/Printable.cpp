#include "base/text/Printable.h"

#include <algorithm>
#include <array>

namespace tessary {

namespace {

struct Range {
    char16_t first;
    char16_t last;
};

/// Beside the control characters. The joiners U+200C and U+200D stay: scripts and emoji need them.
constexpr std::array hidden{
    Range{u'\u061C', u'\u061C'}, // Arabic letter mark
    Range{u'\u180E', u'\u180E'}, // Mongolian vowel separator
    Range{u'\u200B', u'\u200B'}, // zero width space
    Range{u'\u200E', u'\u200F'}, // left-to-right and right-to-left mark
    Range{u'\u2028', u'\u202E'}, // separators of lines and paragraphs, embeddings and overrides
    Range{u'\u2060', u'\u206F'}, // word joiner, invisible operators, isolates, old format controls
    Range{u'\uFEFF', u'\uFEFF'}, // zero width no-break space
    Range{u'\uFFF9', u'\uFFFB'}, // interlinear annotation
};

bool isPlain(QChar c) {
    if (c.category() == QChar::Other_Control)
        return false;
    return std::ranges::none_of(hidden,
                                [c](Range range) { return c >= range.first && c <= range.last; });
}

/// Whether the unit is a whole character, or one half of a pair that is complete.
bool isWhole(const QString& text, qsizetype at) {
    const QChar c = text[at];
    if (c.isHighSurrogate())
        return at + 1 < text.size() && text[at + 1].isLowSurrogate();
    return !c.isLowSurrogate() || (at > 0 && text[at - 1].isHighSurrogate());
}

QString escaped(const QString& text, bool keepsLineFeeds) {
    QString result;
    result.reserve(text.size());
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QChar c = text[at];
        if ((isPlain(c) && isWhole(text, at)) || (keepsLineFeeds && c == u'\n'))
            result += c;
        else
            result += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
    }
    return result;
}

} // namespace

QString printable(const QString& text) {
    return escaped(text, false);
}

QString printableLines(const QString& text) {
    return escaped(text, true);
}

QString shortened(const QString& text) {
    constexpr qsizetype most = 256;
    const bool cutsPair = text.size() > most && text[most - 1].isHighSurrogate();
    return text.left(cutsPair ? most - 1 : most);
}

} // namespace tessary
