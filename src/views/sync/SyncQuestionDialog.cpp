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
               ? tessary::tr("On this computer")
               : tessary::tr("On the phone");
}

QTreeWidget* makeList(const std::vector<DeletionCandidate>& candidates) {
    auto* list = new QTreeWidget;
    list->setAccessibleName(tessary::tr("Files to delete"));
    setUpSyncFileList(*list, tessary::tr("Where"));
    QList<QTreeWidgetItem*> rows;
    for (const DeletionCandidate& candidate : candidates) {
        QString where = sideText(candidate.targetLocation);
        if (candidate.isEditedSinceLastSync)
            where += QStringLiteral("  ·  ") + tessary::tr("edited since the last sync");
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
        buttons->addButton(isDeletion ? tessary::tr("browser.keep") : tessary::tr("browser.cancel"),
                           QDialogButtonBox::RejectRole);
    buttons->addButton(isDeletion ? tessary::tr("browser.delete") : tessary::tr("Create Again"),
                       QDialogButtonBox::AcceptRole);
    keep->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* column = new QVBoxLayout(this);
    column->setSpacing(10);
    column->addWidget(title);
    column->addWidget(words);
    if (isDeletion) {
        setWindowTitle(tessary::tr("Delete Files?"));
        title->setText(tessary::tr("These files were deleted on one side. Delete them on the "
                                   "other, too? (%1)")
                           .arg(question.candidates.size()));
        QPalette red = words->palette();
        red.setColor(QPalette::WindowText, QColor(206, 58, 58));
        words->setPalette(red);
        column->addWidget(makeList(question.candidates), 1);
        auto* note = new QLabel(tessary::tr("What you keep is copied back."));
        note->setForegroundRole(QPalette::PlaceholderText);
        column->addWidget(note);
        resize(600, 400);
    } else {
        setWindowTitle(tessary::tr("Folder Missing"));
        title->setText(tessary::tr("The folder on this computer is gone"));
    }
    column->addWidget(buttons);
    makePlain(*this);
}

} // namespace tessary
