#include "views/window/Panes.h"

#include "app/LanguageManager.h"
#include "views/common/Icons.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>

#include <utility>

namespace tessary {

Panes::Panes(QWidget* phone, BrowserView& phoneView, QMenuBar& menus, MakeLocal makeLocal)
    : QSplitter(Qt::Horizontal),
      phoneView_(&phoneView),
      used_(&phoneView),
      menus_(menus),
      makeLocal_(std::move(makeLocal)),
      toggle_(new QAction(icon("view-split-left-right"), QString(), this)) {
    addWidget(phone);
    setChildrenCollapsible(false);
    setHandleWidth(1);
    toggle_->setObjectName(QStringLiteral("splitAction"));
    toggle_->setCheckable(true);
    toggle_->setShortcut(QKeySequence(Qt::Key_F3));
    connect(toggle_, &QAction::toggled, this, &Panes::show);
    keepTranslated(toggle_, [this] { toggle_->setText(tr("This Computer Beside the Phone")); });
    connect(qApp, &QApplication::focusChanged, this,
            [this](const QWidget*, const QWidget* now) { follow(now); });
}

Panes::~Panes() {
    qApp->disconnect(this); // the focus moves while what is shown goes
}

void Panes::makeLocal(const QString& folder) {
    local_ = makeLocal_(folder);
    useKeys(local_->view().actions(), false);
    addWidget(local_);
    setSizes({width() / 2, width() / 2});
    connect(&local_->browser(), &FileBrowserViewModel::pathChanged, this,
            &Panes::localFolderChanged);
}

void Panes::split(const QString& folder) {
    if (local_ == nullptr)
        makeLocal(folder);
    toggle_->setChecked(true);
    phoneView_->setFocus();
}

std::optional<QString> Panes::localFolder() const {
    if (!toggle_->isChecked())
        return std::nullopt;
    return local_->browser().currentPath();
}

void Panes::show(bool isSplit) {
    if (isSplit && local_ == nullptr)
        makeLocal({});
    if (local_ == nullptr)
        return;
    local_->setVisible(isSplit);
    Q_EMIT localFolderChanged();
    if (isSplit) {
        local_->view().setFocus();
        return;
    }
    use(*phoneView_);
    phoneView_->setFocus();
}

void Panes::usePhone(BrowserView& view) {
    const bool isInUse = used_ == phoneView_;
    phoneView_ = &view;
    if (isInUse)
        use(view);
}

void Panes::follow(const QWidget* focus) {
    // A menu or another window leaves the keys where they were.
    if (local_ == nullptr || focus == nullptr || focus->window() != window() ||
        menus_.isAncestorOf(focus) || focus == &menus_)
        return;
    use(local_->isAncestorOf(focus) ? local_->view() : *phoneView_);
}

void Panes::use(BrowserView& view) {
    BrowserView* before = std::exchange(used_, &view);
    if (before == &view)
        return;
    handOver(before->actions(), view.actions(), menus_);
    replaceInMenus(*before->sortMenu().menuAction(), *view.sortMenu().menuAction(), menus_);
    replaceInMenus(*before->columnMenu().menuAction(), *view.columnMenu().menuAction(), menus_);
}

} // namespace tessary
