#pragma once

#include "sync/manager/SyncViewModel.h"

#include <QDialog>

class QLabel;
class QProgressBar;
class QPushButton;
class QTreeWidget;

namespace tessary {

/// What the first run of a pair would do, file by file, before anything is done.
class SyncPreviewDialog : public QDialog {
    Q_OBJECT

public:
    explicit SyncPreviewDialog(QWidget* parent = nullptr);

    void show(const SyncViewModel::Preview& preview);

private:
    void fill(const SyncPreview& plan);

    QLabel* title_;
    QLabel* warning_;
    QProgressBar* busy_;
    QTreeWidget* list_;
    QPushButton* run_;
};

} // namespace tessary
