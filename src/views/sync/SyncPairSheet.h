#pragma once

#include "sync/old/plan/SyncPair.h"

#include <QDialog>

#include <functional>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tessary {

/// Makes a sync pair of a device folder: the local folder, the mode, and what happens to deleted
/// and transferred files, with one plain sentence that says what will come of it.
class SyncPairSheet : public QDialog {
    Q_OBJECT

public:
    using ChooseFolder = std::function<QString(QWidget* parent, const QString& startAt)>;

    SyncPairSheet(SyncPair draft, ChooseFolder chooseFolder, QWidget* parent = nullptr);

    /// As the user has set it up.
    [[nodiscard]] const SyncPair& pair() const {
        return pair_;
    }

private:
    void change();

    SyncPair pair_;
    ChooseFolder chooseFolder_;
    QLineEdit* folder_;
    QComboBox* mode_;
    QCheckBox* deletes_;
    QCheckBox* moves_;
    QLabel* sentence_;
    QPushButton* next_;
};

} // namespace tessary
