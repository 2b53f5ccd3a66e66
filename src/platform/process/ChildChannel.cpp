#include "platform/process/ChildChannel.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <optional>
#include <system_error>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tessary {

namespace {

using Length = std::uint32_t;
using Outcome = ChildChannel::Outcome;
using Clock = std::chrono::steady_clock;

constexpr int firstInherited = 3;
/// Memory grows in such steps with what arrives, not with what is announced.
constexpr qint64 step = qint64{64} << 10;

void check(int error, const char* what) {
    if (error != 0)
        throw std::system_error(error, std::generic_category(), what);
}

class SpawnActions {
public:
    SpawnActions() {
        check(posix_spawn_file_actions_init(&actions_), "cannot start a helper");
        check(posix_spawnattr_init(&attributes_), "cannot start a helper");
    }
    ~SpawnActions() {
        posix_spawnattr_destroy(&attributes_);
        posix_spawn_file_actions_destroy(&actions_);
    }
    SpawnActions(const SpawnActions&) = delete;
    SpawnActions& operator=(const SpawnActions&) = delete;

    void give(int descriptor, int as) {
        check(posix_spawn_file_actions_adddup2(&actions_, descriptor, as), "cannot hand over");
    }
    pid_t spawn(const QString& program, const QStringList& arguments) {
        check(posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0),
              "cannot hand over");
        sigset_t none;
        sigemptyset(&none);
        sigset_t plain;
        sigemptyset(&plain);
        for (const int signal : {SIGPIPE, SIGINT, SIGTERM, SIGHUP})
            sigaddset(&plain, signal);
        posix_spawnattr_setsigmask(&attributes_, &none);
        posix_spawnattr_setsigdefault(&attributes_, &plain);
        posix_spawnattr_setpgroup(&attributes_, 0);
        posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF |
                                                   POSIX_SPAWN_SETPGROUP);
        std::vector<QByteArray> words{QFile::encodeName(program)};
        for (const QString& argument : arguments)
            words.push_back(argument.toUtf8());
        std::vector<char*> pointers;
        for (QByteArray& word : words)
            pointers.push_back(word.data());
        pointers.push_back(nullptr);
        pid_t child = -1;
        check(posix_spawn(&child, pointers.front(), &actions_, &attributes_, pointers.data(),
                          environ),
              "cannot start a helper");
        return child;
    }

private:
    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributes_{};
};

/// The length and the bytes behind it.
QByteArray framed(const QByteArray& message) {
    const auto length = static_cast<Length>(message.size());
    QByteArray frame(sizeof length, Qt::Uninitialized);
    std::memcpy(frame.data(), &length, sizeof length);
    return frame + message;
}

} // namespace

/// A bounded wait for a socket, which a stop request ends.
class ChildChannel::Deadline {
public:
    Deadline(int socket, int wake, std::chrono::milliseconds patience)
        : socket_(socket), wake_(wake), patience_(patience), end_(Clock::now() + patience) {}

    /// No value once there is something to read, or room to write.
    [[nodiscard]] std::optional<Outcome> waitFor(short events) {
        while (true) {
            const auto left =
                std::chrono::duration_cast<std::chrono::milliseconds>(end_ - Clock::now());
            pollfd both[] = {{socket_, events, 0}, {wake_, POLLIN, 0}};
            const int count =
                ::poll(both, std::size(both), static_cast<int>(std::max<qint64>(left.count(), 0)));
            if (count < 0 && errno != EINTR)
                return Outcome::ended;
            if (both[1].revents != 0)
                return Outcome::stopped;
            if (count > 0)
                return std::nullopt;
            if (count == 0 && !stoodStill())
                return Outcome::silent;
        }
    }
    [[nodiscard]] std::optional<Outcome> sendAll(const QByteArray& bytes) {
        for (qsizetype sent = 0; sent < bytes.size();) {
            const ssize_t count =
                ::send(socket_, bytes.constData() + sent,
                       static_cast<std::size_t>(bytes.size() - sent), MSG_NOSIGNAL | MSG_DONTWAIT);
            if (count > 0) {
                sent += count;
            } else if (errno == EAGAIN) {
                if (const auto ended = waitFor(POLLOUT))
                    return ended;
            } else if (errno != EINTR) {
                return Outcome::ended;
            }
        }
        return std::nullopt;
    }
    [[nodiscard]] std::optional<Outcome> receiveAll(QByteArray& bytes, qint64 wanted) {
        while (bytes.size() < wanted) {
            const qsizetype before = bytes.size();
            const auto room = std::min<qint64>(wanted - before, step);
            bytes.resize(before + room);
            const ssize_t count = ::recv(socket_, bytes.data() + before,
                                         static_cast<std::size_t>(room), MSG_DONTWAIT);
            bytes.resize(before + std::max<ssize_t>(count, 0));
            if (count == 0)
                return Outcome::ended;
            if (count < 0 && errno == EAGAIN) {
                if (const auto ended = waitFor(POLLIN))
                    return ended;
            } else if (count < 0 && errno != EINTR) {
                return Outcome::ended;
            }
        }
        return std::nullopt;
    }

private:
    /// Whoever wakes long after the end did not run meanwhile, and the child hardly did: it gets
    /// its time anew, once.
    bool stoodStill() {
        constexpr std::chrono::seconds longEnough(1);
        if (wasExtended_ || Clock::now() < end_ + longEnough)
            return false;
        wasExtended_ = true;
        end_ = Clock::now() + patience_;
        return true;
    }

    const int socket_;
    const int wake_;
    const std::chrono::milliseconds patience_;
    Clock::time_point end_;
    bool wasExtended_ = false;
};

ChildChannel::ChildChannel(const QString& program, const QStringList& arguments,
                           std::span<const int> inherited) {
    int ends[2] = {-1, -1};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
        check(errno, "cannot make a channel");
    socket_ = FileHandle(ends[0]);
    const FileHandle childsEnd(ends[1]);
    wake_ = FileHandle(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    if (!wake_.isOpen())
        check(errno, "cannot make a channel");
    SpawnActions actions;
    actions.give(childsEnd.get(), STDIN_FILENO);
    for (std::size_t n = 0; n < inherited.size(); ++n)
        actions.give(inherited[n], firstInherited + static_cast<int>(n));
    child_ = actions.spawn(program, arguments);
}

ChildChannel::~ChildChannel() {
    kill();
    while (::waitpid(child_, nullptr, 0) < 0 && errno == EINTR) {
    }
}

void ChildChannel::kill() {
    // Its number is nobody else's until it is waited for.
    (void)::kill(child_, SIGKILL);
}

ChildChannel::Answer ChildChannel::ask(const QByteArray& message, qint64 longestAnswer,
                                       std::chrono::milliseconds patience,
                                       const std::stop_token& stop) {
    eventfd_t late = 0; // a stop that came as the last call ended is not for this one
    eventfd_read(wake_.get(), &late);
    const std::stop_callback wake(stop, [this] { eventfd_write(wake_.get(), 1); });
    Deadline deadline(socket_.get(), wake_.get(), patience);
    if (const auto ended = deadline.sendAll(framed(message)))
        return {*ended, {}};
    QByteArray head;
    if (const auto ended = deadline.receiveAll(head, sizeof(Length)))
        return {*ended, {}};
    Length length = 0;
    std::memcpy(&length, head.constData(), sizeof length);
    if (length > longestAnswer)
        return {Outcome::flooded, {}};
    Answer answer{Outcome::answered, {}};
    if (const auto ended = deadline.receiveAll(answer.message, length))
        return {*ended, {}};
    return answer;
}

bool ChildChannel::receive(int descriptor, QByteArray& message, qint64 longest) {
    const auto readAll = [descriptor](char* into, std::size_t wanted) {
        for (std::size_t got = 0; got < wanted;) {
            const ssize_t count = ::read(descriptor, into + got, wanted - got);
            if (count == 0 || (count < 0 && errno != EINTR))
                return false;
            got += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
        }
        return true;
    };
    Length length = 0;
    if (!readAll(reinterpret_cast<char*>(&length), sizeof length) || length > longest)
        return false;
    message.resize(static_cast<qsizetype>(length));
    return readAll(message.data(), length);
}

bool ChildChannel::send(int descriptor, const QByteArray& message) {
    const QByteArray frame = framed(message);
    for (qsizetype sent = 0; sent < frame.size();) {
        const ssize_t count = ::write(descriptor, frame.constData() + sent,
                                      static_cast<std::size_t>(frame.size() - sent));
        if (count < 0 && errno != EINTR)
            return false;
        sent += std::max<ssize_t>(count, 0);
    }
    return true;
}

namespace {

/// Asked at the start: an update may replace the program while it runs.
const QString here = QFileInfo(QStringLiteral("/proc/self/exe")).canonicalPath();

} // namespace

QString installedHelper(const QString& name) {
    for (const char* folder : {".", "../libexec/tessary", "../bin", "../../bin"}) {
        const QFileInfo file(
            QStringLiteral("%1/%2/%3").arg(here, QString::fromLatin1(folder), name));
        if (file.isFile() && file.isExecutable())
            return file.canonicalFilePath();
    }
    return {};
}

} // namespace tessary
