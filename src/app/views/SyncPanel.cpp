#include "app/views/SyncPanel.h"

#include "app/LanguageManager.h"
#include "app/Translations.h"
#include "app/views/SyncPairRow.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
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
      rows_(new QVBoxLayout),
      none_(new QLabel),
      makePair_(new QPushButton),
      runAll_(new QPushButton) {
    setObjectName(QStringLiteral("syncPanel"));
    setFrameShape(QFrame::StyledPanel);
    setFixedWidth(panelWidth);
    makePair_->setObjectName(QStringLiteral("makePair"));
    none_->setWordWrap(true);
    none_->setForegroundRole(QPalette::PlaceholderText);
    keepTranslated(this, [this] {
        setAccessibleName(tessary::tr("Sync"));
        none_->setText(tessary::tr("No folders are kept in step yet. Open a folder of the phone, "
                                   "then choose “Sync This Folder…”."));
        makePair_->setText(tessary::tr("Sync This Folder…"));
        runAll_->setText(tessary::tr("Sync All"));
        rebuild();
    });
    connect(makePair_, &QPushButton::clicked, this, [this, makePair = std::move(makePair)] {
        hide();
        makePair();
    });
    connect(runAll_, &QPushButton::clicked, this, [this] { sync_.runAll(); });

    auto* content = new QWidget;
    content->setLayout(rows_);
    rows_->setContentsMargins(0, 0, 0, 0);
    rows_->setSpacing(0);
    auto* scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setWidget(content);
    scroll->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    scroll->setMaximumHeight(tallestRows);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(makePair_);
    buttons->addStretch(1);
    buttons->addWidget(runAll_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(14, 12, 14, 12);
    column->addWidget(none_);
    column->addWidget(scroll);
    column->addLayout(buttons);

    connect(&sync.manager(), &SyncManager::syncPairsChanged, this, &SyncPanel::rebuild);
    connect(&sync.manager(), &SyncManager::syncPairChanged, this, [this](const QUuid& id) {
        if (SyncPairRow* row = rowOf_.value(id))
            row->update();
        updateButtons();
    });
}

void SyncPanel::rebuild() {
    for (SyncPairRow* row : std::as_const(rowOf_))
        row->deleteLater();
    rowOf_.clear();
    for (const SyncPair& pair : sync_.manager().syncPairs()) {
        auto* row = new SyncPairRow(sync_, pair.id);
        rows_->addWidget(row);
        rowOf_.insert(pair.id, row);
    }
    updateButtons();
    adjustSize();
}

void SyncPanel::updateButtons() {
    none_->setVisible(rowOf_.isEmpty());
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
