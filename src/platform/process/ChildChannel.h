#pragma once

#include "base/local/FileHandle.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <chrono>
#include <span>
#include <stop_token>

#include <sys/types.h>

namespace tessary {

/// A program of ours that runs as a child and answers messages: each is its length, four bytes in
/// the machine's order, and so many bytes. The child has one end of a socket as its standard input,
/// nothing to print on, and is not reached by the terminal's signals; it ends when the channel
/// goes. One caller at a time; kill() may come from any thread.
class ChildChannel {
public:
    enum class Outcome {
        answered,
        ended,   ///< the child is gone, or closed its end
        silent,  ///< nothing came in time
        flooded, ///< the message is longer than was allowed
        stopped, ///< the caller was asked to stop
    };
    struct Answer {
        Outcome outcome = Outcome::ended;
        QByteArray message; ///< when answered
    };

    /// Starts the program. `inherited` become the child's descriptors 3, 4, …. std::system_error
    /// when it cannot be started.
    ChildChannel(const QString& program, const QStringList& arguments,
                 std::span<const int> inherited = {});
    /// Kills the child and waits for its end.
    ~ChildChannel();
    ChildChannel(const ChildChannel&) = delete;
    ChildChannel& operator=(const ChildChannel&) = delete;

    /// Sends a message and waits for the next one that comes back. After anything but an answer
    /// the two are out of step: kill() it.
    [[nodiscard]] Answer ask(const QByteArray& message, qint64 longestAnswer,
                             std::chrono::milliseconds patience, const std::stop_token& stop = {});
    void kill();
    [[nodiscard]] pid_t processId() const {
        return child_;
    }

    // For the child's side: the messages on a descriptor. Both block.

    /// False at the end, and for a message longer than `longest`.
    [[nodiscard]] static bool receive(int descriptor, QByteArray& message, qint64 longest);
    [[nodiscard]] static bool send(int descriptor, const QByteArray& message);

private:
    class Deadline;

    FileHandle socket_;
    FileHandle wake_; ///< an event that ends a wait
    pid_t child_ = -1;
};

/// The path of a helper program of ours: beside this program, where packages put helpers, or where
/// a build puts its programs. Empty when it is not there.
[[nodiscard]] QString installedHelper(const QString& name);

} // namespace tessary
