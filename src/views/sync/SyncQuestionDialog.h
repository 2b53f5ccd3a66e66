#pragma once

#include "sync/old/plan/SyncReport.h"

#include <QDialog>

namespace tessary {

/// The question that a run waits with: which files would be deleted, and where.
class SyncQuestionDialog : public QDialog {
    Q_OBJECT

public:
    explicit SyncQuestionDialog(const SyncQuestion& question, QWidget* parent = nullptr);
};

} // namespace tessary
