#pragma once

#include "devices/files/PhoneFileSystems.h"
#include "devices/list/DeviceManager.h"
#include "transfer/queue/CopyHistory.h"
#include "transfer/queue/CopyQueue.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tessary {

/// Keeps a record of every copy of a queue, finds the records again, and offers those that broke
/// off, in this run of the program or an earlier one, once their phones are back. Lives on the main
/// thread; the file is read and written in the background.
class RememberedCopies : public QObject {
    Q_OBJECT

public:
    /// All outlive it; `folder` is where the records lie.
    RememberedCopies(CopyQueue& queue, DeviceManager& devices, PhoneFileSystems& phones,
                     const QString& folder);

    /// The records that match a search, the latest first, as CopyHistory::find() has them. The
    /// receiver is dropped when `context` is gone by then.
    void find(const QString& search, QObject* context,
              std::function<void(std::vector<CopyRecord>)> found);
    void forgetAll();

    /// Copies that broke off, that can go on now and that the user was not asked about yet.
    [[nodiscard]] std::vector<CopyRecord> offered() const;
    /// The user has answered about what is offered(): they go on, or wait in the history.
    void goOnWithOffered();
    void declineOffered();

    /// Whether something of it is missing, and its phones are there.
    [[nodiscard]] bool canGoOn(const CopyRecord& record) const;
    /// Brings what is missing of a copy, under its id. No effect unless it canGoOn().
    void goOn(const CopyRecord& record);
    /// The same for one that stands in the queue.
    void goOn(const QUuid& id);

Q_SIGNALS:
    void offeredChanged();
    /// There is another record, or another of a copy.
    void recordsChanged();

private:
    /// What the history is not told yet, in the order in which it is told.
    struct News {
        bool forgetsAll = false;
        std::vector<QUuid> offered;
        std::vector<CopyRecord> records;
    };

    void keep(const QUuid& id);
    [[nodiscard]] News& news();
    void tellHistory();
    [[nodiscard]] std::optional<CopyEnds> reopened(const CopyJob& job) const;
    void noteOffered(const std::vector<CopyRecord>& records);

    CopyQueue& queue_;
    DeviceManager& devices_;
    PhoneFileSystems& phones_;
    const std::shared_ptr<CopyHistory> history_; ///< also held by what is under way
    std::optional<News> news_;                   ///< waits until what is being written is
    bool isWriting_ = false;
    std::vector<CopyRecord> unfinished_;
};

} // namespace tessary
