#include "app/copies/RememberedCopies.h"

#include "app/copies/CopyReopening.h"
#include "base/log/DiagnosticsLogger.h"
#include "base/threads/Background.h"

#include <algorithm>
#include <utility>

namespace tessary {

namespace {

/// A history that cannot be written costs nothing but itself.
void attempt(const std::function<void()>& work) {
    try {
        work();
    } catch (const Error& error) {
        DiagnosticsLogger::shared().transfer.error("the copies' history is not kept: %s",
                                                   {error.logText()});
    }
}

} // namespace

RememberedCopies::RememberedCopies(CopyQueue& queue, DeviceManager& devices,
                                   PhoneFileSystems& phones, const QString& folder)
    : queue_(queue),
      devices_(devices),
      phones_(phones),
      history_(std::make_shared<CopyHistory>(folder)) {
    connect(&queue, &CopyQueue::recordChanged, this, &RememberedCopies::keep);
    connect(&devices, &DeviceManager::devicesChanged, this, &RememberedCopies::offeredChanged);
    tellHistory();
}

void RememberedCopies::keep(const QUuid& id) {
    news().records.push_back(queue_.recordOf(id));
    tellHistory();
}

RememberedCopies::News& RememberedCopies::news() {
    return news_ ? *news_ : news_.emplace();
}

/// One writes at a time, so that nothing older comes after what is newer; and what it finds counts
/// only while nothing newer waits.
void RememberedCopies::tellHistory() {
    if (std::exchange(isWriting_, true))
        return;
    runInBackground(
        this,
        [history = history_, news = std::exchange(news_, {}).value_or(News())] {
            if (news.forgetsAll)
                attempt([&] { history->clear(); });
            if (!news.offered.empty())
                attempt([&] { history->noteOffered(news.offered); });
            if (!news.records.empty())
                attempt([&] { history->add(news.records); });
            return history->unfinished();
        },
        [this](BackgroundResult<std::vector<CopyRecord>> result) {
            isWriting_ = false;
            if (news_)
                tellHistory();
            else
                takeUnfinished(result.take());
            Q_EMIT recordsChanged();
        });
}

void RememberedCopies::takeUnfinished(std::vector<CopyRecord> records) {
    unfinished_ = std::move(records);
    Q_EMIT offeredChanged();
}

void RememberedCopies::find(const QString& search, QObject* context,
                            std::function<void(std::vector<CopyRecord>)> found) {
    runInBackground(
        context, [history = history_, search] { return history->find(search); },
        [found = std::move(found)](BackgroundResult<std::vector<CopyRecord>> result) {
            found(result.take());
        });
}

void RememberedCopies::forgetAll() {
    unfinished_.clear();
    news_ = News{true, {}, {}};
    tellHistory();
    Q_EMIT offeredChanged();
}

bool RememberedCopies::canGoOn(const CopyRecord& record) const {
    const int index = queue_.indexOf(record.job.id);
    if (index >= 0 && !queue_.jobs()[static_cast<std::size_t>(index)].canGoOn())
        return false;
    return record.job.canGoOn() && !record.rest.empty() &&
           reopen(record.job, devices_.devices(), phones_).has_value();
}

void RememberedCopies::goOn(const CopyRecord& record) {
    if (!canGoOn(record))
        return;
    if (queue_.indexOf(record.job.id) >= 0) {
        goOn(record.job.id);
        return;
    }
    const auto ends = reopen(record.job, devices_.devices(), phones_);
    queue_.enqueue(record.requestForRest(ends->from, ends->to), {}, record.job.id);
}

void RememberedCopies::goOn(const QUuid& id) {
    const int index = queue_.indexOf(id);
    if (index < 0)
        return;
    const CopyJob& job = queue_.jobs()[static_cast<std::size_t>(index)];
    // One whose phone is not there says so itself.
    queue_.goOn(id, reopen(job, devices_.devices(), phones_).value_or(CopyEnds{}));
}

std::vector<CopyRecord> RememberedCopies::offered() const {
    std::vector<CopyRecord> ready;
    std::copy_if(unfinished_.begin(), unfinished_.end(), std::back_inserter(ready),
                 [this](const CopyRecord& one) { return canGoOn(one); });
    return ready;
}

void RememberedCopies::goOnWithOffered() {
    const std::vector<CopyRecord> records = offered();
    noteOffered(records);
    // The oldest stands first in the queue.
    for (auto record = records.rbegin(); record != records.rend(); ++record)
        goOn(*record);
}

void RememberedCopies::declineOffered() {
    noteOffered(offered());
}

void RememberedCopies::noteOffered(const std::vector<CopyRecord>& records) {
    News& news = this->news();
    const auto isAmong = [&records](const CopyRecord& one) {
        return std::any_of(records.begin(), records.end(),
                           [&one](const CopyRecord& each) { return each.job.id == one.job.id; });
    };
    for (const CopyRecord& record : records)
        news.offered.push_back(record.job.id);
    for (CopyRecord& record : news.records)
        record.wasOffered = record.wasOffered || isAmong(record);
    std::erase_if(unfinished_, isAmong);
    tellHistory();
    Q_EMIT offeredChanged();
}

} // namespace tessary
