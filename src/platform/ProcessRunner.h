#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <chrono>

namespace tessary {

/// How a child process ended.
struct ProcessResult {
    enum class Outcome {
        exited,     ///< with `exitStatus`
        crashed,    ///< by a signal
        timedOut,   ///< and was ended
        notStarted, ///< no such program, or not allowed
    };
    Outcome outcome = Outcome::notStarted;
    int exitStatus = 0;
    QByteArray standardOutput;
    QByteArray standardError;

    [[nodiscard]] bool succeeded() const {
        return outcome == Outcome::exited && exitStatus == 0;
    }
};

/// Runs other programs. Thread-safe; each call blocks until the child has ended.
class ProcessRunner {
public:
    virtual ~ProcessRunner() = default;

    /// Runs a program with these arguments, never through a shell, and with no standard input.
    /// After `limit` the child is ended and waited for.
    [[nodiscard]] virtual ProcessResult run(const QString& program, const QStringList& arguments,
                                            std::chrono::milliseconds limit) = 0;
};

} // namespace tessary
