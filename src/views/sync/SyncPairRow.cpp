#include "views/sync/SyncPairRow.h"

#include "app/Translations.h"
#include "app/texts/DisplayNames.h"
#include "base/text/Printable.h"
#include "views/common/Icons.h"
#include "views/common/PlainText.h"

#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QToolButton>

namespace tessary {

namespace {

QToolButton* button(const char* iconName) {
    auto* made = new QToolButton;
    made->setIcon(icon(iconName));
    made->setAutoRaise(true);
    made->setIconSize({18, 18});
    return made;
}

void name(QToolButton& which, const QString& text) {
    which.setToolTip(text);
    which.setAccessibleName(text);
}

QString arrow(SyncMode mode) {
    switch (mode) {
    case SyncMode::toiPhone:
        return QStringLiteral("→");
    case SyncMode::toMac:
        return QStringLiteral("←");
    case SyncMode::biDirectional:
        break;
    }
    return QStringLiteral("↔");
}

/// A line of SyncManager's history, "date: what happened", in the interface's language.
QString trHistory(const QString& line) {
    const QString separator = QStringLiteral(": ");
    const auto at = line.indexOf(separator);
    return line.left(at + separator.size()) + trMessage(line.mid(at + separator.size()));
}

} // namespace

SyncPairRow::SyncPairRow(SyncViewModel& sync, const QUuid& id, QWidget* parent)
    : QWidget(parent),
      sync_(sync),
      id_(id),
      title_(new QLabel),
      detail_(new QLabel),
      state_(new QLabel),
      progress_(new QProgressBar),
      run_(button("view-refresh")),
      cancel_(button("dialog-cancel")),
      remove_(button("edit-delete-remove")) {
    QFont bold = title_->font();
    bold.setWeight(QFont::DemiBold);
    title_->setFont(bold);
    QFont small = detail_->font();
    small.setPointSizeF(small.pointSizeF() * 0.88);
    for (QLabel* label : {detail_, state_}) {
        label->setFont(small);
        label->setWordWrap(true);
    }
    detail_->setForegroundRole(QPalette::PlaceholderText);
    progress_->setTextVisible(false);
    progress_->setFixedHeight(5);
    connect(run_, &QToolButton::clicked, this, [this] { sync_.run(id_); });
    connect(cancel_, &QToolButton::clicked, this, [this] { sync_.cancel(id_); });
    connect(remove_, &QToolButton::clicked, this, &SyncPairRow::remove);

    auto* texts = new QVBoxLayout;
    texts->setSpacing(2);
    for (QWidget* line : {static_cast<QWidget*>(title_), static_cast<QWidget*>(detail_),
                          static_cast<QWidget*>(progress_), static_cast<QWidget*>(state_)})
        texts->addWidget(line);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 6, 0, 6);
    row->addLayout(texts, 1);
    for (QToolButton* each : {run_, cancel_, remove_})
        row->addWidget(each, 0, Qt::AlignTop);
    makePlain(*this);
    update();
}

void SyncPairRow::update() {
    const SyncPair* pair = sync_.manager().pair(id_);
    if (pair == nullptr)
        return;
    const bool isRunning = sync_.manager().isRunningOrWaiting(id_);
    const QString local = QDir(pair->localFolderPath).dirName();
    title_->setText(printable(local) + QLatin1Char(' ') + arrow(pair->syncMode) + QLatin1Char(' ') +
                    printable(remoteDisplayPath(*pair)));
    title_->setToolTip(plainToolTip(printable(pair->localFolderPath)));
    detail_->setText(QStringLiteral("%1  ·  %2  ·  %3")
                         .arg(printable(pair->deviceName),
                              printable(placeDisplayName(pair->appName)), modeDisplayName(*pair)));
    QString state = trMessage(pair->status.label());
    const bool isWaiting = isRunning && pair->status.kind != SyncStatus::Kind::syncing;
    if (isWaiting)
        state = tr("Queued");
    else if (pair->status.kind == SyncStatus::Kind::syncing && pair->progress.totalFiles > 0)
        state += QStringLiteral("  ") + pair->progress.filesDescription() +
                 QStringLiteral("  ·  ") + pair->progress.bytesDescription();
    else if (const QString history = sync_.manager().historyLine(id_);
             !isRunning && !history.isEmpty())
        state = pair->status.kind == SyncStatus::Kind::error ? state : trHistory(history);
    state_->setText(printable(state));
    QPalette colours;
    if (pair->status.kind == SyncStatus::Kind::error && !isWaiting)
        colours.setColor(QPalette::WindowText, QColor(206, 58, 58));
    state_->setPalette(colours);
    progress_->setVisible(isRunning);
    progress_->setAccessibleName(title_->text());
    const bool hasTotal = pair->progress.totalFiles > 0;
    progress_->setRange(0, hasTotal ? 100 : 0);
    if (hasTotal)
        progress_->setValue(pair->progress.progressPercentDescription().chopped(1).toInt());
    run_->setVisible(!isRunning);
    cancel_->setVisible(isRunning);
    name(*run_, tr("Sync Now"));
    name(*cancel_, tr("Cancel"));
    name(*remove_, tr("Remove This Pair"));
}

void SyncPairRow::remove() {
    QMessageBox question(QMessageBox::Question, tr("Remove This Pair"),
                         tr("Stop keeping these folders in step?"), QMessageBox::NoButton, this);
    question.setInformativeText(tr("No file is deleted on either side."));
    QAbstractButton* yes = question.addButton(tr("Remove"), QMessageBox::DestructiveRole);
    question.setDefaultButton(question.addButton(QMessageBox::Cancel));
    makePlain(question);
    question.exec();
    if (question.clickedButton() == yes)
        sync_.manager().removeSyncPair(id_);
}

} // namespace tessary
