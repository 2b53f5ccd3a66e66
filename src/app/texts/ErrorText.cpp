#include "app/texts/ErrorText.h"

#include "adb/files/ADBPhoneErrors.h"
#include "app/texts/ErrorWords.h"
#include "base/text/PathNames.h"
#include "base/text/Printable.h"
#include "phone/PhoneError.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

#include <iterator>
#include <optional>

namespace tessary {

namespace {

/// The context of the words of errors.
class Words {
    Q_DECLARE_TR_FUNCTIONS(ErrorText)
};

constexpr ErrorWords unknown{QT_TRANSLATE_NOOP("ErrorText", "Something went wrong."),
                             QT_TRANSLATE_NOOP("ErrorText", "something went wrong")};

/// What a sentence ends with that tells a reason.
constexpr QLatin1StringView reasonPlace("%2");

/// An error, and the words of its code.
struct Worded {
    const Error& error;
    ErrorWords words;
};

/// The error or the nearest of its causes whose code has words.
Worded worded(const Error& error) {
    const auto isADBs = [](const Error* one) {
        return one != nullptr && one->code().layer() == ErrorLayer::adb;
    };
    for (const Error* each = &error; each != nullptr; each = each->cause()) {
        // What adb says is narrower than the PhoneError that it comes to.
        if (each->code().layer() == ErrorLayer::phone && isADBs(each->cause()))
            if (const ErrorWords narrower = wordsOf(each->cause()->code()); narrower.sentence)
                return {*each->cause(), narrower};
        if (const ErrorWords words = wordsOf(each->code()); words.sentence)
            return {*each, words};
        if (isADBs(each))
            return {*each, wordsOf(phoneErrorOf(*each, {}).code())};
    }
    return {error, unknown};
}

/// In the order of ErrorLayer, as they stand before a code's name.
constexpr const char* layerNames[] = {
    "this computer:", "phone:", "device:",  "USB",      "MTP",  "adb",
    "iPhone",         "AFC",    "process:", "network:", "HTTP", "sync:"};
static_assert(std::size(layerNames) == static_cast<std::size_t>(ErrorLayer::sync) + 1);

/// A name, a path or a number, as a sentence shows it. Of a path on a phone the name will do.
QString shown(const QVariant& argument, bool isOnPhone) {
    switch (argument.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return QLocale().toString(argument.toLongLong());
    default:
        break;
    }
    const QString text = argument.toString();
    const bool isPath = isOnPhone && text.startsWith(QLatin1Char('/'));
    const QString name = isPath ? lastComponent(text) : QString();
    return printable(name.isEmpty() ? text : name);
}

/// The number of the argument whose place begins at `at`; no value where none does.
std::optional<qsizetype> placeAt(const QString& text, qsizetype at) {
    if (text[at] != QLatin1Char('%') || at + 1 == text.size())
        return std::nullopt;
    const int number = text[at + 1].digitValue();
    return number > 0 ? std::optional<qsizetype>(number - 1) : std::nullopt;
}

/// `text` with "%1" replaced by the first argument, and so on, whatever places it has. In one pass:
/// a name may look like a place.
QString filled(const QString& text, const Error& error) {
    const bool isOnPhone = error.code().layer() == ErrorLayer::phone;
    QString whole;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (const auto place = placeAt(text, at)) {
            whole += shown(error.arguments().value(*place), isOnPhone);
            ++at;
        } else {
            whole += text[at];
        }
    }
    return whole;
}

/// A reason as a sentence of its own.
QString asSentence(const QString& reason) {
    return reason.left(1).toUpper() + reason.mid(1) + Words::tr(".", "the end of a sentence");
}

/// The causes below an error: "MTP refused (0x2009)". A number of MTP is written as its
/// documents do.
QString details(const Error& error) {
    QStringList lines;
    for (const Error* cause = error.cause(); cause != nullptr; cause = cause->cause()) {
        const bool isMTP = cause->code().layer() == ErrorLayer::mtp;
        QStringList values;
        for (const QVariant& value : cause->arguments()) {
            bool isNumber = false;
            const qlonglong number = value.toLongLong(&isNumber);
            values.append(isMTP && isNumber
                              ? QStringLiteral("0x%1").arg(number, 4, 16, QLatin1Char('0'))
                              : value.toString());
        }
        const auto layer = static_cast<std::size_t>(cause->code().layer());
        QString line = QStringLiteral("%1 %2").arg(QLatin1StringView(layerNames[layer]),
                                                   QLatin1StringView(cause->code().name()));
        if (!values.isEmpty())
            line += QStringLiteral(" (%1)").arg(values.join(QLatin1StringView(", ")));
        lines.append(printable(line));
    }
    return lines.join(QLatin1StringView("; "));
}

/// "“a” cannot be read: %2" where nobody gave the reason: "“a” cannot be read."
QString withoutReason(QString sentence) {
    sentence = sentence.chopped(reasonPlace.size()).trimmed();
    if (sentence.endsWith(QLatin1Char(':')) || sentence.endsWith(QChar(u'：')))
        sentence = sentence.chopped(1).trimmed();
    return sentence + Words::tr(".", "the end of a sentence");
}

QString sentenceOf(const Worded& worded) {
    QString sentence = Words::tr(worded.words.sentence);
    if (sentence.endsWith(reasonPlace) && worded.error.arguments().value(1).toString().isEmpty())
        sentence = withoutReason(sentence);
    const bool hasName = !worded.error.arguments().value(0).toString().isEmpty();
    if (hasName || !sentence.contains(QLatin1StringView("%1")))
        return filled(sentence, worded.error);
    if (worded.error.is(PhoneError::held))
        return Words::tr("Another program is using the phone.");
    return asSentence(Words::tr(worded.words.reason));
}

} // namespace

QString ErrorText::text() const {
    if (advice.isEmpty())
        return what;
    const bool isEnded = !what.isEmpty() && QStringLiteral(".!?。！？").contains(what.back());
    return (isEnded ? what : what + Words::tr(".", "the end of a sentence")) + QLatin1Char(' ') +
           advice;
}

ErrorText errorText(const Error& error) {
    const Worded found = worded(error);
    const char* advice = found.words.advice;
    return {sentenceOf(found), advice == nullptr ? QString() : Words::tr(advice), details(error)};
}

QString reasonText(const Error& error) {
    const Worded found = worded(error);
    return found.words.reason == nullptr ? sentenceOf(found) : Words::tr(found.words.reason);
}

} // namespace tessary
