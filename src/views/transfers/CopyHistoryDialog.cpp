#include "views/transfers/CopyHistoryDialog.h"

#include "app/LanguageManager.h"
#include "app/texts/ErrorText.h"
#include "base/text/Printable.h"
#include "views/common/Icons.h"
#include "views/common/Layouts.h"
#include "views/common/PlainText.h"
#include "views/transfers/TransferListModel.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace tessary {

namespace {

bool isWhole(const CopyRecord& record) {
    return record.job.status == CopyJob::Status::done;
}

QListWidgetItem* rowOf(const CopyRecord& record) {
    auto* row = new QListWidgetItem(
        icon(isWhole(record) ? "dialog-ok" : "dialog-warning"),
        transferTitle(record.job) + QLatin1Char('\n') +
            QLocale().toString(record.ended.toLocalTime(), QLocale::ShortFormat));
    row->setToolTip(plainToolTip(row->text()));
    return row;
}

QTreeWidgetItem* rowOf(const LeftOut& one) {
    const QString path = printable(one.item.item.path);
    auto* row = new QTreeWidgetItem({path, reasonText(one.error)});
    row->setIcon(0, icon("dialog-warning"));
    row->setToolTip(0, plainToolTip(path));
    row->setToolTip(1, plainToolTip(row->text(1)));
    return row;
}

} // namespace

CopyHistoryDialog::CopyHistoryDialog(RememberedCopies& copies, ShowInFolder showInFolder,
                                     QWidget* parent)
    : QDialog(parent),
      copies_(copies),
      showInFolder_(std::move(showInFolder)),
      field_(new QLineEdit),
      list_(new QListWidget),
      outcome_(new QLabel),
      leftOut_(new QTreeWidget),
      retry_(new QPushButton(icon("view-refresh"), QString())),
      show_(new QPushButton(icon("document-open-folder"), QString())),
      forget_(new QPushButton) {
    setObjectName(QStringLiteral("copyHistory"));
    resizeWithin(*this, {860, 520});
    field_->setClearButtonEnabled(true);
    list_->setObjectName(QStringLiteral("historyList"));
    list_->setTextElideMode(Qt::ElideMiddle);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    retry_->setObjectName(QStringLiteral("historyRetry"));
    outcome_->setWordWrap(true);
    outcome_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    outcome_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    leftOut_->setRootIsDecorated(false);
    leftOut_->setUniformRowHeights(true);
    leftOut_->setTextElideMode(Qt::ElideMiddle);
    leftOut_->setColumnCount(2);
    leftOut_->header()->setStretchLastSection(false);
    leftOut_->header()->setSectionResizeMode(QHeaderView::Stretch);

    auto* left = new QWidget;
    auto* leftColumn = makeColumn(*left, 6);
    leftColumn->addWidget(field_);
    leftColumn->addWidget(list_, 1);
    auto* actions = new QHBoxLayout;
    actions->addWidget(retry_);
    actions->addWidget(show_);
    actions->addStretch(1);
    auto* right = new QWidget;
    auto* column = makeColumn(*right, 6);
    column->addWidget(outcome_);
    column->addWidget(leftOut_, 1);
    column->addLayout(actions);
    auto* halves = new QSplitter;
    halves->addWidget(left);
    halves->addWidget(right);
    halves->setStretchFactor(1, 1);
    halves->setSizes({300, 540});
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    buttons->addButton(forget_, QDialogButtonBox::ResetRole);
    for (QPushButton* button : {retry_, show_, forget_})
        button->setAutoDefault(false); // Return belongs to the search
    auto* all = new QVBoxLayout(this);
    all->addWidget(halves, 1);
    all->addWidget(buttons);

    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(field_, &QLineEdit::textChanged, this, &CopyHistoryDialog::search);
    connect(list_, &QListWidget::currentRowChanged, this, &CopyHistoryDialog::showRecord);
    connect(retry_, &QPushButton::clicked, this, [this] {
        if (const CopyRecord* record = chosen())
            copies_.goOn(CopyRecord(*record)); // the list may change under it
    });
    connect(show_, &QPushButton::clicked, this, [this] {
        if (const CopyRecord* record = chosen())
            showInFolder_(record->job.made.front());
    });
    connect(forget_, &QPushButton::clicked, this, &CopyHistoryDialog::askToForget);
    connect(&copies, &RememberedCopies::recordsChanged, this, &CopyHistoryDialog::search);
    connect(&copies, &RememberedCopies::offeredChanged, this, &CopyHistoryDialog::updateButtons);
    outcome_->hide(); // until it is known what has been copied
    updateButtons();
    keepTranslated(this, [this] {
        setWindowTitle(tr("Copy History"));
        field_->setPlaceholderText(tr("Search copies"));
        field_->setAccessibleName(tr("Search copies"));
        list_->setAccessibleName(tr("Copy History"));
        leftOut_->setAccessibleName(tr("What was left out"));
        leftOut_->setHeaderLabels({tr("What was left out"), tr("Why")});
        retry_->setText(tr("Retry"));
        show_->setText(tr("Show in Folder"));
        forget_->setText(tr("Clear History…"));
        search();
    });
    makePlain(*this);
}

void CopyHistoryDialog::search() {
    copies_.find(field_->text(), this, [this, asked = field_->text()](auto records) {
        if (asked == field_->text())
            showRecords(std::move(records));
    });
}

void CopyHistoryDialog::showRecords(std::vector<CopyRecord> records) {
    const CopyRecord* before = chosen();
    const QUuid id = before != nullptr ? before->job.id : QUuid();
    int row = 0;
    {
        const QSignalBlocker quiet(list_);
        list_->clear();
        records_ = std::move(records);
        for (std::size_t n = 0; n < records_.size(); ++n) {
            list_->addItem(rowOf(records_[n]));
            if (records_[n].job.id == id)
                row = static_cast<int>(n);
        }
        list_->setCurrentRow(records_.empty() ? -1 : row);
    }
    showRecord();
}

const CopyRecord* CopyHistoryDialog::chosen() const {
    const int row = list_->currentRow();
    return row < 0 || static_cast<std::size_t>(row) >= records_.size()
               ? nullptr
               : &records_[static_cast<std::size_t>(row)];
}

void CopyHistoryDialog::showRecord() {
    leftOut_->clear();
    const CopyRecord* record = chosen();
    if (record == nullptr) {
        outcome_->setText(field_->text().isEmpty() ? tr("Nothing has been copied yet.")
                                                   : tr("No copy matches this search."));
    } else {
        outcome_->setText(transferTitle(record->job) +
                          QStringLiteral("\n%1\n%2")
                              .arg(transferRoute(record->job), transferDetail(record->job)));
        QList<QTreeWidgetItem*> rows;
        for (const LeftOut& one : record->job.leftOut)
            rows.append(rowOf(one));
        leftOut_->addTopLevelItems(rows);
    }
    outcome_->show();
    leftOut_->setVisible(leftOut_->topLevelItemCount() > 0);
    updateButtons();
}

void CopyHistoryDialog::updateButtons() {
    const CopyRecord* record = chosen();
    retry_->setEnabled(record != nullptr && copies_.canGoOn(*record));
    show_->setEnabled(record != nullptr &&
                      record->job.direction == CopyJob::Direction::toComputer &&
                      !record->job.made.isEmpty());
    forget_->setEnabled(!records_.empty());
}

void CopyHistoryDialog::askToForget() {
    QMessageBox question(QMessageBox::Question, tr("Clear History"),
                         tr("Forget which copies were made?"), QMessageBox::NoButton, this);
    question.setInformativeText(tr("The copied files stay. Copies that broke off are not offered "
                                   "again."));
    if (isAgreed(question, tr("Clear History")))
        copies_.forgetAll();
}

} // namespace tessary
