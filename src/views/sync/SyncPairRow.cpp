#include "views/sync/SyncPairRow.h"

#include "app/texts/DisplayNames.h"
#include "app/texts/SyncTexts.h"
#include "base/text/Printable.h"
#include "views/common/Icons.h"
#include "views/common/Layouts.h"
#include "views/common/PlainText.h"

#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QProgressBar>
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

QChar arrow(SyncMode mode) {
    constexpr std::u16string_view inOrder = u"↔→←";
    return inOrder[static_cast<std::size_t>(mode)];
}

} // namespace

SyncPairRow::SyncPairRow(SyncViewModel& sync, const QUuid& id)
    : sync_(sync),
      id_(id),
      title_(new QLabel),
      detail_(makeNote()),
      state_(new QLabel),
      progress_(new QProgressBar),
      run_(button("view-refresh")),
      cancel_(button("dialog-cancel")),
      more_(button("overflow-menu")),
      menu_(new QMenu(this)) {
    title_->setFont(demiBold(title_->font()));
    for (QLabel* label : {detail_, state_})
        label->setFont(scaled(label->font(), 0.88));
    state_->setWordWrap(true);
    progress_->setTextVisible(false);
    progress_->setFixedHeight(5);
    connect(run_, &QToolButton::clicked, this, [this] { sync_.run(id_); });
    connect(cancel_, &QToolButton::clicked, this, [this] { sync_.manager().cancel(id_); });
    more_->setMenu(menu_);
    more_->setPopupMode(QToolButton::InstantPopup);
    connect(menu_, &QMenu::aboutToShow, this, &SyncPairRow::fillMenu);

    auto* texts = new QVBoxLayout;
    texts->setSpacing(2);
    for (QWidget* line : {static_cast<QWidget*>(title_), static_cast<QWidget*>(detail_),
                          static_cast<QWidget*>(progress_), static_cast<QWidget*>(state_)})
        texts->addWidget(line);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 6, 0, 6);
    row->addLayout(texts, 1);
    for (QToolButton* each : {run_, cancel_, more_})
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
    const bool isWaiting = isRunning && pair->status.kind != SyncStatus::Kind::syncing;
    const SyncReport* last = sync_.manager().lastReport(id_);
    const bool hasFailed = pair->status.kind == SyncStatus::Kind::error;
    const bool isPartial = !isRunning && !hasFailed && last != nullptr && !last->skipped.empty();
    state_->setText(printable(stateOf(*pair)));
    QPalette colours;
    if (hasFailed && !isWaiting)
        colours.setColor(QPalette::WindowText, QColor(206, 58, 58));
    else if (isPartial)
        colours.setColor(QPalette::WindowText, QColor(190, 120, 20));
    state_->setPalette(colours);
    progress_->setVisible(isRunning);
    progress_->setAccessibleName(title_->text());
    const bool hasTotal = pair->progress.totalFiles > 0;
    progress_->setRange(0, hasTotal ? 100 : 0);
    if (hasTotal)
        progress_->setValue(pair->progress.percent());
    run_->setVisible(!isRunning);
    cancel_->setVisible(isRunning);
    name(*run_, tr("Sync Now"));
    name(*cancel_, tr("Cancel"));
    name(*more_, tr("More"));
}

QString SyncPairRow::stateOf(const SyncPair& pair) const {
    const bool isRunning = sync_.manager().isRunningOrWaiting(id_);
    if (isRunning && pair.status.kind != SyncStatus::Kind::syncing)
        return tr("Queued");
    if (isRunning) {
        QString state = stageText(pair.status.stage);
        if (pair.progress.totalFiles > 0)
            state += QStringLiteral("  ") + pair.progress.filesDescription() +
                     QStringLiteral("  ·  ") + pair.progress.bytesDescription();
        return state;
    }
    if (const SyncReport* last = sync_.manager().lastReport(id_))
        return datedReportText(*last);
    // Its report was not kept: the phone was not there.
    return pair.status.kind == SyncStatus::Kind::error ? notFinishedText(pair)
                                                       : tr("Not synced yet");
}

void SyncPairRow::fillMenu() {
    const SyncPair* pair = sync_.manager().pair(id_);
    if (pair == nullptr)
        return;
    const bool isIdle = !sync_.manager().isRunningOrWaiting(id_);
    menu_->clear();
    const auto add = [&](const char* iconName, const QString& text, auto slot) {
        return menu_->addAction(icon(iconName), text, this, slot);
    };
    add("document-preview", tr("Show What Will Happen"), [this] {
        if (const SyncPair* shown = sync_.manager().pair(id_))
            sync_.requestPreview(*shown);
    })->setEnabled(isIdle);
    add("view-history", tr("Reports…"), [this] { sync_.requestReports(id_); });
    add("document-edit", tr("Edit…"), [this] { sync_.requestEdit(id_); })->setEnabled(isIdle);
    menu_->addSeparator();
    add("edit-delete-remove", tr("Remove This Pair"), [this] { remove(); });
}

/// The row itself may go while the question is open: another phone takes the page.
void SyncPairRow::remove() {
    SyncManager& manager = sync_.manager();
    const QUuid id = id_;
    QMessageBox question(QMessageBox::Question, tr("Remove This Pair"),
                         tr("Stop keeping these folders in step?"), QMessageBox::NoButton,
                         window());
    question.setInformativeText(tr("No file is deleted on either side."));
    if (isAgreed(question, tr("Remove")))
        manager.removeSyncPair(id);
}

} // namespace tessary
