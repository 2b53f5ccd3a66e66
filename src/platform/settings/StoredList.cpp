#include "platform/settings/StoredList.h"

#include "base/log/DiagnosticsLogger.h"

#include <QHash>
#include <QJsonObject>
#include <QUuid>

#include <utility>

namespace tessary {

namespace {

/// A UUID may be written in several ways.
QString idOf(const QJsonValue& entry) {
    const QString text = entry[QLatin1StringView("id")].toString();
    const QUuid id = QUuid::fromString(text);
    return id.isNull() ? text : id.toString();
}

QHash<QString, QJsonValue> byId(const QJsonArray& list) {
    QHash<QString, QJsonValue> entries;
    for (const QJsonValue& entry : list)
        entries.insert(idOf(entry), entry);
    return entries;
}

/// `theirs`, as a program finds it, with what made `mine` of `known`: entries that came, went,
/// changed or moved. Entries are objects that are told apart by "id". What others added stays, what
/// others removed stays away, and of an entry that both changed `mine` holds.
QJsonArray mergedList(const QJsonArray& known, const QJsonArray& mine, const QJsonArray& theirs) {
    const auto before = byId(known);
    const auto own = byId(mine);
    const auto found = byId(theirs);
    QJsonArray common; // in the order of mine
    QJsonArray added;
    for (const QJsonValue& entry : mine) {
        const QString id = idOf(entry);
        if (found.contains(id))
            common.append(before.value(id) == entry ? found.value(id) : entry);
        else if (!before.contains(id))
            added.append(entry);
    }
    QJsonArray merged;
    for (const QJsonValue& entry : theirs) {
        const QString id = idOf(entry);
        if (!own.contains(id) && !before.contains(id))
            merged.append(entry);
        else if (own.contains(id) && !common.isEmpty())
            merged.append(common.takeAt(0));
    }
    for (const QJsonValue& entry : std::as_const(added))
        merged.append(entry);
    return merged;
}

} // namespace

StoredList::StoredList(SettingsStore& defaults, QString key)
    : defaults_(defaults), key_(std::move(key)) {}

QJsonValue StoredList::value() const {
    return defaults_.value(key_);
}

void StoredList::setKnown(const std::optional<QJsonArray>& known) {
    known_ = known.value_or(QJsonArray());
    isDamaged_ = !known && !value().isUndefined();
}

void StoredList::store(const QJsonArray& list) {
    if (std::exchange(isDamaged_, false)) {
        putAside(value());
        defaults_.setValue(key_, list);
    } else {
        defaults_.change(key_, [known = known_, list](const QJsonValue& theirs) -> QJsonValue {
            return theirs.isArray() ? mergedList(known, list, theirs.toArray()) : list;
        });
    }
    known_ = list;
}

void StoredList::putAside(const QJsonValue& damaged) {
    QString aside = key_ + QStringLiteral(".damaged");
    for (int number = 2; !defaults_.value(aside).isUndefined(); ++number)
        aside = QStringLiteral("%1.damaged-%2").arg(key_).arg(number);
    DiagnosticsLogger::shared().ui.error("The list %s makes no sense and is kept as %s",
                                         {key_, aside});
    defaults_.setValue(aside, damaged);
}

} // namespace tessary
