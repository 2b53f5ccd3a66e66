#include "app/Translations.h"

#include <QRegularExpression>
#include <QStringList>

#include <array>
#include <vector>

namespace tessary {

namespace {

/// Messages of the lower layers that hold names, the narrower before the wider.
constexpr std::array patterns{
    "Cannot enumerate %1",
    "%1 changed while the folder was being read. Sync again.",
    "The phone lists the folder %1 inside itself.",
    "%1 holds \"%2\", which is no name of a file.",
    "Cannot open local file for writing: %1",
    "Cannot open local file for reading: %1",
    "The phone does not tell what %1 is.",
    "The name \"%1\" cannot be used on this computer. Rename the folder on the phone first.",
    "The name \"%1\" cannot be used on this computer. Rename it on the phone first.",
    "No MTP handle for file %1",
    "%1 became shorter while it was being copied. Copy it again.",
    "\"%1\" has appeared on the phone meanwhile.",
    "A folder named \"%1\" is already on the phone.",
    "A file named \"%1\" is already on the phone.",
    "The phone does not show the new \"%1\". The old one was kept.",
    "\"%1\" is already on the phone, and this phone cannot replace files. Delete or rename the old "
    "one first.",
    "The new \"%1\" is on the phone under the name \"%2\": it could not be renamed (%3).",
    "The phone does not show the new folder \"%1\".",
    "\"%1\" is already there",
    "%1 of %2 files was not copied: %3",
    "%1 of %2 files were not copied: %3",
    "Failed to delete %1 of %2 items: %3",
    "Failed to move %1 of %2 items: %3",
    "Error: %1",
    "Removing %1 from %2",
    "A file named %1 is on the device where a folder is needed.",
    "Cannot read the folder %1: %2",
    "Cannot create the folder %1: %2",
    "Cannot delete %1: %2",
    "Cannot keep %1 as %2.",
    "The folder of %1 was replaced while it was being synced.",
    "The folder %1 is gone, although it was synced before. Is its disk missing? Going on makes a "
    "new, empty folder.",
    "The folder %1 is missing.",
    "The folder on this computer is empty, although %1 files were in it after the last sync. Is "
    "its disk missing?",
    "The folder on the device is empty, although %1 files were in it after the last sync. Is its "
    "memory card missing?",
    "%1 of the %2 files of the last sync would be deleted.",
    "The device lists %1 inside itself.",
    "The device does not show %1 as it was sent. It was not deleted here.",
    "The device does not show %1 as it was sent. Sync again.",
    "%1 is not on this computer's disk as it was received.",
    "%1 changed while it was being copied. Sync again.",
    "%1 changed while it was being copied. Copy it again.",
    "%1 has appeared on the device meanwhile.",
    "%1 is not on the device any more. Sync again.",
    "%1 is a file on one side and a folder on the other",
    "in %1: %2",
    "The phone does not allow %1 to be read.",
    "The phone did not rename %1. %2",
    "The phone did not make the folder %1. %2",
    "The phone did not delete %1. %2",
    "The phone did not delete %1.",
    "The folder %1 cannot be made on the phone. %2",
    "The folder %1 cannot be read whole.",
    "The name \"%1\" cannot be used.",
    "ADB pull failed for %1: %2",
    "ADB directory pull failed for %1: %2",
    "ADB push failed for %1: %2",
    "the phone has %1 of %2 bytes.",
    "the phone did not put it in the place of the old file. %1",
    "\"%1\" is on the phone, which takes \"%2\" for the same name. Rename one of the two first.",
    "\"%1\" has changed on the phone meanwhile. It was kept.",
    "adb ended with status %1.",
    "A folder \"%1\" is already on the phone.",
    "\"%1\" cannot be the name of a file.",
    "\"%1\" is already there.",
    "\"%1\" cannot be moved into itself.",
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
    "Failed to drag out %1: %2",
    "Failed to check for updates (%1). Please try again later.",
    "%1 is using the phone.",
    "The folder \"%1\" is not on the phone any more.",
    "There is no \"%1\" on the phone.",
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
    "Cannot read %1.",
    "adb could not reach the phone: %1",
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
    const auto& english = Translations::dictionary().at(AppLanguage::en);
    QStringList parts;
    for (const QString& part : message.split(QStringLiteral(", "))) {
        const auto match = count.match(part);
        const QString key = match.hasMatch() ? QStringLiteral("%1 ") + match.captured(2) : part;
        if (!english.contains(key))
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
    return rest.hasMatch() ? tr("%1 and %2 more").arg(named, rest.captured(2)) : named;
}

} // namespace

QString trMessage(const QString& message) {
    static const std::vector<Pattern> known(patterns.begin(), patterns.end());
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
