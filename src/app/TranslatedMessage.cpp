#include "app/Translations.h"

#include <QRegularExpression>
#include <QStringList>

#include <array>
#include <vector>

namespace tessary {

namespace {

/// Messages of the lower layers that hold names, the narrower before the wider.
constexpr std::array patterns{
    "Device not found: %1",
    "Lockdown error: %1",
    "Failed to start service: %1",
    "House Arrest error: %1",
    "InstProxy error: %1",
    "File I/O error: %1",
    "Failed to create %1: %2",
    "Failed to delete %1: %2",
    "Failed to rename %1: %2",
    "Failed to move %1: %2",
    "Failed to check for updates (%1). Please try again later.",
    "%1 is using the phone.",
    "The folder \"%1\" is not on the phone any more.",
    "There is no %1 on the phone. It may have been deleted or renamed: refresh the folder.",
    "The phone sent %1 of the %2 bytes of %3. Copy it again.",
    "The name \"%1\" cannot be used on this computer.",
    "\"%1\" is too large for a preview. Copy it to this computer first.",
    "\"%1\" is already on the phone.",
    "\"%1\" cannot be a name on the phone.",
    "%1 is not a folder.",
    "Cannot write into %1: %2",
    "Cannot write %1: %2",
    "Cannot read %1: %2",
    "Cannot create the folder %1 on this computer.",
};

struct Pattern {
    explicit Pattern(const char* text) : key(QString::fromUtf8(text)) {
        static const QRegularExpression hole(QStringLiteral("%\\d"));
        QStringList literals = key.split(hole);
        for (QString& literal : literals)
            literal = QRegularExpression::escape(literal);
        regex = QRegularExpression(
            QRegularExpression::anchoredPattern(literals.join(QStringLiteral("(.+?)"))),
            QRegularExpression::DotMatchesEverythingOption);
        // "What was tried: why not" and "What failed (why)": the reason is a message again.
        endsWithReason =
            QRegularExpression(QStringLiteral(": %\\d$|\\(%1\\)")).match(key).hasMatch();
    }

    QString key;
    QRegularExpression regex;
    bool endsWithReason = false;
};

/// `text` with its holes filled in, at once: a name may look like a hole.
QString filled(const QString& text, const QStringList& values) {
    switch (values.size()) {
    case 1:
        return text.arg(values[0]);
    case 2:
        return text.arg(values[0], values[1]);
    default:
        return text.arg(values[0], values[1], values.value(2));
    }
}

} // namespace

QString trMessage(const QString& message) {
    static const std::vector<Pattern> known(patterns.begin(), patterns.end());
    if (const QString whole = tr(message); whole != message)
        return whole;
    for (const Pattern& pattern : known) {
        const auto match = pattern.regex.match(message);
        if (!match.hasMatch())
            continue;
        QStringList values = match.capturedTexts().mid(1);
        if (pattern.endsWithReason)
            values.last() = trMessage(values.last());
        return filled(tr(pattern.key), values);
    }
    // A sentence, and in brackets what the layer below said.
    const auto bracket = message.indexOf(QLatin1StringView(". ("));
    if (bracket < 0)
        return message;
    return tr(message.left(bracket + 1)) + message.mid(bracket + 1);
}

} // namespace tessary
