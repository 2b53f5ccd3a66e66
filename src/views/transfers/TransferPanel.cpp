#include "views/transfers/TransferPanel.h"

#include "app/LanguageManager.h"
#include "base/text/ByteFormat.h"
#include "views/common/Icons.h"
#include "views/transfers/TransferDelegate.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace tessary {

QString summaryText(const CopySummary& summary) {
    if (summary.isIdle())
        return TransferPanel::tr("All transfers have ended");
    const int inAll = summary.finished + summary.running + summary.queued;
    QString text =
        TransferPanel::tr("%1 of %2").arg(summary.finished + summary.running).arg(inAll) +
        QStringLiteral("  ·  %1 / %2")
            .arg(formatBytes(summary.doneBytes), formatBytes(summary.totalBytes));
    if (summary.bytesPerSecond >= 1)
        text += QStringLiteral("  ·  %1/s")
                    .arg(formatBytes(static_cast<qint64>(summary.bytesPerSecond)));
    if (summary.timeLeft)
        text += QStringLiteral("  ·  ") +
                TransferPanel::tr("%1 left").arg(formatDuration(*summary.timeLeft));
    return text;
}

TransferPanel::TransferPanel(CopyQueue& queue, ShowInFolder showInFolder, QWidget* parent)
    : QWidget(parent),
      queue_(queue),
      showInFolder_(std::move(showInFolder)),
      model_(queue),
      title_(new QLabel),
      cancelAll_(new QPushButton),
      clear_(new QPushButton),
      list_(new QListView) {
    setObjectName(QStringLiteral("transferPanel"));
    auto* heading = new QLabel;
    QFont bold = heading->font();
    bold.setWeight(QFont::DemiBold);
    heading->setFont(bold);
    title_->setForegroundRole(QPalette::PlaceholderText);
    title_->setObjectName(QStringLiteral("transferSummary"));

    list_->setObjectName(QStringLiteral("transferList"));
    list_->setModel(&model_);
    list_->setItemDelegate(new TransferDelegate({[this](const QModelIndex& index) {
                                                     if (const CopyJob* job = model_.jobAt(index))
                                                         queue_.cancel(job->id);
                                                 },
                                                 [this](const QModelIndex& index) {
                                                     if (const CopyJob* job = model_.jobAt(index))
                                                         queue_.goOn(job->id);
                                                 }},
                                                list_));
    list_->setFrameShape(QFrame::NoFrame);
    list_->setUniformItemSizes(true);
    list_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    auto* cancel = new QShortcut(QKeySequence::Delete, list_);
    cancel->setContext(Qt::WidgetShortcut);
    connect(cancel, &QShortcut::activated, this, &TransferPanel::cancelSelected);
    list_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(list_, &QWidget::customContextMenuRequested, this, &TransferPanel::showMenu);
    connect(list_, &QAbstractItemView::doubleClicked, this, &TransferPanel::showCopy);
    auto* show = new QShortcut(QKeySequence(Qt::Key_Return), list_);
    show->setContext(Qt::WidgetShortcut);
    connect(show, &QShortcut::activated, this, [this] { showCopy(list_->currentIndex()); });
    connect(cancelAll_, &QPushButton::clicked, this, [this] { queue_.cancelAll(); });
    connect(clear_, &QPushButton::clicked, this, [this] { queue_.clearFinished(); });
    connect(&model_, &QAbstractItemModel::dataChanged, this, &TransferPanel::followRunningJob);
    connect(&queue_, &CopyQueue::summaryChanged, this, &TransferPanel::showSummary);
    connect(&model_, &QAbstractItemModel::rowsRemoved, this, &TransferPanel::showSummary);

    auto* header = new QHBoxLayout;
    header->setContentsMargins(14, 6, 10, 6);
    header->setSpacing(12);
    header->addWidget(heading);
    header->addWidget(title_, 1);
    header->addWidget(cancelAll_);
    header->addWidget(clear_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(header);
    column->addWidget(list_, 1);
    keepTranslated(this, [this, heading] {
        heading->setText(tr("Transfers"));
        list_->setAccessibleName(tr("Transfers"));
        cancelAll_->setText(tr("Cancel All"));
        clear_->setText(tr("Clear Finished"));
        showSummary();
    });
}

void TransferPanel::showSummary() {
    const CopySummary& summary = queue_.summary();
    title_->setText(summaryText(summary));
    cancelAll_->setVisible(!summary.isIdle());
    clear_->setEnabled(summary.finished > 0);
    setVisible(!queue_.jobs().empty());
}

/// Brings a job into view when it starts; afterwards the user may scroll where he likes.
void TransferPanel::followRunningJob(const QModelIndex& changed) {
    const CopyJob* job = model_.jobAt(changed);
    if (job == nullptr || job->status != CopyJob::Status::running || job->id == followed_)
        return;
    followed_ = job->id;
    list_->scrollTo(changed);
}

/// Whether a job has left something on this computer that can be shown.
bool TransferPanel::hasCopy(const QModelIndex& index) const {
    const CopyJob* job = model_.jobAt(index);
    return job != nullptr && job->direction == CopyJob::Direction::toComputer &&
           !job->made.isEmpty();
}

void TransferPanel::showCopy(const QModelIndex& index) {
    if (hasCopy(index))
        showInFolder_(model_.jobAt(index)->made.front());
}

void TransferPanel::showMenu(const QPoint& position) {
    const QPersistentModelIndex index = list_->indexAt(position);
    const CopyJob* job = model_.jobAt(index);
    if (job == nullptr)
        return;
    QMenu menu(this);
    QAction* show = menu.addAction(icon("document-open-folder"), tr("Show in Folder"));
    show->setEnabled(hasCopy(index));
    QAction* goOn = menu.addAction(icon("view-refresh"), tr("Retry"));
    goOn->setEnabled(job->canGoOn());
    const bool isPaused = job->status == CopyJob::Status::paused;
    QAction* pause =
        menu.addAction(icon("media-playback-pause"), isPaused ? tr("Resume") : tr("Pause"));
    pause->setEnabled(!job->isFinished());
    QAction* cancel = menu.addAction(icon("process-stop"), tr("Cancel"));
    cancel->setEnabled(!job->isFinished());
    const QUuid id = job->id;
    // The list may change while the menu is open.
    const QAction* chosen = menu.exec(list_->viewport()->mapToGlobal(position));
    if (chosen == show)
        showCopy(index);
    else if (chosen == goOn)
        queue_.goOn(id);
    else if (chosen == pause && isPaused)
        queue_.resume(id);
    else if (chosen == pause)
        queue_.pause(id);
    else if (chosen == cancel)
        cancelSelected();
}

void TransferPanel::cancelSelected() {
    QList<QUuid> ids;
    for (const QModelIndex& index : list_->selectionModel()->selectedIndexes())
        if (const CopyJob* job = model_.jobAt(index))
            ids.append(job->id);
    for (const QUuid& id : ids)
        queue_.cancel(id);
}

} // namespace tessary
