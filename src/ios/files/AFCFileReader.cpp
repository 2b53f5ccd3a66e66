#include "ios/files/AFCFileReader.h"

#include "ios/files/AFCSteps.h"

#include <algorithm>
#include <deque>
#include <limits>

namespace tessary {

namespace {

using Opened = AFCSession::Opened;
using Clock = std::chrono::steady_clock;

} // namespace

AFCFileReader::Wanted::Wanted(ByteRange range, qint64 expected)
    : left_(range.length < 0 ? std::numeric_limits<qint64>::max() : range.length),
      announced_(std::max<qint64>(expected - range.offset, 0)) {}

std::size_t AFCFileReader::Wanted::next() const {
    const qint64 left = left_ - onTheWay_;
    const qint64 known = announced_ - onTheWay_;
    if (isOver_ || left == 0 || (onTheWay_ > 0 && known <= 0))
        return 0;
    // One byte more than was announced: so an answer that is short of it ends the file.
    const qint64 atMost = known >= 0 ? known + 1 : left;
    return static_cast<std::size_t>(std::min({left, atMost, static_cast<qint64>(size_.bytes())}));
}

void AFCFileReader::Wanted::took(std::size_t asked, std::size_t count, Clock::duration time) {
    const auto bytes = static_cast<qint64>(count);
    onTheWay_ -= static_cast<qint64>(asked);
    left_ -= bytes;
    announced_ -= bytes;
    // A short answer in mid-file is no end: phones may send less than they are asked for.
    isOver_ = isOver_ || count == 0 || (count < asked && announced_ == 0);
    if (asked == size_.bytes())
        size_.took(time);
}

AFCFileReader::AFCFileReader(AFCSession& session, QString path, const FileItem& file,
                             ByteRange range, const ByteSink& sink, std::stop_token stop)
    : session_(session),
      path_(std::move(path)),
      file_(file),
      offset_(range.offset),
      sink_(sink),
      stop_(std::move(stop)),
      wanted_(range, file.size) {}

bool AFCFileReader::step(const std::function<bool()>& isDue) {
    receive(open(), isDue);
    session_.step([](Opened& opened) { closeFile(opened); }, stop_);
    return wanted_.next() > 0;
}

AFCPieces AFCFileReader::open() {
    const bool checks = std::exchange(isBegun_, true);
    return AFCPieces(session_.begin(
        [path = path_, file = file_, checks, at = offset_ + received_](Opened& opened) {
            if (checks)
                requireStill(opened, file, path);
            AFCLink& link = *opened.link;
            opened.file = link.openFile(link.inContainer(path), AFCFileMode::read);
            if (at > 0)
                opened.file->seek(at);
            return link.content();
        },
        stop_));
}

AFCFlight AFCFileReader::askFor(const std::shared_ptr<AFCPiece>& piece, std::size_t size) {
    wanted_.asked(size);
    return {session_.start([piece, size](const Opened& opened) {
                const auto begin = Clock::now();
                piece->count = opened.file->read(piece->first(size));
                return Clock::now() - begin;
            }),
            size};
}

void AFCFileReader::receive(const AFCPieces& pieces, const std::function<bool()>& isDue) {
    std::deque<AFCFlight> flights;
    std::size_t asked = 0;
    bool isPassing = false;
    for (std::size_t turn = 0;; ++turn) {
        while (!isPassing && flights.size() < AFCFlight::most) {
            const std::size_t bytes = wanted_.next();
            if (bytes == 0)
                break;
            flights.push_back(askFor(pieces[asked++], bytes));
        }
        if (flights.empty())
            return;
        const AFCFlight flight = std::move(flights.front());
        flights.pop_front();
        const Clock::duration time = session_.waitFor(flight.answer, stop_);
        throwIfStopped(stop_);
        const AFCPiece& piece = *pieces[turn];
        wanted_.took(flight.bytes, piece.count, time);
        if (piece.count > 0)
            sink_(piece.first(piece.count));
        received_ += static_cast<qint64>(piece.count);
        isPassing = isPassing || isDue();
    }
}

} // namespace tessary
