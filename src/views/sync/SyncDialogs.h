#pragma once

#include "platform/desktop/Notifier.h"
#include "sync/manager/SyncViewModel.h"
#include "views/sync/SyncPreviewDialog.h"
#include "views/sync/SyncQuestionDialog.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>

class QWidget;

namespace tessary {

/// The dialogs of the sync: the form that makes or edits a pair, the preview of a run, the
/// question that a run waits with, and the reports. Preview and question come and go with the view
/// model. What a run came to that began by itself is told over the desktop.
class SyncDialogs : public QObject {
    Q_OBJECT

public:
    /// Asks for a local folder, starting at one; empty when the user declined.
    using ChooseFolder = std::function<QString(QWidget* parent, const QString& startAt)>;

    /// Both must outlive it.
    SyncDialogs(SyncViewModel& sync, QWidget& window, ChooseFolder chooseFolder);

    /// Lets the user make a pair of the folder being browsed, in front of the window that asks.
    void makePair(QWidget& asker);
    /// May be null.
    void setNotifier(std::shared_ptr<Notifier> notifier) {
        notifier_ = std::move(notifier);
    }

private:
    void showForm(const SyncPair& draft, QWidget& asker);
    void editPair(const QUuid& id);
    void showReports(const QUuid& id);
    void tellOutcome(const QUuid& id);
    void showPreview();
    void showQuestion();

    SyncViewModel& sync_;
    QWidget& window_;
    ChooseFolder chooseFolder_;
    std::shared_ptr<Notifier> notifier_;
    QPointer<SyncPreviewDialog> preview_;
    QPointer<SyncQuestionDialog> question_;
};

} // namespace tessary
