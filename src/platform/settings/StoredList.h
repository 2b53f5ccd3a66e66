#pragma once

#include "platform/settings/SettingsStore.h"

#include <QJsonArray>

#include <optional>

namespace tessary {

/// A list in the settings that programs which run at the same time may each change: only one's own
/// changes are stored.
class StoredList {
public:
    StoredList(SettingsStore& defaults, QString key);

    [[nodiscard]] QJsonValue value() const;
    /// Says how this program would write what value() said; nothing when it makes no sense of it.
    /// The next store() then keeps that as "<key>.damaged", and begins a new list.
    void setKnown(const std::optional<QJsonArray>& known);
    void store(const QJsonArray& list);

private:
    void putAside(const QJsonValue& damaged);

    SettingsStore& defaults_;
    const QString key_;
    QJsonArray known_;
    bool isDamaged_ = false;
};

} // namespace tessary
