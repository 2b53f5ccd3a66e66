#include "views/sync/SyncDialogs.h"

#include "app/texts/SyncTexts.h"
#include "base/text/Printable.h"
#include "views/sync/SyncPairDialog.h"
#include "views/sync/SyncReportDialog.h"

#include <QStandardPaths>

namespace tessary {

SyncDialogs::SyncDialogs(SyncViewModel& sync, QWidget& window, std::shared_ptr<Notifier> notifier)
    : QObject(&window), sync_(sync), window_(window), notifier_(std::move(notifier)) {
    connect(&sync, &SyncViewModel::previewChanged, this, &SyncDialogs::showPreview);
    connect(&sync, &SyncViewModel::questionChanged, this, &SyncDialogs::showQuestion);
    connect(&sync, &SyncViewModel::editRequested, this, &SyncDialogs::editPair);
    connect(&sync, &SyncViewModel::reportsRequested, this, &SyncDialogs::showReports);
    connect(&sync.manager(), &SyncManager::runEnded, this, &SyncDialogs::tellOutcome);
}

void SyncDialogs::makePair(QWidget& asker) {
    const auto draft =
        sync_.draft(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    if (draft)
        showForm(*draft, asker);
}

void SyncDialogs::showForm(const SyncPair& draft, QWidget& asker) {
    auto* form = new SyncPairDialog(draft, SyncPairDialog::Purpose::makes, &asker);
    form->setAttribute(Qt::WA_DeleteOnClose);
    connect(form, &QDialog::accepted, this, [this, form] { sync_.requestPreview(form->pair()); });
    form->open();
}

void SyncDialogs::editPair(const QUuid& id) {
    const SyncPair* pair = sync_.manager().pair(id);
    if (pair == nullptr)
        return;
    auto* form = new SyncPairDialog(*pair, SyncPairDialog::Purpose::edits, &window_);
    form->setAttribute(Qt::WA_DeleteOnClose);
    connect(form, &QDialog::accepted, this,
            [this, form] { sync_.manager().updateSyncPair(form->pair()); });
    form->open();
}

void SyncDialogs::showReports(const QUuid& id) {
    auto* dialog = new SyncReportDialog(&window_);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
    sync_.manager().reports(
        id, [shown = QPointer<SyncReportDialog>(dialog)](std::vector<SyncReport> reports) {
            if (shown)
                shown->setReports(std::move(reports));
        });
}

/// Nobody may be looking when a run began by itself.
void SyncDialogs::tellOutcome(const QUuid& id) {
    const SyncPair* pair = sync_.manager().pair(id);
    const SyncReport* report = sync_.manager().lastReport(id);
    if (!notifier_ || pair == nullptr || report == nullptr || !sync_.beganByItself(id))
        return;
    notifier_->notify(tr("Sync of %1").arg(printable(pair->deviceName)), reportText(*report),
                      [window = QPointer<QWidget>(&window_)] {
                          if (window) {
                              window->show();
                              window->raise();
                              window->activateWindow();
                          }
                      });
}

void SyncDialogs::showPreview() {
    const auto& preview = sync_.preview();
    if (!preview) {
        if (preview_)
            preview_->close();
        return;
    }
    if (!preview_) {
        auto* dialog = new SyncPreviewDialog(&window_);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->setWindowModality(Qt::WindowModal);
        connect(dialog, &QDialog::accepted, this,
                [this, dialog] { sync_.confirmPreview(dialog->decisions()); });
        connect(dialog, &QDialog::rejected, this, [this] {
            const auto rejected = sync_.preview(); // none when it was closed for the user
            sync_.closePreview();
            if (!rejected || sync_.manager().pair(rejected->pair.id) != nullptr)
                return;
            SyncPair again = rejected->pair;
            again.id = QUuid::createUuid(); // a late answer is about the other
            showForm(again, window_);
        });
        preview_ = dialog;
    }
    preview_->show(*preview);
}

void SyncDialogs::showQuestion() {
    const auto& question = sync_.question();
    if (!question) {
        // Answered elsewhere, or the run that asked has ended: no answer is wanted any more.
        if (question_) {
            question_->disconnect(this);
            question_->close();
        }
        return;
    }
    question_ = new SyncQuestionDialog(*question, &window_);
    question_->setAttribute(Qt::WA_DeleteOnClose);
    connect(question_, &QDialog::accepted, this, [this] { sync_.answer(question_->answer()); });
    connect(question_, &QDialog::rejected, this, [this] { sync_.answer(SyncAnswer::stop()); });
    question_->open();
}

} // namespace tessary
