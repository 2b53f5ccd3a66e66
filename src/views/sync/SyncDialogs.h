#pragma once

#include "sync/manager/SyncViewModel.h"

#include <QObject>
#include <QPointer>

#include <functional>

class QDialog;
class QWidget;

namespace tessary {

/// The dialogs of the sync: the sheet that makes a pair, the preview of a pair's first run, and
/// the question about deletions. Preview and question come and go with the view model.
class SyncDialogs : public QObject {
public:
    /// Asks for a local folder, starting at one; empty when the user declined.
    using ChooseFolder = std::function<QString(QWidget* parent, const QString& startAt)>;

    /// Both must outlive it.
    SyncDialogs(SyncViewModel& sync, QWidget& window, ChooseFolder chooseFolder);

    /// Lets the user make a pair of the folder being browsed.
    void makePair();

private:
    void showPreview();
    void showQuestion();

    SyncViewModel& sync_;
    QWidget& window_;
    ChooseFolder chooseFolder_;
    QPointer<QDialog> preview_;
    QPointer<QDialog> question_;
};

} // namespace tessary
