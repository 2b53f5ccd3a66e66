#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>
#include <stop_token>

namespace tessary {

/// How a child process ended.
struct ProcessResult {
    enum class Outcome {
        exited,     ///< with `exitStatus`
        crashed,    ///< by a signal
        timedOut,   ///< and was ended
        cancelled,  ///< by the stop request, and was ended
        flooded,    ///< it printed more than `outputLimit`, and was ended
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

/// One run of another program.
struct ProcessRequest {
    QString program;
    QStringList arguments;
    /// How long it may take; no value for a run that only its end or `stop` ends.
    std::optional<std::chrono::milliseconds> limit;
    std::stop_token stop;
    /// An open descriptor of the caller's that becomes the child's standard input; none for an
    /// empty one. A runner that starts no children may ignore it.
    std::optional<int> standardInput;
    qint64 outputLimit = qint64{256} << 20; ///< bytes of standard output and error each
};

/// Runs other programs. Thread-safe; each call blocks until the child has ended, and no child
/// outlives its call or this program.
class ProcessRunner {
public:
    virtual ~ProcessRunner() = default;

    /// Runs a program, never through a shell. The child is ended and waited for as soon as the
    /// request is asked to stop. A runner that starts no children may ignore the stop request.
    [[nodiscard]] virtual ProcessResult follow(const ProcessRequest& request) = 0;
    /// The same with no more than these arguments, and a limit after which the child is ended.
    [[nodiscard]] ProcessResult run(const QString& program, const QStringList& arguments,
                                    std::chrono::milliseconds limit) {
        ProcessRequest request;
        request.program = program;
        request.arguments = arguments;
        request.limit = limit;
        return follow(request);
    }
};

} // namespace tessary
