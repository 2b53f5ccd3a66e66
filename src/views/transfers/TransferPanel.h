#pragma once

#include "views/transfers/TransferListModel.h"

#include <QUuid>
#include <QWidget>

#include <functional>

class QLabel;
class QListView;
class QPushButton;

namespace tessary {

/// The transfers: a line about the whole queue, and a row for each. Hidden while there are none.
class TransferPanel : public QWidget {
    Q_OBJECT

public:
    /// Shows a local file in the desktop's file manager.
    using ShowInFolder = std::function<void(const QString& path)>;

    /// `queue` must outlive the panel.
    TransferPanel(CopyQueue& queue, ShowInFolder showInFolder, QWidget* parent = nullptr);

private:
    void showSummary();
    void followRunningJob(const QModelIndex& changed);
    void cancelSelected();
    [[nodiscard]] bool hasCopy(const QModelIndex& index) const;
    void showCopy(const QModelIndex& index);
    void showMenu(const QPoint& position);

    CopyQueue& queue_;
    const ShowInFolder showInFolder_;
    TransferListModel model_;
    QLabel* title_;
    QPushButton* cancelAll_;
    QPushButton* clear_;
    QListView* list_;
    QUuid followed_;
};

/// "2 of 5 · 34 MB / 120 MB · 12 MB/s · 7 s left".
[[nodiscard]] QString summaryText(const CopySummary& summary);

} // namespace tessary
