#pragma once

#include "adb/protocol/ADBError.h"
#include "adb/services/ADBShellClient.h"
#include "adb/services/ADBShellSession.h"
#include "adb/services/ADBStream.h"
#include "adb/services/ADBSyncClient.h"
#include "base/threads/CancellationError.h"
#include "base/threads/Deadline.h"

#include <QByteArray>

#include <chrono>
#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

namespace tessary {

/// What one phone's adbd is asked: one stream for files and one for commands, which stay open
/// between two requests, and shells of their own for what prints much. Used by whoever has the
/// phone's turn. Failures are Error(ADBError); CancellationError.
class ADBSession {
public:
    /// For answers that a phone gives at once.
    static constexpr std::chrono::seconds patience{30};
    /// For a command that works for a while without a word.
    static constexpr std::chrono::minutes longPatience{15};
    /// Phones from this API level on have every command that is used here (Android 6).
    static constexpr int oldestLevel = 23;

    explicit ADBSession(std::shared_ptr<ADBConnection> connection);

    /// The stream for files, opened when it has to be. ADBError::tooOld for a phone that lacks what
    /// is needed.
    [[nodiscard]] ADBSyncClient& sync(const std::stop_token& stop);
    /// Runs `work(sync)`, which changes nothing on the phone and hands nothing on before the phone
    /// has answered. A stream that was kept and has ended meanwhile may show only now: it is opened
    /// anew then, and asked once more.
    template <typename Work>
    auto asking(const std::stop_token& stop, Work work) {
        const bool isKept = sync_ && sync_->isUsable();
        try {
            return work(sync(stop));
        } catch (const Error& error) {
            if (!isKept || !error.is(ADBError::brokenOff) || !sync_ || !sync_->isUnanswered())
                throw;
            sync_.reset();
            commands_.reset(); // kept as long, and ended by the same
        }
        return work(sync(stop));
    }
    /// Runs `work(sync)` on a stream for files that is nobody else's meanwhile: the turn may pass
    /// to others while it works, but for the beginning and the end. With `repeats` it is as
    /// asking() otherwise.
    template <typename Work>
    auto apart(const std::stop_token& stop, bool repeats, Work work) {
        const bool isKept = sync_ && sync_->isUsable();
        std::unique_ptr<ADBSyncClient> own = takeSync(stop);
        const auto finish = [&](auto result) {
            if (!sync_ && own->isUsable())
                sync_ = std::move(own);
            return result;
        };
        try {
            return finish(work(*own));
        } catch (const Error& error) {
            if (!repeats || !isKept || !error.is(ADBError::brokenOff) || !own->isUnanswered())
                throw;
            commands_.reset(); // kept as long, and ended by the same
        }
        own = takeSync(stop);
        return finish(work(*own));
    }
    [[nodiscard]] ADBShellClient& shell(const std::stop_token& stop);
    [[nodiscard]] bool isOpen() const {
        return sync_ != nullptr || commands_ != nullptr;
    }
    /// Ends both streams. What the phone can do stays known.
    void close();
    /// After a failure, before what was sent is cleaned up: see ADBSyncClient::end().
    void endSync();
    static constexpr std::chrono::seconds endPatience{2};
    /// Runs `work(stop)`, which has to be done though its caller was asked to stop: for at most
    /// `limit`, else it is ADBError::timedOut.
    template <typename Work>
    static auto finish(std::chrono::milliseconds limit, Work work) {
        const Deadline deadline(limit);
        try {
            return work(deadline.token());
        } catch (const CancellationError&) {
            throw Error(ADBError::timedOut);
        }
    }
    static constexpr std::chrono::seconds finishLimit{5};

    /// What is at a path; no value when nothing is. Any other error of the phone is
    /// ADBError::statFailed.
    [[nodiscard]] std::optional<ADBFacts> facts(const QByteArray& path, bool follows,
                                                const std::stop_token& stop);
    /// The same for several, in one round trip. Sizes are whole ones on every phone.
    [[nodiscard]] std::vector<std::optional<ADBFacts>>
    facts(const std::vector<ADBSyncClient::Question>& questions, const std::stop_token& stop);

    /// Runs a command, all of whose words are quoted. One that fails is ADBError::commandFailed,
    /// unless its failure is looked at by the caller.
    QByteArray run(const QByteArrayList& words, std::chrono::milliseconds silence,
                   const std::stop_token& stop);
    [[nodiscard]] ADBCommandResult tryRun(const QByteArrayList& words,
                                          std::chrono::milliseconds silence,
                                          const std::stop_token& stop);
    /// The same for a whole line.
    [[nodiscard]] ADBCommandResult tryRunLine(const QByteArray& line,
                                              std::chrono::milliseconds silence,
                                              const std::stop_token& stop);
    void throwIfFailed(const QByteArray& command, const ADBCommandResult& result) const;
    [[nodiscard]] static QByteArray lineOf(const QByteArrayList& words);

    /// The words before a file's path that make the phone print its SHA-256; empty where it cannot.
    [[nodiscard]] const QByteArrayList& hashCommand(const std::stop_token& stop);

private:
    [[nodiscard]] std::unique_ptr<ADBSyncClient> takeSync(const std::stop_token& stop) {
        (void)sync(stop);
        return std::move(sync_);
    }
    void probe(const std::stop_token& stop);
    [[nodiscard]] ADBFacts wholeSize(const ADBSyncClient::Question& question, ADBFacts facts,
                                     const std::stop_token& stop);

    const std::shared_ptr<ADBConnection> connection_;
    std::optional<ADBSyncClient::Features> features_; ///< from the first use on
    std::optional<ADBShellClient> shell_;             ///< together with features_
    std::unique_ptr<ADBSyncClient> sync_;
    std::unique_ptr<ADBShellSession> commands_; ///< where the phone's shell is exact
    std::optional<QByteArrayList> hashCommand_;
};

} // namespace tessary
