#include "views/tabs/Tabs.h"

#include "app/LanguageManager.h"
#include "views/common/Layouts.h"
#include "views/common/PageStack.h"
#include "views/common/PlainText.h"
#include "views/tabs/PhoneTab.h"

#include <QDropEvent>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace tessary {

Tabs::Tabs(Make make, QWidget* parent)
    : QWidget(parent), make_(std::move(make)), bar_(new QTabBar), stack_(new PageStack) {
    bar_->setObjectName(QStringLiteral("tabBar"));
    bar_->setAutoHide(true);
    bar_->setDocumentMode(true);
    bar_->setDrawBase(false);
    bar_->setExpanding(false);
    bar_->setMovable(true);
    bar_->setTabsClosable(true);
    bar_->setElideMode(Qt::ElideMiddle);
    bar_->setAcceptDrops(true);
    bar_->installEventFilter(this);
    keepTranslated(bar_, [this] { bar_->setAccessibleName(tr("Tabs")); });
    auto* column = makeColumn(*this);
    column->addWidget(bar_);
    column->addWidget(stack_, 1);
    insert(0);
    rest_.setSingleShot(true);
    connect(&rest_, &QTimer::timeout, this, [this] {
        if (rested_ >= 0 && rested_ < bar_->count())
            bar_->setCurrentIndex(rested_);
    });
    connect(bar_, &QTabBar::currentChanged, this, [this](int index) {
        stack_->setCurrentWidget(&at(index));
        Q_EMIT currentChanged();
    });
    connect(bar_, &QTabBar::tabMoved, this, [this](int from, int to) {
        const auto at = [this](int index) { return tabs_.begin() + index; };
        if (from < to)
            std::rotate(at(from), at(from) + 1, at(to) + 1);
        else
            std::rotate(at(to), at(from), at(from) + 1);
    });
    connect(bar_, &QTabBar::tabCloseRequested, this,
            [this](int index) { Q_EMIT closeWanted(at(index)); });
}

Tabs::~Tabs() {
    bar_->disconnect(this);
}

PhoneTab& Tabs::insert(int index) {
    PhoneTab* tab = make_();
    tabs_.insert(tabs_.begin() + index, tab);
    stack_->addWidget(tab);
    bar_->insertTab(index, QString());
    showTitle(*tab);
    connect(tab, &PhoneTab::changed, this, [this, tab] { showTitle(*tab); });
    return *tab;
}

int Tabs::indexOf(const PhoneTab& tab) const {
    return static_cast<int>(std::ranges::find(tabs_, &tab) - tabs_.begin());
}

PhoneTab& Tabs::current() const {
    return at(bar_->currentIndex());
}

PhoneTab& Tabs::add() {
    return insert(bar_->currentIndex() + 1);
}

void Tabs::show(PhoneTab& tab) {
    bar_->setCurrentIndex(indexOf(tab));
}

void Tabs::step(int by) {
    const int count = bar_->count();
    bar_->setCurrentIndex((bar_->currentIndex() + by + count) % count);
}

void Tabs::close(PhoneTab& tab) {
    if (tabs_.size() < 2)
        return;
    const int index = indexOf(tab);
    if (&current() == &tab) // whoever has to do with it turns to another one first
        step(index + 1 < bar_->count() ? 1 : -1);
    {
        const QSignalBlocker isTheSame(bar_);
        bar_->removeTab(index);
    }
    tabs_.erase(tabs_.begin() + index);
    tab.disconnect(this);
    stack_->removeWidget(&tab);
    tab.deleteLater(); // it may be its own key that closes it
}

void Tabs::showTitle(const PhoneTab& tab) {
    const int index = indexOf(tab);
    if (index >= bar_->count())
        return;
    const QString title = tab.title();
    bar_->setTabText(index, QString(title).replace(QLatin1Char('&'), QStringLiteral("&&")));
    bar_->setTabToolTip(index, plainToolTip(title));
    if (QWidget* cross = bar_->tabButton(index, QTabBar::RightSide)) {
        cross->setToolTip(tr("Close Tab"));
        cross->setAccessibleName(tr("Close Tab"));
    }
}

/// A tab takes what its folder takes, and is shown when the pointer rests on it.
void Tabs::handleDrag(QEvent& event) {
    if (event.type() == QEvent::DragLeave) {
        rest_.stop();
        rested_ = -1;
        return;
    }
    auto& drag = static_cast<QDropEvent&>(event);
    if (event.type() == QEvent::DragEnter) {
        drag.setAccepted(current().view().drops().isUsable(drag));
        return;
    }
    const int index = bar_->tabAt(drag.position().toPoint());
    if (std::exchange(rested_, index) != index)
        rest_.start(bar_->style()->styleHint(QStyle::SH_TabBar_ChangeCurrentDelay));
    PhoneTab* tab = index < 0 ? nullptr : &at(index);
    if (event.type() == QEvent::Drop) {
        rest_.stop();
        rested_ = -1;
    }
    if (tab == nullptr || !tab->showsFolder()) {
        drag.ignore();
        return;
    }
    const DropFolder folder{tab->browser().currentPath(), {}};
    if (tab->view().drops().consider(drag, folder) && event.type() == QEvent::Drop)
        tab->view().drops().drop(drag, folder);
}

bool Tabs::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::DragLeave:
    case QEvent::Drop:
        handleDrag(*event);
        return true;
    case QEvent::MouseButtonRelease: {
        const auto& mouse = *static_cast<QMouseEvent*>(event);
        const int index = bar_->tabAt(mouse.position().toPoint());
        if (mouse.button() != Qt::MiddleButton || index < 0)
            return false;
        Q_EMIT closeWanted(at(index));
        return true;
    }
    default:
        return QWidget::eventFilter(watched, event);
    }
}

} // namespace tessary
