#pragma once

#include "adb/services/ADBReader.h"
#include "adb/services/ADBShellClient.h"
#include "adb/services/ADBStream.h"

#include <QByteArray>

#include <memory>

namespace tessary {

/// One shell of a phone that stays open for many commands: a process of the phone's less for each.
/// Only where ADBShellClient::isExact(). Used by one thread at a time.
class ADBShellSession {
public:
    explicit ADBShellSession(ADBConnection& connection, const Wait& wait);

    /// Between two commands: whether the shell can take another one.
    [[nodiscard]] bool isUsable() const {
        return isSound_ && !reader_.hasBytes();
    }
    /// Runs one simple command that reads nothing. Its errors stand among its output, and are what
    /// `errors` holds when it failed.
    [[nodiscard]] ADBCommandResult run(const QByteArray& command, const Wait& wait);

private:
    const QByteArray mark_; ///< before the exit status; no output of a phone holds it by chance
    const std::unique_ptr<ADBStream> stream_;
    ADBReader reader_;
    bool isSound_ = true; ///< no command was left in the middle
};

} // namespace tessary
