#include "views/sync/SyncQuestionDialog.h"

#include "app/Translations.h"
#include "views/common/PlainText.h"
#include "views/sync/SyncFileList.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace tessary {

namespace {

QString sideText(DeletionCandidate::DeletionLocation location) {
    return location == DeletionCandidate::DeletionLocation::localMac
               ? SyncQuestionDialog::tr("On this computer")
               : SyncQuestionDialog::tr("On the phone");
}

QTreeWidget* makeList(const std::vector<DeletionCandidate>& candidates) {
    auto* list = new QTreeWidget;
    list->setAccessibleName(SyncQuestionDialog::tr("Files to delete"));
    setUpSyncFileList(*list, SyncQuestionDialog::tr("Where"));
    QList<QTreeWidgetItem*> rows;
    for (const DeletionCandidate& candidate : candidates) {
        QString where = sideText(candidate.targetLocation);
        if (candidate.isEditedSinceLastSync)
            where += QStringLiteral("  ·  ") + SyncQuestionDialog::tr("edited since the last sync");
        rows.append(makeSyncFileRow(candidate.relativePath, candidate.size, where));
    }
    list->addTopLevelItems(rows);
    return list;
}

} // namespace

SyncQuestionDialog::SyncQuestionDialog(const SyncQuestion& question, QWidget* parent)
    : QDialog(parent) {
    const bool isDeletion = question.kind == SyncQuestion::Kind::deletions;
    setObjectName(QStringLiteral("syncQuestion"));
    auto* title = new QLabel;
    QFont bold = title->font();
    bold.setWeight(QFont::DemiBold);
    title->setFont(bold);
    title->setWordWrap(true);
    auto* words = new QLabel(trMessage(question.warning));
    words->setWordWrap(true);
    words->setVisible(!question.warning.isEmpty());
    auto* buttons = new QDialogButtonBox;
    QPushButton* keep =
        buttons->addButton(isDeletion ? tr("Keep") : tr("Cancel"), QDialogButtonBox::RejectRole);
    buttons->addButton(isDeletion ? tr("Delete") : tr("Create Again"),
                       QDialogButtonBox::AcceptRole);
    keep->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* column = new QVBoxLayout(this);
    column->setSpacing(10);
    column->addWidget(title);
    column->addWidget(words);
    if (isDeletion) {
        setWindowTitle(tr("Delete Files?"));
        title->setText(tr("%Ln files were deleted on one side. Delete them on the other, too?",
                          nullptr, static_cast<int>(question.candidates.size())));
        QPalette red = words->palette();
        red.setColor(QPalette::WindowText, QColor(206, 58, 58));
        words->setPalette(red);
        column->addWidget(makeList(question.candidates), 1);
        auto* note = new QLabel(tr("What you keep is copied back."));
        note->setForegroundRole(QPalette::PlaceholderText);
        column->addWidget(note);
        resize(600, 400);
    } else {
        setWindowTitle(tr("Folder Missing"));
        title->setText(tr("The folder on this computer is gone"));
    }
    column->addWidget(buttons);
    makePlain(*this);
}

} // namespace tessary
