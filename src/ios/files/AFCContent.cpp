#include "ios/files/AFCContent.h"

#include "ios/files/PieceSize.h"

#include <algorithm>
#include <array>
#include <deque>
#include <limits>

namespace tessary {

namespace {

using Opened = AFCSession::Opened;
using Clock = std::chrono::steady_clock;

/// Bytes that both threads see, one of them at a time.
struct Piece {
    std::shared_ptr<std::byte> memory; ///< the connection's
    std::size_t offset = 0;
    std::size_t count = 0; ///< that are of use

    [[nodiscard]] std::span<std::byte> first(std::size_t size) const {
        return {memory.get() + offset, std::min(size, contentPiece)};
    }
};
static_assert(PieceSize::largest <= contentPiece);

using Pieces = std::array<std::shared_ptr<Piece>, 2>;

Pieces piecesOf(const std::shared_ptr<std::byte>& memory) {
    return {std::make_shared<Piece>(Piece{memory, 0, 0}),
            std::make_shared<Piece>(Piece{memory, contentPiece, 0})};
}

using Answer = SerialQueue::Started<Clock::duration>;

Answer askFor(AFCSession& session, const std::shared_ptr<Piece>& piece, std::size_t size) {
    return session.start([piece, size](const Opened& opened) {
        const auto begin = Clock::now();
        piece->count = opened.file->read(piece->first(size));
        return Clock::now() - begin;
    });
}

Answer give(AFCSession& session, const std::shared_ptr<Piece>& piece) {
    return session.start([piece](const Opened& opened) {
        const auto begin = Clock::now();
        ByteView rest = piece->first(piece->count);
        while (!rest.empty()) {
            const std::size_t taken = opened.file->write(rest);
            if (taken == 0)
                throw Error(PhoneError::refused, {});
            rest = rest.subspan(taken);
        }
        return Clock::now() - begin;
    });
}

/// A request that is on its way, and the bytes that it is about.
struct Flight {
    Answer answer;
    std::size_t bytes = 0;
};

/// One at work and one that waits for it: the phone is never idle for want of a request.
constexpr std::size_t mostFlights = 2;

/// What is left of a range, and how much of it is worth asking for at a time.
class Wanted {
public:
    Wanted(ByteRange range, qint64 expected)
        : left_(range.length < 0 ? std::numeric_limits<qint64>::max() : range.length),
          announced_(std::max<qint64>(expected - range.offset, 0)) {}

    /// Bytes to ask for now, beside those that are on their way; 0 for none.
    [[nodiscard]] std::size_t next() const {
        const qint64 left = left_ - onTheWay_;
        const qint64 known = announced_ - onTheWay_;
        if (isOver_ || left == 0 || (onTheWay_ > 0 && known <= 0))
            return 0;
        // One byte more than was announced: so an answer that is short of it ends the file.
        const qint64 atMost = known >= 0 ? known + 1 : left;
        return static_cast<std::size_t>(
            std::min({left, atMost, static_cast<qint64>(size_.bytes())}));
    }
    void asked(std::size_t bytes) {
        onTheWay_ += static_cast<qint64>(bytes);
    }
    void took(std::size_t asked, std::size_t count, Clock::duration time) {
        const auto bytes = static_cast<qint64>(count);
        onTheWay_ -= static_cast<qint64>(asked);
        left_ -= bytes;
        announced_ -= bytes;
        // A short answer in mid-file is no end: phones may send less than they are asked for.
        isOver_ = isOver_ || count == 0 || (count < asked && announced_ == 0);
        if (asked == size_.bytes())
            size_.took(time);
    }

private:
    qint64 left_;
    qint64 announced_; ///< negative once there is more than was announced
    qint64 onTheWay_ = 0;
    bool isOver_ = false;
    PieceSize size_;
};

} // namespace

qint64 readContent(AFCSession& session, const QString& path, qint64 expected, ByteRange range,
                   const ByteSink& sink, const std::stop_token& stop) {
    const Pieces pieces = piecesOf(session.begin(
        [path, offset = range.offset](Opened& opened) {
            AFCLink& link = *opened.link;
            opened.file = link.openFile(link.inContainer(path), AFCLink::Mode::read);
            if (offset > 0)
                opened.file->seek(offset);
            return link.content();
        },
        stop));
    Wanted wanted(range, expected);
    qint64 done = 0;
    std::deque<Flight> flights;
    auto ask = [&, turn = std::size_t{0}]() mutable {
        const std::size_t bytes = wanted.next();
        if (bytes == 0 || flights.size() == mostFlights)
            return false;
        wanted.asked(bytes);
        flights.push_back({askFor(session, pieces[turn++ % 2], bytes), bytes});
        return true;
    };
    for (std::size_t turn = 0;; ++turn) {
        while (ask()) {
        }
        if (flights.empty())
            break;
        const Flight flight = std::move(flights.front());
        flights.pop_front();
        const Clock::duration time = session.waitFor(flight.answer, stop);
        throwIfStopped(stop);
        const Piece& piece = *pieces[turn % 2];
        wanted.took(flight.bytes, piece.count, time);
        if (piece.count > 0)
            sink(piece.first(piece.count));
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
    const Pieces pieces =
        piecesOf(session.step([](const Opened& opened) { return opened.link->content(); }, stop));
    PieceSize size;
    qint64 sent = 0;
    std::deque<Flight> flights;
    const auto land = [&] {
        const Flight flight = std::move(flights.front());
        flights.pop_front();
        const Clock::duration time = session.waitFor(flight.answer, stop);
        sent += static_cast<qint64>(flight.bytes);
        if (flight.bytes == size.bytes())
            size.took(time);
        if (progress)
            progress(sent);
    };
    for (std::size_t turn = 0;; ++turn) {
        if (flights.size() == mostFlights)
            land();
        throwIfStopped(stop);
        const std::shared_ptr<Piece>& piece = pieces[turn % 2];
        const std::size_t room = size.bytes();
        piece->count = std::min(content(piece->first(room)), room);
        throwIfStopped(stop);
        if (piece->count == 0)
            break;
        flights.push_back({give(session, piece), piece->count});
    }
    while (!flights.empty())
        land();
    return sent;
}

} // namespace tessary
