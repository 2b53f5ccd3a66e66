#pragma once

#include "transfer/TransferViewModel.h"

#include <QAbstractListModel>

namespace tessary {

/// The transfers as rows, oldest first.
class TransferListModel : public QAbstractListModel {
    Q_OBJECT

public:
    /// `transfers` must outlive the model.
    explicit TransferListModel(TransferViewModel& transfers, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

    [[nodiscard]] const TransferJob* jobAt(const QModelIndex& index) const;

private:
    TransferViewModel& transfers_;
};

/// The line below a transfer's name: bytes, speed and time left, or how it ended.
[[nodiscard]] QString transferDetail(const TransferJob& job);

} // namespace tessary
