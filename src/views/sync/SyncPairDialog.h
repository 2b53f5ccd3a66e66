#pragma once

#include "sync/pair/SyncPair.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace tessary {

/// Sets a sync pair up, a new one or one that is there: the local folder, the mode, what happens to
/// deleted and transferred files, what is left out, and whether it runs by itself, with one plain
/// sentence that says what will come of it.
class SyncPairDialog : public QDialog {
    Q_OBJECT

public:
    enum class Purpose { makes, edits };

    SyncPairDialog(SyncPair pair, Purpose purpose, QWidget* parent);

    /// As the user has set it up.
    [[nodiscard]] const SyncPair& pair() const {
        return pair_;
    }

private:
    void change();

    SyncPair pair_;
    QLineEdit* folder_;
    QComboBox* mode_;
    QCheckBox* deletes_;
    QCheckBox* moves_;
    QCheckBox* runsByItself_;
    QPlainTextEdit* patterns_;
    QLabel* sentence_;
    QPushButton* next_ = nullptr;
};

} // namespace tessary
