#include "views/sync/SyncQuestionDialog.h"

#include "app/texts/SyncTexts.h"
#include "base/text/Printable.h"
#include "views/common/Layouts.h"
#include "views/common/PlainText.h"
#include "views/sync/SyncFileList.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace tessary {

namespace {

using Kind = SyncQuestion::Kind;

/// Where a row's path is kept: what it shows is made printable.
constexpr int pathRole = Qt::UserRole;

QString sideText(const DeletionCandidate& candidate) {
    QString where = candidate.isHere ? SyncQuestionDialog::tr("On this computer")
                                     : SyncQuestionDialog::tr("On the phone");
    if (candidate.isEditedSinceLastSync)
        where += QStringLiteral("  ·  ") + SyncQuestionDialog::tr("edited since the last sync");
    return where;
}

QTreeWidget* makeList(const std::vector<DeletionCandidate>& candidates) {
    auto* list = new QTreeWidget;
    list->setAccessibleName(SyncQuestionDialog::tr("Files to delete"));
    setUpSyncFileList(*list, SyncQuestionDialog::tr("Where"));
    // A few words: the room is the names'.
    list->header()->setSectionResizeMode(list->columnCount() - 1, QHeaderView::ResizeToContents);
    QList<QTreeWidgetItem*> rows;
    for (const DeletionCandidate& candidate : candidates) {
        auto* row = makeSyncFileRow(candidate.relativePath, candidate.size, sideText(candidate));
        row->setData(0, pathRole, candidate.relativePath);
        row->setCheckState(0, Qt::Checked);
        rows.append(row);
    }
    list->addTopLevelItems(rows);
    return list;
}

QLabel* boldLabel(const QString& text) {
    auto* label = new QLabel(text);
    label->setFont(demiBold(label->font()));
    label->setWordWrap(true);
    return label;
}

} // namespace

SyncQuestionDialog::SyncQuestionDialog(const SyncQuestion& question, QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("syncQuestion"));
    auto* column = new QVBoxLayout(this);
    column->setSpacing(10);
    auto* buttons = new QDialogButtonBox;
    QPushButton* stop =
        buttons->addButton(tr("Stop, Change Nothing"), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    const auto goOn = [&](const QString& text, QDialogButtonBox::ButtonRole role, auto slot) {
        connect(buttons->addButton(text, role), &QPushButton::clicked, this, slot);
    };
    const auto keepAll = [this] {
        answer_ = SyncAnswer::keepAll();
        accept();
    };
    switch (question.kind) {
    case Kind::deletions:
        setWindowTitle(tr("Delete Files?"));
        column->addWidget(
            boldLabel(tr("%Ln files were deleted on one side. Delete them on the other, too?",
                         nullptr, static_cast<int>(question.candidates.size()))));
        goOn(tr("Keep"), QDialogButtonBox::ActionRole, keepAll);
        goOn(tr("Delete"), QDialogButtonBox::DestructiveRole, [this] { deleteChecked(); });
        break;
    case Kind::emptySide:
        setWindowTitle(tr("Folder Empty"));
        column->addWidget(boldLabel(tr("Is everything to be copied there again?")));
        goOn(tr("Copy Everything Again"), QDialogButtonBox::ActionRole, keepAll);
        break;
    case Kind::missingLocalFolder:
        setWindowTitle(tr("Folder Missing"));
        column->addWidget(boldLabel(tr("The folder on this computer is gone")));
        column->addWidget(new QLabel(printable(question.path)));
        goOn(tr("Create Again"), QDialogButtonBox::ActionRole, keepAll);
        break;
    }
    if (const QString warning = guardText(question.guard); !warning.isEmpty()) {
        auto* words = new QLabel(warning);
        words->setWordWrap(true);
        QPalette red = words->palette();
        red.setColor(QPalette::WindowText, QColor(206, 58, 58));
        words->setPalette(red);
        column->addWidget(words);
    }
    if (question.kind == Kind::deletions) {
        list_ = makeList(question.candidates);
        column->addWidget(list_, 1);
        auto* note = makeNote();
        note->setText(tr("What you keep is copied back."));
        column->addWidget(note);
        resize(600, 400);
    }
    column->addWidget(buttons);
    for (QAbstractButton* each : buttons->buttons())
        if (auto* button = qobject_cast<QPushButton*>(each))
            button->setAutoDefault(false);
    stop->setDefault(true);
    stop->setFocus();
    makePlain(*this);
}

void SyncQuestionDialog::deleteChecked() {
    answer_ = SyncAnswer::keepAll();
    for (int n = 0; n < list_->topLevelItemCount(); ++n)
        if (const QTreeWidgetItem* row = list_->topLevelItem(n); row->checkState(0) == Qt::Checked)
            answer_.deletions.insert(row->data(0, pathRole).toString());
    accept();
}

} // namespace tessary
