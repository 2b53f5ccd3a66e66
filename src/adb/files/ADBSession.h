#pragma once

#include "adb/services/ADBShellClient.h"
#include "adb/services/ADBShellSession.h"
#include "adb/services/ADBStream.h"
#include "adb/services/ADBSyncClient.h"

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
    [[nodiscard]] ADBShellClient& shell(const std::stop_token& stop);
    [[nodiscard]] bool isOpen() const {
        return sync_ != nullptr || commands_ != nullptr;
    }
    /// Ends both streams. What the phone can do stays known.
    void close();

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
    void throwIfFailed(const QByteArray& command, const ADBCommandResult& result) const;
    [[nodiscard]] static QByteArray lineOf(const QByteArrayList& words);

    /// The words before a file's path that make the phone print its SHA-256; empty where it cannot.
    [[nodiscard]] const QByteArrayList& hashCommand(const std::stop_token& stop);

private:
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
