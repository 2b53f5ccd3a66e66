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

} // namespace

void listAFCFolder(AFCSession& session, const std::function<AFCSession*()>& secondSession,
                   const QString& folder, const ListingReceiver& receiver,
                   const std::stop_token& stop) {
    const auto names = std::make_shared<const std::vector<QByteArray>>(
        session.begin([folder](const Opened& opened) { return namesIn(opened, folder); }, stop));
    AFCSession* const second = names->size() >= longListing ? secondSession() : nullptr;
    const auto ask = [&](AFCSession& by, std::size_t begin) {
        const std::size_t count = std::min(rowsAtATime, names->size() - begin);
        return by.start([folder, names, begin, count](const Opened& opened) {
            return rowsOf(opened, folder, std::span(*names).subspan(begin, count));
        });
    };
    using Answer = decltype(ask(session, 0));
    std::deque<Answer> answers; // of one connection and the other by turns
    std::size_t asked = 0;
    const auto askNext = [&] {
        if (asked >= names->size())
            return;
        const bool isSeconds = second != nullptr && asked / rowsAtATime % 2 == 1;
        answers.push_back(ask(isSeconds ? *second : session, asked));
        asked += rowsAtATime;
    };
    // Each connection has one piece under way and one that waits.
    for (int n = 0; n < (second != nullptr ? 4 : 2); ++n)
        askNext();
    while (!answers.empty()) {
        std::vector<AFCRow> rows = session.waitFor(answers.front(), stop);
        answers.pop_front();
        throwIfStopped(stop);
        askNext();
        handOver(std::move(rows), receiver);
    }
    // What came last is known to have come in full only when another answer follows it.
    for (AFCSession* each : {&session, second})
        if (each != nullptr && !names->empty())
            each->step([](const Opened& opened) { opened.link->requireLink(); }, stop);
}

} // namespace tessary
