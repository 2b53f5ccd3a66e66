#pragma once

#include "platform/settings/SettingsStore.h"

#include <QJsonObject>

#include <mutex>

namespace tessary {

/// Settings that are forgotten at the end: for tests, and for runs that must not depend on this
/// user's choices.
class MemorySettingsStore final : public SettingsStore {
public:
    [[nodiscard]] QJsonValue value(const QString& key) const override {
        const std::scoped_lock lock(mutex_);
        return values_.value(key);
    }
    void change(const QString& key, const Change& change) override {
        const std::scoped_lock lock(mutex_);
        values_.insert(key, change(values_.value(key)));
    }

private:
    mutable std::mutex mutex_;
    QJsonObject values_;
};

} // namespace tessary
