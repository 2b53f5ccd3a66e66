#pragma once

#include "sync/plan/SyncReport.h"

#include <QDialog>

#include <vector>

class QLabel;
class QListWidget;
class QTreeWidget;

namespace tessary {

/// What the runs of a pair did, the newest first, and in each to which file, and what was left as
/// it is and why.
class SyncReportDialog : public QDialog {
    Q_OBJECT

public:
    explicit SyncReportDialog(QWidget* parent = nullptr);

    /// The newest first.
    void setReports(std::vector<SyncReport> reports);

private:
    void showReport(int row);

    std::vector<SyncReport> reports_;
    QListWidget* runs_;
    QLabel* outcome_;
    QTreeWidget* files_;
};

} // namespace tessary
