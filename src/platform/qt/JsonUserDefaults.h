#pragma once

#include "platform/UserDefaults.h"

#include <QHash>
#include <QJsonObject>

#include <mutex>

namespace tessary {

/// Settings as one JSON object in a file, which is written whole or not at all. Programs that run
/// at the same time may share it: each change is made to what the file holds at that moment, under
/// a lock file. What another program changes is seen with the next change of one's own.
///
/// A file that is no JSON object is set aside as "<file>.damaged" before the first change.
class JsonUserDefaults final : public UserDefaults {
public:
    /// Reads the file, if there is one.
    explicit JsonUserDefaults(QString file);

    [[nodiscard]] QJsonValue value(const QString& key) const override;
    void setValue(const QString& key, const QJsonValue& value) override;

private:
    [[nodiscard]] QString write();

    const QString file_;
    mutable std::mutex mutex_;
    QJsonObject values_;
    QHash<QString, QJsonValue>
        unwritten_; ///< changes that could not be stored: they go with the next one
};

} // namespace tessary
