#pragma once

#include <QJsonValue>
#include <QString>

namespace tessary {

/// The store of the program's settings: one JSON value a key, kept from start to start.
/// Thread-safe. What is read may have any shape, since people edit files: a reader takes the type
/// that it expects and treats everything else as absent.
class UserDefaults {
public:
    virtual ~UserDefaults() = default;

    /// The value under a key; `QJsonValue::Undefined` when there is none.
    [[nodiscard]] virtual QJsonValue value(const QString& key) const = 0;

    /// Stores a value; `QJsonValue::Undefined` removes the key. A store that cannot be written is
    /// logged, and the value holds until the program ends.
    virtual void setValue(const QString& key, const QJsonValue& value) = 0;
};

} // namespace tessary
