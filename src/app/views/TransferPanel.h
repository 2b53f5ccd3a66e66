#pragma once

#include "app/views/TransferListModel.h"

#include <QUuid>
#include <QWidget>

class QLabel;
class QListView;
class QPushButton;

namespace tessary {

/// The transfers: a line about the whole queue, and a row for each. Hidden while there are none.
class TransferPanel : public QWidget {
public:
    /// `transfers` must outlive the panel.
    explicit TransferPanel(TransferViewModel& transfers, QWidget* parent = nullptr);

private:
    void showSummary();
    void followRunningJob(const QModelIndex& changed);
    void cancelSelected();

    TransferViewModel& transfers_;
    TransferListModel model_;
    QLabel* title_;
    QPushButton* cancelAll_;
    QPushButton* clear_;
    QListView* list_;
    QUuid followed_;
};

/// "2 of 5 · 34 MB / 120 MB · 12 MB/s · 7 s left".
[[nodiscard]] QString summaryText(const TransferSummary& summary);

} // namespace tessary
