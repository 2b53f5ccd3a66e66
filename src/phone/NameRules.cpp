#include "phone/NameRules.h"

#include "base/text/PathNames.h"

#include <algorithm>

namespace tessary {

namespace {

bool isFATCharacter(QChar character) {
    return character < QLatin1Char(' ') || character == QChar(0x7F) ||
           QStringLiteral("\\:*?\"<>|").contains(character);
}

/// Whatever follows the last dot, in UTF-16 units, it is no extension when it is longer.
constexpr qsizetype longestExtension = 32;

/// The stem and the extension with its dot; a leading dot starts a hidden name.
std::pair<QString, QString> splitName(const QString& name, bool isFolder) {
    const qsizetype dot = isFolder ? -1 : name.lastIndexOf(QLatin1Char('.'));
    return dot > 0 && name.size() - dot <= longestExtension
               ? std::pair(name.left(dot), name.mid(dot))
               : std::pair(name, QString());
}

bool fits(const NameRules& rules, const QString& name) {
    return (rules.longestUTF16 == 0 || name.size() <= rules.longestUTF16) &&
           (rules.longestUTF8 == 0 || name.toUtf8().size() <= rules.longestUTF8);
}

} // namespace

QString NameRules::key(const QString& name) const {
    QString key = ignoresUnicodeForm ? name.normalized(QString::NormalizationForm_C) : name;
    if (!ignoresCase)
        return key;
    key = key.toCaseFolded();
    return ignoresUnicodeForm ? key.normalized(QString::NormalizationForm_C) : key;
}

bool NameRules::accepts(const QString& name) const {
    if (!isSafeName(name) || !name.isValidUtf16() || !fits(*this, name))
        return false;
    if (!forbidsFATCharacters)
        return true;
    return std::none_of(name.begin(), name.end(), isFATCharacter) &&
           !name.endsWith(QLatin1Char('.')) && !name.endsWith(QLatin1Char(' '));
}

QString freeNameUnder(const NameRules& rules, const QString& name, bool isFolder,
                      const std::function<bool(const QString& key)>& isTaken) {
    auto [stem, extension] = splitName(name, isFolder);
    QString candidate = name;
    for (int n = 2; !fits(rules, candidate) || isTaken(rules.key(candidate)); ++n) {
        const QString number = QStringLiteral(" (%1)").arg(n);
        candidate = stem + number + extension;
        while (!fits(rules, candidate) && !stem.isEmpty()) {
            stem.chop(stem.back().isLowSurrogate() ? 2 : 1);
            candidate = stem + number + extension;
        }
    }
    return candidate;
}

} // namespace tessary
