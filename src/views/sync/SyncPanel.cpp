#include "views/sync/SyncPanel.h"

#include "app/LanguageManager.h"
#include "views/sync/SyncPairList.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace tessary {

namespace {

constexpr int panelWidth = 420;
constexpr int tallestRows = 420;

} // namespace

SyncPanel::SyncPanel(SyncViewModel& sync, std::function<void()> makePair, QWidget* parent)
    : QFrame(parent, Qt::Popup),
      sync_(sync),
      pairs_(new SyncPairList(sync)),
      makePair_(new QPushButton),
      runAll_(new QPushButton) {
    setObjectName(QStringLiteral("syncPanel"));
    setFrameShape(QFrame::StyledPanel);
    setFixedWidth(panelWidth);
    makePair_->setObjectName(QStringLiteral("makePair"));
    keepTranslated(this, [this] {
        setAccessibleName(tr("Sync"));
        makePair_->setText(tr("Sync This Folder…"));
        runAll_->setText(tr("Sync All"));
    });
    connect(makePair_, &QPushButton::clicked, this, [this, makePair = std::move(makePair)] {
        hide();
        makePair();
    });
    connect(runAll_, &QPushButton::clicked, this, [this] { sync_.runAll(); });

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(makePair_);
    buttons->addStretch(1);
    buttons->addWidget(runAll_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(14, 12, 14, 12);
    column->addWidget(pairs_);
    column->addLayout(buttons);

    // Queued: the rows come first, and those that are new are shown only then.
    connect(&sync.manager(), &SyncManager::syncPairsChanged, this, &SyncPanel::fit,
            Qt::QueuedConnection);
    connect(&sync.manager(), &SyncManager::syncPairChanged, this, &SyncPanel::fit,
            Qt::QueuedConnection);
}

void SyncPanel::updateButtons() {
    const auto& pairs = sync_.manager().syncPairs();
    runAll_->setEnabled(std::any_of(pairs.begin(), pairs.end(), [this](const SyncPair& pair) {
        return pair.lastSyncedAt && !sync_.manager().isRunningOrWaiting(pair.id);
    }));
    makePair_->setEnabled(sync_.draft(QString()).has_value());
}

void SyncPanel::fit() {
    updateButtons();
    const QMargins around = layout()->contentsMargins();
    pairs_->fitRows(contentsRect().width() - around.left() - around.right(), tallestRows);
    adjustSize();
}

void SyncPanel::popUpBelow(const QWidget& anchor) {
    fit();
    QPoint corner = anchor.mapToGlobal(QPoint(anchor.width() - width(), anchor.height() + 4));
    const QRect room = anchor.screen()->availableGeometry();
    corner.setX(std::clamp(corner.x(), room.left(), std::max(room.left(), room.right() - width())));
    move(corner);
    show();
}

} // namespace tessary
