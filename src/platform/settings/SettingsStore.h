#pragma once

#include <QJsonValue>
#include <QString>

#include <chrono>
#include <functional>
#include <optional>

namespace tessary {

/// What keeps settings from being what the user believes they are.
struct SettingsTrouble {
    enum class Kind {
        damaged,   ///< the file made no sense; it was put aside as `aside`, with the first change
        notStored, ///< changes hold until the program ends, and are tried again
    };
    Kind kind = Kind::notStored;
    QString file;
    QString reason; ///< the system's, of what was not stored
    QString aside;  ///< of a damaged file; empty before the first change

    bool operator==(const SettingsTrouble&) const = default;
};

/// The store of the program's settings: one JSON value a key, kept from start to start.
/// Thread-safe. What is read may have any shape, since people edit files: a reader takes the type
/// that it expects and treats everything else as absent.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    /// The value under a key; `QJsonValue::Undefined` when there is none.
    [[nodiscard]] virtual QJsonValue value(const QString& key) const = 0;

    /// Stores a value; `QJsonValue::Undefined` removes the key. A store that cannot be written is
    /// trouble(), and the value holds until the program ends.
    void setValue(const QString& key, const QJsonValue& value) {
        change(key, [value](const QJsonValue&) { return value; });
    }

    /// What makes a new value of the one that is stored; it may be called again, on another
    /// thread, and with its own result. It must not call back.
    using Change = std::function<QJsonValue(const QJsonValue&)>;
    /// As setValue(), of what is stored at that moment: what another program did to it stays.
    virtual void change(const QString& key, const Change& change) = 0;

    /// Nothing while all is well. What was not stored is said before what was damaged.
    [[nodiscard]] virtual std::optional<SettingsTrouble> trouble() const {
        return std::nullopt;
    }
    /// Called on any thread whenever trouble() says something else; it must not call back.
    virtual void whenTroubleChanges(std::function<void()> /*told*/) {}
    /// Waits until everything that was set is stored, trying again what was not. False when it is
    /// not within `limit`; trouble() then says why. For what must not be forgotten.
    [[nodiscard]] virtual bool store(std::chrono::milliseconds /*limit*/) {
        return true;
    }
};

} // namespace tessary
