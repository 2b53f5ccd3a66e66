#pragma once

#include "app/copies/RememberedCopies.h"

#include <QDialog>

#include <functional>
#include <vector>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTreeWidget;

namespace tessary {

/// The copies of the last month, with a field to search them, what each left out and why, and a way
/// to bring that.
class CopyHistoryDialog : public QDialog {
    Q_OBJECT

public:
    using ShowInFolder = std::function<void(const QString& path)>;

    /// `copies` must outlive it.
    CopyHistoryDialog(RememberedCopies& copies, ShowInFolder showInFolder,
                      QWidget* parent = nullptr);

private:
    void search();
    void showRecords(std::vector<CopyRecord> records);
    void showRecord();
    void updateButtons();
    void askToForget();
    [[nodiscard]] const CopyRecord* chosen() const;

    RememberedCopies& copies_;
    const ShowInFolder showInFolder_;
    std::vector<CopyRecord> records_;
    QLineEdit* field_;
    QListWidget* list_;
    QLabel* outcome_;
    QTreeWidget* leftOut_;
    QPushButton* retry_;
    QPushButton* show_;
    QPushButton* forget_;
};

} // namespace tessary
