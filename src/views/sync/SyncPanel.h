#pragma once

#include "sync/manager/SyncViewModel.h"

#include <QFrame>

#include <functional>

class QPushButton;

namespace tessary {

class SyncPairList;

/// The sync menu: the pairs with their state and what may be done with them, and what makes a new
/// one. A popup that closes when the user clicks elsewhere.
class SyncPanel : public QFrame {
    Q_OBJECT

public:
    /// `sync` must outlive it. `makePair` lets the user make a pair of the folder being browsed.
    SyncPanel(SyncViewModel& sync, std::function<void()> makePair, QWidget* parent = nullptr);

    /// Opens it below a widget, as a menu of it.
    void popUpBelow(const QWidget& anchor);

private:
    void updateButtons();
    /// Rows may have come, or have got more words.
    void fit();

    SyncViewModel& sync_;
    SyncPairList* pairs_;
    QPushButton* makePair_;
    QPushButton* runAll_;
};

} // namespace tessary
