#pragma once

#include "sync/manager/SyncViewModel.h"

#include <QHash>
#include <QUuid>
#include <QWidget>

#include <optional>

class QLabel;
class QScrollArea;
class QVBoxLayout;

namespace tessary {

class SyncPairRow;

/// The pairs with their state and what may be done with them, or words about how to make one.
class SyncPairList : public QWidget {
    Q_OBJECT

public:
    /// `sync` must outlive it.
    explicit SyncPairList(SyncViewModel& sync);

    /// Shows the pairs of one device only.
    void showDevice(const QString& udid);
    /// Gives the rows the height that they take at this width, all in pixels; beyond the tallest
    /// they scroll.
    void fitRows(int width, int tallest);

private:
    void rebuild();

    SyncViewModel& sync_;
    std::optional<QString> udid_; ///< no value: all pairs
    QLabel* none_;
    QScrollArea* scroll_;
    QVBoxLayout* rows_;
    QHash<QUuid, SyncPairRow*> rowOf_;
};

} // namespace tessary
