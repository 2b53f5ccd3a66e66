#include "views/sync/SyncDialogs.h"

#include "views/sync/SyncPairSheet.h"
#include "views/sync/SyncPreviewDialog.h"
#include "views/sync/SyncQuestionDialog.h"

#include <QDir>
#include <QStandardPaths>

namespace tessary {

SyncDialogs::SyncDialogs(SyncViewModel& sync, QWidget& window, ChooseFolder chooseFolder)
    : QObject(&window), sync_(sync), window_(window), chooseFolder_(std::move(chooseFolder)) {
    connect(&sync, &SyncViewModel::previewChanged, this, &SyncDialogs::showPreview);
    connect(&sync, &SyncViewModel::questionChanged, this, &SyncDialogs::showQuestion);
}

void SyncDialogs::makePair() {
    const auto draft =
        sync_.draft(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    if (!draft)
        return;
    auto* sheet = new SyncPairSheet(*draft, chooseFolder_, &window_);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    connect(sheet, &QDialog::accepted, this,
            [this, sheet] { sync_.requestPreview(sheet->pair()); });
    sheet->open();
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
        connect(dialog, &QDialog::accepted, this, [this] { sync_.confirmPreview(); });
        connect(dialog, &QDialog::rejected, this, [this] { sync_.closePreview(); });
        preview_ = dialog;
    }
    static_cast<SyncPreviewDialog*>(preview_.data())->show(*preview);
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
    connect(question_, &QDialog::accepted, this, [this] { sync_.answer(true); });
    connect(question_, &QDialog::rejected, this, [this] { sync_.answer(false); });
    question_->open();
}

} // namespace tessary
