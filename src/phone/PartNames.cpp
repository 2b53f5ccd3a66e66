#include "phone/PartNames.h"

#include <QCryptographicHash>
#include <QUuid>

namespace tessary {

namespace {

constexpr QLatin1StringView anyPart{".tessary-part-"};
constexpr QLatin1StringView owned{".tessary-part-by-"};
constexpr QLatin1StringView resumable{".tessary-part-of-"};
constexpr QLatin1StringView waiting{".tessary-part-for"};
constexpr QLatin1StringView respelled{".tessary-part-was-"};

constexpr QLatin1Char beforeOwner('@');
constexpr QLatin1Char beforeName('-');
constexpr QLatin1Char beforeHash('#');

constexpr qsizetype ownerDigits = 16;
constexpr qsizetype freshCount = 12;
constexpr qsizetype hashDigits = 32;

QString digitsOf(const QString& text, qsizetype count) {
    return QString::fromLatin1(
        QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha256).toHex().left(count));
}

QString freshDigits() {
    return QUuid::createUuid().toString(QUuid::Id128).left(freshCount);
}

/// What follows ".tessary-part-for".
PartName waitingOf(QStringView rest, const QStringList& awaited) {
    PartName part{PartName::Kind::waiting, {}, {}};
    if (rest.startsWith(beforeOwner)) {
        part.owner = rest.mid(1, ownerDigits).toString();
        rest = rest.mid(1 + ownerDigits);
    }
    if (rest.startsWith(beforeName)) {
        part.awaited = rest.mid(1).toString();
    } else if (rest.startsWith(beforeHash)) {
        for (const QString& name : awaited)
            if (rest.mid(1) == digitsOf(name, hashDigits))
                part.awaited = name;
    }
    return part;
}

} // namespace

bool isPartName(const QString& name) {
    return name.startsWith(anyPart);
}

bool isUnfinishedName(const QString& name) {
    const auto part = partNameOf(name, {});
    return part &&
           (part->kind == PartName::Kind::arriving || part->kind == PartName::Kind::resumable);
}

QString partOwner(const QString& text) {
    return digitsOf(text, ownerDigits);
}

QString newPartName(const QString& owner) {
    return (owner.isEmpty() ? QString(anyPart) : owned + owner + beforeName) + freshDigits();
}

QString resumablePartName(const QString& identity) {
    return resumable + digitsOf(identity, hashDigits);
}

QString waitingName(const NameRules& rules, const QString& name, const QString& owner) {
    const QString prefix = owner.isEmpty() ? QString(waiting) : waiting + beforeOwner + owner;
    const QString plain = prefix + beforeName + name;
    return rules.accepts(plain) ? plain : prefix + beforeHash + digitsOf(name, hashDigits);
}

QString respellingName(const QString& newName) {
    const NameRules anyRules;
    QString name = respelled + freshDigits() + beforeName + newName;
    while (!anyRules.accepts(name))
        name.chop(name.back().isLowSurrogate() ? 2 : 1);
    return name;
}

std::optional<PartName> partNameOf(const QString& name, const QStringList& awaited) {
    using Kind = PartName::Kind;
    if (!isPartName(name))
        return std::nullopt;
    if (name.startsWith(waiting))
        return waitingOf(QStringView(name).mid(waiting.size()), awaited);
    if (name.startsWith(respelled))
        return PartName{Kind::respelled, {}, name.mid(respelled.size() + freshCount + 1)};
    if (name.startsWith(resumable))
        return PartName{Kind::resumable, {}, {}};
    if (name.startsWith(owned))
        return PartName{Kind::arriving, name.mid(owned.size(), ownerDigits), {}};
    return PartName{};
}

} // namespace tessary
