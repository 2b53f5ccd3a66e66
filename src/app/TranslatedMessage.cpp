#include "app/Translations.h"

#include "app/OldMessages.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <vector>

namespace tessary {

namespace {

QString tr(const QString& text) {
    return QCoreApplication::translate("Message", text.toUtf8().constData());
}

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
            QRegularExpression(QStringLiteral("[:.] %\\d$|\\(%1\\)")).match(key).hasMatch();
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

/// What a sync did: "2 uploaded, 1 deleted"; empty when the message is none of that.
QString trCounts(const QString& message) {
    static const QRegularExpression count(QStringLiteral("^(\\d+) (\\D+)$"));
    QStringList parts;
    for (const QString& part : message.split(QStringLiteral(", "))) {
        const auto match = count.match(part);
        const QString key = match.hasMatch() ? QStringLiteral("%1 ") + match.captured(2) : part;
        if (std::ranges::find(wholeMessages, key.toStdString()) == wholeMessages.end())
            return {};
        parts.append(match.hasMatch() ? tr(key).arg(match.captured(1)) : tr(key));
    }
    return parts.join(QStringLiteral(", "));
}

/// "name (reason), name (reason) and 3 more", as failures are listed; empty when it is none of
/// that.
QString trFailures(const QString& message) {
    static const QRegularExpression more(QStringLiteral("^(.*\\)) and (\\d+) more$"),
                                         QRegularExpression::DotMatchesEverythingOption);
    const auto rest = more.match(message);
    const QString list = rest.hasMatch() ? rest.captured(1) : message;
    if (!list.endsWith(u')'))
        return {};
    bool isKnown = rest.hasMatch();
    QStringList items = list.chopped(1).split(QStringLiteral("), "));
    for (QString& item : items) {
        // The name may hold brackets, too.
        for (auto at = item.indexOf(QLatin1StringView(" (")); at >= 0;
             at = item.indexOf(QLatin1StringView(" ("), at + 1)) {
            const QString reason = item.mid(at + 2);
            if (const QString translated = trMessage(reason); translated != reason) {
                item = item.left(at + 2) + translated;
                isKnown = true;
                break;
            }
        }
        item += u')';
    }
    if (!isKnown)
        return {};
    const QString named = items.join(QStringLiteral(", "));
    return rest.hasMatch() ? tr(QStringLiteral("%1 and %2 more")).arg(named, rest.captured(2))
                           : named;
}

} // namespace

QString trMessage(const QString& message) {
    static const std::vector<Pattern> known(messagePatterns.begin(), messagePatterns.end());
    if (const QString whole = tr(message); whole != message)
        return whole;
    if (const QString counts = trCounts(message); !counts.isEmpty())
        return counts;
    for (const Pattern& pattern : known) {
        const auto match = pattern.regex.match(message);
        if (!match.hasMatch())
            continue;
        QStringList values = match.capturedTexts().mid(1);
        if (pattern.endsWithReason)
            values.last() = trMessage(values.last());
        return filled(tr(pattern.key), values);
    }
    if (const QString failures = trFailures(message); !failures.isEmpty())
        return failures;
    // A sentence, and in brackets what the layer below said.
    const auto bracket = message.indexOf(QLatin1StringView(". ("));
    if (bracket < 0)
        return message;
    return tr(message.left(bracket + 1)) + message.mid(bracket + 1);
}

} // namespace tessary
