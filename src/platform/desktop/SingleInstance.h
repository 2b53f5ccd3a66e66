#pragma once

#include <QByteArray>
#include <QLockFile>
#include <QString>

#include <functional>
#include <memory>

class QLocalServer;
class QLocalSocket;

namespace tessary {

/// Lets one program of a user run at a time: a second start asks the first to show itself and ends.
/// The first is known by a lock file, which a crash does not leave behind, and is asked through a
/// local socket beside it that only this user can open. Lives on the main thread.
class SingleInstance {
public:
    enum class Outcome {
        first,       ///< go on; later starts are told to `raise`
        raisedOther, ///< another one runs and has been asked to show itself: end
        noAnswer,    ///< another one runs but hangs: go on without it
    };

    /// Called with the desktop's token for giving the focus away, which may be empty.
    using Raise = std::function<void(const QByteArray& activationToken)>;

    /// `folder` has to be this user's alone.
    explicit SingleInstance(const QString& name, const QString& folder = runtimeFolder());
    ~SingleInstance();

    /// Blocks for a few seconds at most, and only while another one starts, ends or hangs.
    [[nodiscard]] Outcome claim(Raise raise, const QByteArray& activationToken = {});

    /// One of this user's own, whatever the environment says; empty when none can be made.
    [[nodiscard]] static QString runtimeFolder();

private:
    void listen();
    void answer(QLocalSocket& client);
    [[nodiscard]] bool askOther(const QByteArray& activationToken) const;

    const QString socketPath_;
    QLockFile lock_;
    std::unique_ptr<QLocalServer> server_; ///< of the first instance only
    Raise raise_;
};

} // namespace tessary
