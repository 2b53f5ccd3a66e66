#pragma once

#include "platform/desktop/Notifier.h"
#include "sync/manager/SyncViewModel.h"
#include "views/sync/SyncPreviewDialog.h"
#include "views/sync/SyncQuestionDialog.h"

#include <QObject>
#include <QPointer>

#include <memory>

class QWidget;

namespace tessary {

/// The dialogs of the sync: the form that makes or edits a pair, the preview of a run, the
/// question that a run waits with, and the reports. Preview and question come and go with the view
/// model. What a run came to that began by itself is told over the desktop.
class SyncDialogs : public QObject {
    Q_OBJECT

public:
    /// Both must outlive it; the notifier may be null.
    SyncDialogs(SyncViewModel& sync, QWidget& window, std::shared_ptr<Notifier> notifier);

    /// Lets the user make a pair of the folder being browsed, in front of the window that asks.
    void makePair(QWidget& asker);

private:
    void showForm(const SyncPair& draft, QWidget& asker);
    void editPair(const QUuid& id);
    void showReports(const QUuid& id);
    void tellOutcome(const QUuid& id);
    void showPreview();
    void showQuestion();

    SyncViewModel& sync_;
    QWidget& window_;
    const std::shared_ptr<Notifier> notifier_;
    QPointer<SyncPreviewDialog> preview_;
    QPointer<SyncQuestionDialog> question_;
};

} // namespace tessary
