#include "views/sync/SyncPairList.h"

#include "app/LanguageManager.h"
#include "views/common/Layouts.h"
#include "views/sync/SyncPairRow.h"

#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace tessary {

SyncPairList::SyncPairList(SyncViewModel& sync)
    : sync_(sync), none_(makeNote()), scroll_(new QScrollArea), rows_(new QVBoxLayout) {
    none_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    auto* content = new QWidget;
    rows_->setSpacing(0);
    auto* top = makeColumn(*content);
    top->addLayout(rows_);
    top->addStretch(1);
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setWidgetResizable(true);
    scroll_->setFocusPolicy(Qt::NoFocus);
    scroll_->setWidget(content);
    scroll_->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    // The ground is that of the window, as the words have it.
    content->setAutoFillBackground(false);
    scroll_->viewport()->setAutoFillBackground(false);
    auto* column = makeColumn(*this);
    column->addWidget(none_);
    column->addWidget(scroll_, 1);

    connect(&sync.manager(), &SyncManager::syncPairsChanged, this, &SyncPairList::rebuild);
    connect(&sync.manager(), &SyncManager::syncPairChanged, this, [this](const QUuid& id) {
        if (SyncPairRow* row = rowOf_.value(id))
            row->update();
    });
    keepTranslated(this, [this] {
        none_->setText(tr("No folders are kept in step yet. Open a folder of the phone, then "
                          "choose “Sync This Folder…”."));
        rebuild();
    });
}

void SyncPairList::showDevice(const QString& udid) {
    if (std::exchange(udid_, udid) != udid)
        rebuild();
}

void SyncPairList::fitRows(int width, int tallest) {
    for (const SyncPairRow* row : std::as_const(rowOf_))
        row->layout()->activate(); // its words may have changed just now
    const QWidget& content = *scroll_->widget();
    content.layout()->activate();
    scroll_->setFixedHeight(std::clamp(content.heightForWidth(width), 0, tallest));
}

void SyncPairList::rebuild() {
    for (SyncPairRow* row : std::as_const(rowOf_)) {
        row->hide();
        row->deleteLater(); // it may be the one whose button was clicked
    }
    rowOf_.clear();
    for (const SyncPair& pair : sync_.manager().syncPairs()) {
        if (udid_ && *udid_ != pair.deviceUDID)
            continue;
        auto* row = new SyncPairRow(sync_, pair.id);
        rows_->addWidget(row);
        rowOf_.insert(pair.id, row);
    }
    none_->setVisible(rowOf_.isEmpty());
    scroll_->setVisible(!rowOf_.isEmpty());
}

} // namespace tessary
