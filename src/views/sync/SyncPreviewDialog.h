#pragma once

#include "sync/manager/SyncViewModel.h"

#include <QDialog>
#include <QHash>

class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace tessary {

/// What a run would do, file by file, before anything is done. What would be deleted can be taken
/// out, and each conflict decided.
class SyncPreviewDialog : public QDialog {
    Q_OBJECT

public:
    explicit SyncPreviewDialog(QWidget* parent = nullptr);

    void show(const SyncViewModel::Preview& preview);
    /// As the user has made them.
    [[nodiscard]] SyncDecisions decisions() const;

private:
    void fill(const SyncPreview& plan);
    [[nodiscard]] QTreeWidgetItem* makeRow(const SyncPreviewItem& item, bool isGuarded);
    void addChoices();

    QLabel* title_;
    QLabel* counts_;
    QLabel* warning_;
    QProgressBar* busy_;
    QTreeWidget* list_;
    QPushButton* cancel_ = nullptr;
    QPushButton* run_ = nullptr;
    SyncGuard::Kind guard_ = SyncGuard::Kind::nothing;
    QHash<QString, QTreeWidgetItem*> deletions_; ///< by path
    QHash<QString, QTreeWidgetItem*> conflicts_;
    QHash<QString, QComboBox*> choices_;
};

} // namespace tessary
