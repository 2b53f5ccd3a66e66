#include "ios/files/AFCListing.h"

#include "base/log/DiagnosticsLogger.h"
#include "ios/files/AFCSteps.h"

#include <algorithm>
#include <deque>
#include <span>

namespace tessary {

namespace {

using Opened = AFCSession::Opened;

/// Rows are handed over, and a stop is heard, after so many requests.
constexpr std::size_t rowsAtATime = 32;
/// From so many entries on a second connection is worth its making.
constexpr std::size_t longListing = 500;

void handOver(std::vector<AFCRow>&& rows, const ListingReceiver& receiver) {
    std::vector<FileItem> items;
    for (AFCRow& row : rows) {
        if (auto* item = std::get_if<FileItem>(&row)) {
            items.push_back(std::move(*item));
            continue;
        }
        auto& entry = std::get<UnreadableEntry>(row);
        if (receiver.unreadable)
            receiver.unreadable(std::move(entry));
        else
            DiagnosticsLogger::shared().afc.error("Left out of a listing: %s",
                                                  {entry.error.logText()});
    }
    if (!items.empty())
        receiver.rows(std::move(items));
}

/// Asks for the rows of a folder's names, in their order.
class RowQuestions {
public:
    RowQuestions(QString folder, std::shared_ptr<const std::vector<QByteArray>> names)
        : folder_(std::move(folder)), names_(std::move(names)) {}

    /// Gives a connection as much to do as keeps it busy; false when there is nothing left.
    bool ask(AFCSession& by) {
        constexpr std::ptrdiff_t most = 3;
        const auto isBy = [&by](const Asked& one) { return one.by == &by; };
        while (next_ < names_->size() && std::count_if(asked_.begin(), asked_.end(), isBy) < most) {
            const std::size_t count = std::min(rowsAtATime, names_->size() - next_);
            asked_.push_back({&by, by.start([folder = folder_, names = names_, begin = next_,
                                             count](const Opened& opened) {
                                  return rowsOf(opened, folder,
                                                std::span(*names).subspan(begin, count));
                              })});
            next_ += count;
        }
        return next_ < names_->size();
    }
    [[nodiscard]] bool isOver() const {
        return asked_.empty();
    }
    [[nodiscard]] std::vector<AFCRow> next(const std::stop_token& stop) {
        const Asked first = std::move(asked_.front());
        asked_.pop_front();
        return first.by->waitFor(first.rows, stop);
    }

private:
    struct Asked {
        AFCSession* by = nullptr;
        SerialQueue::Started<std::vector<AFCRow>> rows;
    };

    const QString folder_;
    const std::shared_ptr<const std::vector<QByteArray>> names_;
    std::size_t next_ = 0; ///< that nobody was asked about
    std::deque<Asked> asked_;
};

} // namespace

void listAFCFolder(AFCSession& session, const std::function<AFCSession&()>& secondSession,
                   const QString& folder, const ListingReceiver& receiver,
                   const std::stop_token& stop) {
    const auto names = std::make_shared<const std::vector<QByteArray>>(
        session.begin([folder](const Opened& opened) { return namesIn(opened, folder); }, stop));
    RowQuestions questions(folder, names);
    AFCSession* const second = names->size() >= longListing ? &secondSession() : nullptr;
    const auto isSecondOpen = second != nullptr ? second->openSoon(stop) : nullptr;
    bool hasAskedSecond = false;
    for (;;) {
        const bool isMore = questions.ask(session);
        if (isMore && isSecondOpen && *isSecondOpen) {
            (void)questions.ask(*second);
            hasAskedSecond = true;
        }
        if (questions.isOver())
            break;
        std::vector<AFCRow> rows = questions.next(stop);
        throwIfStopped(stop);
        handOver(std::move(rows), receiver);
    }
    // What came last is known to have come in full only when another answer follows it.
    const auto requireLink = [](const Opened& opened) { opened.link->requireLink(); };
    if (!names->empty())
        session.step(requireLink, stop);
    if (hasAskedSecond)
        second->step(requireLink, stop);
}

} // namespace tessary
