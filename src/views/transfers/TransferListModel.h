#pragma once

#include "transfer/queue/CopyQueue.h"

#include <QAbstractListModel>

namespace tessary {

/// The transfers as rows, oldest first.
class TransferListModel : public QAbstractListModel {
    Q_OBJECT

public:
    /// `queue` must outlive the model.
    explicit TransferListModel(CopyQueue& queue);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

    [[nodiscard]] const CopyJob* jobAt(const QModelIndex& index) const;

private:
    CopyQueue& queue_;
};

/// "a.jpg and 3 more": what is copied.
[[nodiscard]] QString transferTitle(const CopyJob& job);
/// "Google Pixel 7 → Downloads": the phone, or a folder's name, on either side.
[[nodiscard]] QString transferRoute(const CopyJob& job);
/// The line below a transfer's name: bytes, speed and time left, or how it ended.
[[nodiscard]] QString transferDetail(const CopyJob& job);

} // namespace tessary
