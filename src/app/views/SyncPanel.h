#pragma once

#include "sync/SyncViewModel.h"

#include <QFrame>
#include <QHash>
#include <QUuid>

#include <functional>

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace tessary {

class SyncPairRow;

/// The sync menu: the pairs with their state and what may be done with them, and what makes a new
/// one. A popup that closes when the user clicks elsewhere.
class SyncPanel : public QFrame {
public:
    /// `sync` must outlive it. `makePair` lets the user make a pair of the folder being browsed.
    SyncPanel(SyncViewModel& sync, std::function<void()> makePair, QWidget* parent = nullptr);

    /// Opens it below a widget, as a menu of it.
    void popUpBelow(const QWidget& anchor);

private:
    void rebuild();
    void updateButtons();

    SyncViewModel& sync_;
    QVBoxLayout* rows_;
    QLabel* none_;
    QPushButton* makePair_;
    QPushButton* runAll_;
    QHash<QUuid, SyncPairRow*> rowOf_;
};

} // namespace tessary
