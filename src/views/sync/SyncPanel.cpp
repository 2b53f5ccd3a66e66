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
    : QFrame(parent, Qt::Popup), sync_(sync), makePair_(new QPushButton), runAll_(new QPushButton) {
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

    auto* pairs = new SyncPairList(sync);
    pairs->setTallestRows(tallestRows);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(makePair_);
    buttons->addStretch(1);
    buttons->addWidget(runAll_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(14, 12, 14, 12);
    column->addWidget(pairs);
    column->addLayout(buttons);

    connect(&sync.manager(), &SyncManager::syncPairsChanged, this, [this] {
        updateButtons();
        adjustSize();
    });
    connect(&sync.manager(), &SyncManager::syncPairChanged, this, &SyncPanel::updateButtons);
}

void SyncPanel::updateButtons() {
    const auto& pairs = sync_.manager().syncPairs();
    runAll_->setEnabled(std::any_of(pairs.begin(), pairs.end(), [this](const SyncPair& pair) {
        return pair.lastSyncedAt && !sync_.manager().isRunningOrWaiting(pair.id);
    }));
    makePair_->setEnabled(sync_.draft(QString()).has_value());
}

void SyncPanel::popUpBelow(const QWidget& anchor) {
    updateButtons();
    adjustSize();
    QPoint corner = anchor.mapToGlobal(QPoint(anchor.width() - width(), anchor.height() + 4));
    const QRect room = anchor.screen()->availableGeometry();
    corner.setX(std::clamp(corner.x(), room.left(), std::max(room.left(), room.right() - width())));
    move(corner);
    show();
}

} // namespace tessary
