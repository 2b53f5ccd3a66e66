#pragma once

#include "base/threads/SerialQueue.h"
#include "platform/settings/SettingsStore.h"

#include <memory>

namespace tessary {

/// Settings as one JSON object in a file, which is written whole or not at all. Programs that run
/// at the same time may share it: each change is made to what the file holds at that moment, under
/// a lock file. What another program changes is seen with the next change of one's own.
///
/// A change holds at once and is written in the background, those that come together in one go. One
/// that cannot be written is logged, is trouble(), and goes with the next, or at the end.
///
/// A file that is no JSON object is set aside before the first change as "<file>.damaged", or with
/// a number behind when there is one from an earlier time. One that cannot be read is left alone,
/// and nothing is stored.
class JsonSettingsStore final : public SettingsStore {
public:
    /// Reads the file, if there is one.
    explicit JsonSettingsStore(QString file);
    /// Waits for what is being written, for a few seconds at most.
    ~JsonSettingsStore() override;

    [[nodiscard]] QJsonValue value(const QString& key) const override;
    void change(const QString& key, const Change& change) override;
    [[nodiscard]] std::optional<SettingsTrouble> trouble() const override;
    void whenTroubleChanges(std::function<void()> told) override;
    [[nodiscard]] bool store(std::chrono::milliseconds limit) override;

private:
    struct Store;

    const std::shared_ptr<Store> store_; ///< shared with the writing that outlives this
    SerialQueue writer_;
};

/// The settings of this user, in the file "tessary/settings.json" of the configuration folder
/// ($XDG_CONFIG_HOME, or ~/.config).
[[nodiscard]] std::unique_ptr<SettingsStore> makeSystemSettingsStore();

} // namespace tessary
