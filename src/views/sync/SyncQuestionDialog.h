#pragma once

#include "sync/plan/SyncReport.h"

#include <QDialog>

class QTreeWidget;

namespace tessary {

/// The question that a run waits with: which files are to be deleted, each for itself, or whether
/// to go on at all. "Stop" is its default, and what closing it means.
class SyncQuestionDialog : public QDialog {
    Q_OBJECT

public:
    explicit SyncQuestionDialog(const SyncQuestion& question, QWidget* parent = nullptr);

    /// The user's word, once the dialog has ended.
    [[nodiscard]] const SyncAnswer& answer() const {
        return answer_;
    }

private:
    void deleteChecked();

    QTreeWidget* list_ = nullptr; ///< of deletions only
    SyncAnswer answer_;
};

} // namespace tessary
