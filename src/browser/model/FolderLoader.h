#pragma once

#include "browser/actions/BrowserLoad.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

namespace tessary {

/// Reads folders for a browser in the background. One is read at a time: a new reading drops the
/// one before it, and what that still answers. Lives on the main thread.
class FolderLoader : public QObject {
    Q_OBJECT

public:
    struct Wanted {
        std::shared_ptr<PhoneFileSystem> files;
        QString path;
        std::optional<SearchBelow> search; ///< instead of the folder itself
        bool withParts = false;            ///< what has come of a long listing is handed out
    };
    using Done = std::function<void(const BrowserLoad&)>;

    /// `pause` says how long a reading that is asked for by againSoon() waits.
    explicit FolderLoader(std::function<std::chrono::milliseconds()> pause);

    /// `whenDone` is called on the main thread, unless the reading was dropped.
    void start(const Wanted& wanted, Done whenDone);
    /// Drops the reading.
    void stop();
    /// Has the folder read again, after the reading that is under way: a phone that is busy copying
    /// would else never come to the end of one. `isUrgent`: the pause begins anew.
    void againSoon(bool isUrgent);
    void forgetAgain();

Q_SIGNALS:
    void partCame(const std::shared_ptr<const tessary::FileListing>& part);
    void againDue();

private:
    [[nodiscard]] PartialListing partReceiver();
    void finish(const BrowserLoad& load, const Done& whenDone);

    const std::function<std::chrono::milliseconds()> pause_;
    std::uint64_t number_ = 0; ///< of the reading that is wanted
    bool isRunning_ = false;
    std::stop_source stop_{std::nostopstate};
    QTimer again_;
    bool isAgainWanted_ = false; ///< once the reading under way has ended
};

} // namespace tessary
