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
    /// What the user asks for, beside what the queue does.
    struct Callbacks {
        /// Shows a local file in the desktop's file manager.
        std::function<void(const QString& path)> showInFolder;
        /// Brings what is missing of a copy.
        std::function<void(const QUuid& id)> goOn;
        std::function<void()> showHistory;
    };

    /// `queue` must outlive the panel.
    TransferPanel(CopyQueue& queue, Callbacks callbacks);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void showSummary();
    void fitSummary();
    void followRunningJob(const QModelIndex& changed);
    void cancelSelected();
    void move(const QModelIndex& index, int rows);
    [[nodiscard]] bool hasCopy(const QModelIndex& index) const;
    void showCopy(const QModelIndex& index);
    void showMenu(const QPoint& position);

    CopyQueue& queue_;
    const Callbacks callbacks_;
    TransferListModel model_;
    QLabel* title_;
    QPushButton* cancelAll_;
    QPushButton* clear_;
    QPushButton* history_;
    QListView* list_;
    QUuid followed_;
};

} // namespace tessary
