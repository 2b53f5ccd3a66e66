#include "ios/files/AFCContent.h"

#include "ios/files/PieceSize.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <vector>

namespace tessary {

namespace {

using Opened = AFCSession::Opened;
using Clock = std::chrono::steady_clock;

/// Bytes that both threads see, one of them at a time.
struct Piece {
    std::vector<std::byte> bytes;
    std::size_t count = 0; ///< that are of use

    void resize(std::size_t size) {
        if (bytes.size() < size)
            bytes.resize(size);
    }
};

using Pieces = std::array<std::shared_ptr<Piece>, 2>;

Pieces makePieces() {
    return {std::make_shared<Piece>(), std::make_shared<Piece>()};
}

using Answer = SerialQueue::Started<Clock::duration>;

Answer askFor(AFCSession& session, const std::shared_ptr<Piece>& piece, std::size_t size) {
    return session.start([piece, size](const Opened& opened) {
        const auto begin = Clock::now();
        piece->resize(size);
        piece->count = opened.file->read(std::span(piece->bytes).first(size));
        return Clock::now() - begin;
    });
}

Answer give(AFCSession& session, const std::shared_ptr<Piece>& piece) {
    return session.start([piece](const Opened& opened) {
        const auto begin = Clock::now();
        ByteView rest(piece->bytes.data(), piece->count);
        while (!rest.empty()) {
            const ByteView part =
                rest.first(std::min(rest.size(), opened.connection->writeLimit()));
            const std::size_t taken = std::min(opened.file->write(part), part.size());
            if (taken == 0)
                throw Error(PhoneError::refused, {});
            rest = rest.subspan(taken);
        }
        return Clock::now() - begin;
    });
}

/// What is left of a range, and how much of it is worth asking for at a time.
class Wanted {
public:
    Wanted(ByteRange range, qint64 expected)
        : left_(range.length < 0 ? std::numeric_limits<qint64>::max() : range.length),
          announced_(expected - range.offset) {}

    [[nodiscard]] bool isOver() const {
        return isOver_ || left_ == 0;
    }
    /// One byte more than was announced: so an answer that is short of it ends the file.
    [[nodiscard]] std::size_t next() const {
        const qint64 known = announced_ >= 0 ? announced_ + 1 : std::numeric_limits<qint64>::max();
        return static_cast<std::size_t>(
            std::min({left_, known, static_cast<qint64>(size_.bytes())}));
    }
    void took(std::size_t asked, std::size_t count, Clock::duration time) {
        const auto bytes = static_cast<qint64>(count);
        left_ -= bytes;
        announced_ -= bytes;
        // A short answer in mid-file is no end: phones may send less than they are asked for.
        isOver_ = count == 0 || (count < asked && announced_ == 0);
        if (asked == size_.bytes())
            size_.took(time);
    }

private:
    qint64 left_;
    qint64 announced_; ///< negative once there is more than was announced
    bool isOver_ = false;
    PieceSize size_;
};

} // namespace

qint64 readContent(AFCSession& session, const QString& path, qint64 expected, ByteRange range,
                   const ByteSink& sink, const std::stop_token& stop) {
    session.begin(
        [path, offset = range.offset](Opened& opened) {
            AFCConnection& connection = *opened.connection;
            opened.file = std::make_unique<AFCFile>(connection, connection.inContainer(path),
                                                    AFC_FOPEN_RDONLY);
            if (offset > 0)
                opened.file->seek(offset);
        },
        stop);
    const Pieces pieces = makePieces();
    Wanted wanted(range, expected);
    qint64 done = 0;
    std::size_t asked = wanted.next();
    std::optional<Answer> answer;
    if (!wanted.isOver())
        answer = askFor(session, pieces[0], asked);
    for (std::size_t turn = 0; answer; ++turn) {
        const Piece& piece = *pieces[turn % 2];
        const Clock::duration time = session.waitFor(*std::exchange(answer, std::nullopt), stop);
        throwIfStopped(stop);
        wanted.took(asked, piece.count, time);
        if (!wanted.isOver()) {
            asked = wanted.next();
            answer = askFor(session, pieces[(turn + 1) % 2], asked);
        }
        if (piece.count > 0)
            sink(ByteView(piece.bytes.data(), piece.count));
        done += static_cast<qint64>(piece.count);
    }
    // Its answer is the proof that what came before it came whole.
    session.step(
        [](Opened& opened) {
            opened.file->close();
            opened.file.reset();
        },
        stop);
    return done;
}

qint64 sendContent(AFCSession& session, const ByteSource& content, const ByteProgress& progress,
                   const std::stop_token& stop) {
    const Pieces pieces = makePieces();
    PieceSize size;
    qint64 sent = 0;
    std::optional<Answer> answer;
    std::size_t onTheWay = 0;
    for (std::size_t turn = 0;; ++turn) {
        const std::shared_ptr<Piece>& piece = pieces[turn % 2];
        const std::size_t room = size.bytes();
        piece->resize(room);
        piece->count = std::min(content(std::span(piece->bytes).first(room)), room);
        if (answer) {
            const Clock::duration time =
                session.waitFor(*std::exchange(answer, std::nullopt), stop);
            sent += static_cast<qint64>(onTheWay);
            if (onTheWay == room)
                size.took(time);
            if (progress)
                progress(sent);
        }
        throwIfStopped(stop);
        if (piece->count == 0)
            return sent;
        onTheWay = piece->count;
        answer = give(session, piece);
    }
}

} // namespace tessary
