#include "app/copies/RememberedCopies.h"

#include "base/log/DiagnosticsLogger.h"
#include "base/threads/Background.h"
#include "transfer/local/LocalFileSystem.h"

#include <algorithm>
#include <utility>

namespace tessary {

namespace {

using namespace Qt::StringLiterals;

const QLatin1StringView local{"local:"};

std::shared_ptr<PhoneFileSystem> openPhone(const QString& identity, const QString& appName,
                                           const std::vector<DeviceInfo>& attached,
                                           PhoneFileSystems& phones) {
    for (const DeviceInfo& device : attached) {
        if (!device.isDataAccessible())
            continue;
        std::shared_ptr<PhoneFileSystem> files;
        if (device.platform == DevicePlatform::iOS) {
            const QString phone = u"ios:%1:"_s.arg(device.udid);
            if (identity.startsWith(phone)) {
                const QString bundle = identity.mid(phone.size());
                const QString name = appName.isEmpty() ? bundle : appName; // of an older record
                files = phones.openApp(device, {bundle, name, true, false});
            }
        } else {
            files = phones.open(device);
        }
        if (files && files->identity() == identity)
            return files;
    }
    return nullptr;
}

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
            if (news_) {
                tellHistory();
            } else {
                unfinished_ = result.take();
                Q_EMIT offeredChanged();
            }
            Q_EMIT recordsChanged();
        });
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

/// The file systems of a copy of an earlier time, this computer's folders included; no value while
/// one of its phones is not attached by the same way, or does not show its files. Asks no phone.
std::optional<CopyEnds> RememberedCopies::reopened(const CopyJob& job) const {
    const auto open = [this](const QString& identity, const QString& appName,
                             LocalLinks links) -> std::shared_ptr<PhoneFileSystem> {
        if (identity.startsWith(local))
            return std::make_shared<LocalFileSystem>(identity.mid(local.size()), links);
        return openPhone(identity, appName, devices_.devices(), phones_);
    };
    CopyEnds ends{open(job.source, job.sourceApp, LocalLinks::filesFollowed),
                  open(job.target, job.targetApp, LocalLinks::reported)};
    return ends.from && ends.to ? std::optional(std::move(ends)) : std::nullopt;
}

bool RememberedCopies::canGoOn(const CopyRecord& record) const {
    const int index = queue_.indexOf(record.job.id);
    if (index >= 0 && !queue_.jobs()[static_cast<std::size_t>(index)].canGoOn())
        return false;
    return record.job.canGoOn() && !record.rest.empty() && reopened(record.job).has_value();
}

void RememberedCopies::goOn(const CopyRecord& record) {
    if (!canGoOn(record))
        return;
    if (queue_.indexOf(record.job.id) >= 0) {
        goOn(record.job.id);
        return;
    }
    const auto ends = reopened(record.job);
    queue_.enqueue(record.requestForRest(ends->from, ends->to), {}, record.job.id);
}

void RememberedCopies::goOn(const QUuid& id) {
    const int index = queue_.indexOf(id);
    if (index < 0)
        return;
    const CopyJob& job = queue_.jobs()[static_cast<std::size_t>(index)];
    // One whose phone is not there says so itself.
    queue_.goOn(id, reopened(job).value_or(CopyEnds{}));
}

std::vector<CopyRecord> RememberedCopies::offered() const {
    std::vector<CopyRecord> ready;
    std::ranges::copy_if(unfinished_, std::back_inserter(ready),
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
    for (const CopyRecord& record : records)
        news.offered.push_back(record.job.id);
    const auto isAmong = [&records](const CopyRecord& one) {
        return std::ranges::any_of(
            records, [&one](const CopyRecord& each) { return each.job.id == one.job.id; });
    };
    for (CopyRecord& record : news.records)
        record.wasOffered = record.wasOffered || isAmong(record);
    std::erase_if(unfinished_, isAmong);
    tellHistory();
    Q_EMIT offeredChanged();
}

} // namespace tessary
