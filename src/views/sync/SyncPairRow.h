#pragma once

#include "sync/manager/SyncViewModel.h"

#include <QWidget>

class QLabel;
class QProgressBar;
class QMenu;
class QToolButton;

namespace tessary {

/// One pair of the sync menu: what is tied to what, how it stands, run and cancel, and a menu for
/// what else may be done with it.
class SyncPairRow : public QWidget {
    Q_OBJECT

public:
    /// `sync` must outlive it.
    SyncPairRow(SyncViewModel& sync, const QUuid& id);

    /// Shows the pair as it is now.
    void update();

private:
    void remove();
    void fillMenu();
    [[nodiscard]] QString stateOf(const SyncPair& pair) const;

    SyncViewModel& sync_;
    const QUuid id_;
    QLabel* title_;
    QLabel* detail_;
    QLabel* state_;
    QProgressBar* progress_;
    QToolButton* run_;
    QToolButton* cancel_;
    QToolButton* more_;
    QMenu* menu_;
};

} // namespace tessary
