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

TransferPanel::TransferPanel(CopyQueue& queue, Callbacks callbacks)
    : queue_(queue),
      callbacks_(std::move(callbacks)),
      model_(queue),
      title_(new QLabel),
      cancelAll_(new QPushButton),
      clear_(new QPushButton),
      history_(new QPushButton),
      list_(new QListView) {
    auto* heading = new QLabel;
    heading->setFont(demiBold(heading->font()));
    title_->setForegroundRole(QPalette::PlaceholderText);
    title_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);

    list_->setModel(&model_);
    const auto cancelOrGoOn = [this](const CopyJob& job) {
        if (!job.isFinished())
            queue_.cancel(QUuid(job.id)); // the list may change under it
        else if (job.canGoOn())
            callbacks_.goOn(QUuid(job.id));
    };
    list_->setItemDelegate(new TransferDelegate(cancelOrGoOn, list_));
    list_->setFrameShape(QFrame::NoFrame);
    list_->setUniformItemSizes(true);
    list_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(list_, &QWidget::customContextMenuRequested, this, &TransferPanel::showMenu);
    connect(list_, &QAbstractItemView::doubleClicked, this, &TransferPanel::showCopy);
    const auto on = [this](const QKeySequence& keys, auto act) {
        auto* shortcut = new QShortcut(keys, list_);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, act);
    };
    on(QKeySequence::Delete, [this] { cancelSelected(); });
    on(Qt::Key_Return, [this] { showCopy(list_->currentIndex()); });
    on(Qt::ALT | Qt::Key_Up, [this] { move(list_->currentIndex(), -1); });
    on(Qt::ALT | Qt::Key_Down, [this] { move(list_->currentIndex(), 1); });
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
    // The list may change while the menu is open.
    const QUuid id = job->id;
    const bool isPaused = job->status == CopyJob::Status::paused;
    const bool isUnderWay = !job->isFinished();
    const bool canMove = job->status == CopyJob::Status::queued || isPaused;
    QMenu menu(this);
    const auto add = [&](const char* iconName, const QString& text, bool isEnabled, auto act) {
        QAction* action = menu.addAction(icon(iconName), text, this, act);
        action->setEnabled(isEnabled);
        return action;
    };
    add("document-open-folder", tr("Show in Folder"), hasCopy(index), [&] { showCopy(index); });
    add("view-refresh", tr("Retry"), job->canGoOn(), [&] { callbacks_.goOn(id); });
    add(isPaused ? "media-playback-start" : "media-playback-pause",
        isPaused ? tr("Resume") : tr("Pause"), isUnderWay,
        [&] { isPaused ? queue_.resume(id) : queue_.pause(id); });
    add("process-stop", tr("Cancel"), isUnderWay, [&] { cancelSelected(); });
    add("go-up", tr("Move Up"), canMove && index.row() > 0, [&] {
        move(index, -1);
    })->setShortcut(Qt::ALT | Qt::Key_Up);
    add("go-down", tr("Move Down"), canMove && index.row() + 1 < model_.rowCount(), [&] {
        move(index, 1);
    })->setShortcut(Qt::ALT | Qt::Key_Down);
    menu.exec(list_->viewport()->mapToGlobal(position));
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
