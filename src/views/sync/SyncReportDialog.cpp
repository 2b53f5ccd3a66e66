#include "views/sync/SyncReportDialog.h"

#include "app/texts/ErrorText.h"
#include "app/texts/SyncTexts.h"
#include "base/text/Printable.h"
#include "views/common/Icons.h"
#include "views/common/Layouts.h"
#include "views/common/PlainText.h"
#include "views/sync/SyncFileList.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace tessary {

namespace {

QTreeWidgetItem* rowOf(const SyncReportItem& item) {
    QString words = deedText(item.deed, SyncTense::done);
    if (!item.other.isEmpty())
        words += QStringLiteral(": ") + printable(item.other);
    auto* row = makeSyncFileRow(item.path, item.size, words);
    row->setIcon(0, icon(deedIcon(item.deed)));
    return row;
}

QTreeWidgetItem* rowOf(const SyncSkippedItem& item) {
    auto* row = makeSyncFileRow(item.path, 0, errorText(item.reason).text());
    row->setText(1, QString());
    row->setIcon(0, icon("dialog-warning"));
    return row;
}

} // namespace

SyncReportDialog::SyncReportDialog(QWidget* parent)
    : QDialog(parent), runs_(new QListWidget), outcome_(new QLabel), files_(new QTreeWidget) {
    setObjectName(QStringLiteral("syncReports"));
    setWindowTitle(tr("Reports"));
    resizeWithin(*this, {820, 480});
    runs_->setAccessibleName(tr("Runs"));
    files_->setAccessibleName(tr("Files"));
    outcome_->setWordWrap(true);
    outcome_->setText(tr("There is no report yet."));
    setUpSyncFileList(*files_, tr("What was done"));
    wrapLastColumn(*files_); // of sentences
    auto* right = new QWidget;
    auto* column = makeColumn(*right, 6);
    column->addWidget(outcome_);
    column->addWidget(files_, 1);
    auto* halves = new QSplitter;
    halves->addWidget(runs_);
    halves->addWidget(right);
    halves->setStretchFactor(1, 1);
    halves->setSizes({200, 600});
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(runs_, &QListWidget::currentRowChanged, this, &SyncReportDialog::showReport);
    auto* all = new QVBoxLayout(this);
    all->addWidget(halves, 1);
    all->addWidget(buttons);
    makePlain(*this);
}

void SyncReportDialog::setReports(std::vector<SyncReport> reports) {
    runs_->clear();
    reports_ = std::move(reports);
    for (const SyncReport& report : reports_) {
        auto* run = new QListWidgetItem(
            QLocale().toString(report.endedAt.toLocalTime(), QLocale::ShortFormat));
        const bool isGood = report.outcome == SyncReport::Outcome::done && report.skipped.empty();
        run->setIcon(icon(isGood ? "dialog-ok" : "dialog-warning"));
        runs_->addItem(run);
    }
    runs_->setCurrentRow(reports_.empty() ? -1 : 0);
}

void SyncReportDialog::showReport(int row) {
    files_->clear();
    if (row < 0 || static_cast<std::size_t>(row) >= reports_.size())
        return;
    const SyncReport& report = reports_[static_cast<std::size_t>(row)];
    outcome_->setText(reportText(report));
    QList<QTreeWidgetItem*> rows;
    for (const SyncSkippedItem& item : report.skipped)
        rows.append(rowOf(item));
    for (const SyncReportItem& item : report.items)
        rows.append(rowOf(item));
    files_->addTopLevelItems(rows);
}

} // namespace tessary
