#include "ios/files/AFCFileWriter.h"

#include "ios/files/AFCSteps.h"

#include <algorithm>
#include <deque>

namespace tessary {

namespace {

using Opened = AFCSession::Opened;
using Clock = std::chrono::steady_clock;

} // namespace

AFCFileWriter::AFCFileWriter(AFCSession& session, QString path, const NewFile& file,
                             std::optional<qint64> keptBytes, const ByteSource& content,
                             const ByteProgress& progress, std::stop_token stop)
    : session_(session),
      path_(std::move(path)),
      file_(file),
      content_(content),
      progress_(progress),
      stop_(std::move(stop)),
      unfinished_(keptBytes || file.staysWhenBroken ? nullptr : std::make_shared<QString>()),
      isThere_(keptBytes.has_value()),
      offset_(keptBytes.value_or(0)) {}

bool AFCFileWriter::step(const std::function<bool()>& isDue) {
    const bool isMore = send(open(), isDue);
    if (isMore)
        session_.step([](Opened& opened) { closeFile(opened); }, stop_);
    else
        finish();
    return isMore;
}

AFCPieces AFCFileWriter::open() {
    const AFCPieces pieces(session_.begin(
        [path = path_, unfinished = unfinished_, isThere = isThere_, at = offset_](Opened& opened) {
            if (isThere) {
                goOn(opened, path, at);
            } else {
                create(opened, path);
                if (unfinished)
                    *unfinished = opened.link->inContainer(path);
            }
            return opened.link->content();
        },
        stop_));
    isThere_ = true;
    return pieces;
}

AFCFlight AFCFileWriter::give(const std::shared_ptr<AFCPiece>& piece) {
    return {session_.start([piece](const Opened& opened) {
                const auto begin = Clock::now();
                ByteView rest = piece->first(piece->count);
                while (!rest.empty()) {
                    const std::size_t taken = opened.file->write(rest);
                    if (taken == 0)
                        throw Error(PhoneError::refused, {});
                    rest = rest.subspan(taken);
                }
                return Clock::now() - begin;
            }),
            piece->count};
}

void AFCFileWriter::land(const AFCFlight& flight) {
    const Clock::duration time = session_.waitFor(flight.answer, stop_);
    offset_ += static_cast<qint64>(flight.bytes);
    if (flight.bytes == size_.bytes())
        size_.took(time);
    if (progress_)
        progress_(offset_);
}

/// False when the content has ended.
bool AFCFileWriter::send(const AFCPieces& pieces, const std::function<bool()>& isDue) {
    std::deque<AFCFlight> flights;
    const auto landOne = [&] {
        const AFCFlight flight = std::move(flights.front());
        flights.pop_front();
        land(flight);
    };
    bool isMore = true;
    for (std::size_t turn = 0; turn == 0 || !isDue(); ++turn) {
        if (flights.size() == AFCFlight::most)
            landOne();
        throwIfStopped(stop_);
        const std::shared_ptr<AFCPiece>& piece = pieces[turn];
        const std::size_t room = size_.bytes();
        piece->count = std::min(content_(piece->first(room)), room);
        throwIfStopped(stop_);
        isMore = piece->count > 0;
        if (!isMore)
            break;
        flights.push_back(give(piece));
    }
    while (!flights.empty())
        landOne();
    return isMore;
}

void AFCFileWriter::finish() {
    if (offset_ != file_.size)
        throw Error(PhoneError::wrongSize, {path_, offset_, file_.size});
    made_ = session_.step(
        [path = path_, size = offset_, date = file_.modified,
         unfinished = unfinished_](Opened& opened) {
            FileItem item = tessary::finish(opened, path, size, date);
            if (unfinished)
                unfinished->clear();
            return item;
        },
        stop_);
}

} // namespace tessary
