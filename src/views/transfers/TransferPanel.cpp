#include "views/transfers/TransferPanel.h"

#include "app/LanguageManager.h"
#include "base/text/ByteFormat.h"
#include "views/common/Icons.h"
#include "views/common/Layouts.h"
#include "views/transfers/TransferDelegate.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace tessary {

namespace {

/// "2 of 5 · 34 MB / 120 MB · 12 MB/s · 7 s left", as much of it as fits: the speed gives way
/// first, then the bytes.
QString summaryText(const CopySummary& summary, const QFontMetrics& metrics, int width) {
    if (summary.isIdle())
        return metrics.elidedText(TransferPanel::tr("All transfers have ended"), Qt::ElideRight,
                                  width);
    const int inAll = summary.finished + summary.running + summary.queued;
    const QString count =
        TransferPanel::tr("%1 of %2").arg(summary.finished + summary.running).arg(inAll);
    const QString bytes = QStringLiteral("%1 / %2").arg(formatBytes(summary.doneBytes),
                                                        formatBytes(summary.totalBytes));
    const QString speed =
        summary.bytesPerSecond >= 1
            ? QStringLiteral("%1/s").arg(formatBytes(static_cast<qint64>(summary.bytesPerSecond)))
            : QString();
    const QString left = summary.timeLeft
                             ? TransferPanel::tr("%1 left").arg(formatDuration(*summary.timeLeft))
                             : QString();
    QString text;
    for (QStringList parts :
         {QStringList{count, bytes, speed, left}, {count, bytes, left}, {count, left}}) {
        parts.removeAll(QString());
        text = parts.join(QStringLiteral("  ·  "));
        if (metrics.horizontalAdvance(text) <= width)
            break;
    }
    return metrics.elidedText(text, Qt::ElideRight, width);
}

} // namespace

TransferPanel::TransferPanel(CopyQueue& queue, Callbacks callbacks, QWidget* parent)
    : QWidget(parent),
      queue_(queue),
      callbacks_(std::move(callbacks)),
      model_(queue),
      title_(new QLabel),
      cancelAll_(new QPushButton),
      clear_(new QPushButton),
      history_(new QPushButton),
      list_(new QListView) {
    setObjectName(QStringLiteral("transferPanel"));
    auto* heading = new QLabel;
    heading->setFont(demiBold(heading->font()));
    title_->setForegroundRole(QPalette::PlaceholderText);
    title_->setObjectName(QStringLiteral("transferSummary"));
    title_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);

    list_->setObjectName(QStringLiteral("transferList"));
    list_->setModel(&model_);
    list_->setItemDelegate(new TransferDelegate({[this](const QModelIndex& index) {
                                                     if (const CopyJob* job = model_.jobAt(index))
                                                         queue_.cancel(job->id);
                                                 },
                                                 [this](const QModelIndex& index) {
                                                     if (const CopyJob* job = model_.jobAt(index))
                                                         callbacks_.goOn(job->id);
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
    for (const auto& [key, rows] : {std::pair(Qt::Key_Up, -1), std::pair(Qt::Key_Down, 1)}) {
        auto* move = new QShortcut(QKeySequence(Qt::ALT | key), list_);
        move->setContext(Qt::WidgetShortcut);
        connect(move, &QShortcut::activated, this,
                [this, by = rows] { this->move(list_->currentIndex(), by); });
    }
    connect(history_, &QPushButton::clicked, this, [this] { callbacks_.showHistory(); });
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
    header->addWidget(history_);
    auto* column = makeColumn(*this);
    column->addLayout(header);
    column->addWidget(list_, 1);
    keepTranslated(this, [this, heading] {
        heading->setText(tr("Transfers"));
        list_->setAccessibleName(tr("Transfers"));
        cancelAll_->setText(tr("Cancel All"));
        clear_->setText(tr("Clear Finished"));
        history_->setText(tr("History…"));
        showSummary();
    });
}

void TransferPanel::showSummary() {
    const CopySummary& summary = queue_.summary();
    cancelAll_->setVisible(!summary.isIdle());
    clear_->setEnabled(summary.finished > 0);
    setVisible(!queue_.jobs().empty());
    fitSummary();
}

void TransferPanel::fitSummary() {
    layout()->activate(); // the buttons beside it may be others
    title_->setText(summaryText(queue_.summary(), title_->fontMetrics(), title_->width()));
}

void TransferPanel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    fitSummary();
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
        callbacks_.showInFolder(model_.jobAt(index)->made.front());
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
    const bool canMove = job->status == CopyJob::Status::queued || isPaused;
    QAction* sooner = menu.addAction(icon("go-up"), tr("Move Up"));
    sooner->setShortcut(Qt::ALT | Qt::Key_Up);
    sooner->setEnabled(canMove && index.row() > 0);
    QAction* later = menu.addAction(icon("go-down"), tr("Move Down"));
    later->setShortcut(Qt::ALT | Qt::Key_Down);
    later->setEnabled(canMove && index.row() + 1 < model_.rowCount());
    const QUuid id = job->id;
    // The list may change while the menu is open.
    const QAction* chosen = menu.exec(list_->viewport()->mapToGlobal(position));
    if (chosen == show)
        showCopy(index);
    else if (chosen == goOn)
        callbacks_.goOn(id);
    else if (chosen == sooner || chosen == later)
        move(index, chosen == sooner ? -1 : 1);
    else if (chosen == pause && isPaused)
        queue_.resume(id);
    else if (chosen == pause)
        queue_.pause(id);
    else if (chosen == cancel)
        cancelSelected();
}

/// A job that waits changes places with its neighbour.
void TransferPanel::move(const QModelIndex& index, int rows) {
    const CopyJob* job = model_.jobAt(index);
    const int to = index.row() + rows;
    if (job != nullptr && to >= 0 && to < model_.rowCount())
        queue_.moveTo(job->id, to + std::max(rows, 0));
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
