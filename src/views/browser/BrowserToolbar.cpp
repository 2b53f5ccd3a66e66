#include "views/browser/BrowserToolbar.h"

#include "app/LanguageManager.h"
#include "views/browser/BreadcrumbBar.h"
#include "views/browser/BrowserActions.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>

namespace tessary {

namespace {

/// Narrower than this, the path needs the room of the filter. Pixels.
constexpr int roomForFilter = 820;

} // namespace

BrowserToolbar::BrowserToolbar(FileBrowserViewModel& browser, const BrowserActions& actions,
                               QWidget* parent)
    : QWidget(parent),
      browser_(browser),
      path_(new BreadcrumbBar),
      filter_(new QLineEdit),
      filterButton_(makeToolButton(*actions.find)),
      syncButton_(makeToolButton(*actions.sync)) {
    setObjectName(QStringLiteral("toolbar"));
    filter_->setObjectName(QStringLiteral("filter"));
    filter_->setClearButtonEnabled(true);
    filter_->setFixedWidth(190);
    filter_->installEventFilter(this);
    filterButton_->setObjectName(QStringLiteral("filterButton"));
    connect(actions.find, &QAction::triggered, this, &BrowserToolbar::showFilter);
    connect(filter_, &QLineEdit::textChanged, this,
            [this](const QString& text) { browser_.setSearchText(text); });
    connect(&browser, &FileBrowserViewModel::searchTextChanged, this, [this] {
        if (filter_->text() != browser_.searchText())
            filter_->setText(browser_.searchText());
        fitFilter();
    });
    path_->setOnChosen([this, apps = actions.apps](const QString& path) {
        if (path.isEmpty())
            apps->trigger();
        else
            browser_.navigateTo(path);
        Q_EMIT left();
    });
    path_->setTyping({[this] { return browser_.currentPath(); },
                      [this](const QString& typed) { return browser_.pathCompletions(typed); },
                      [this](const QString& typed) {
                          browser_.goToTyped(typed, [this](bool isThere) {
                              if (isThere)
                                  path_->stopTyping();
                          });
                      },
                      [this] { browser_.dismissProblem(); }, [this] { Q_EMIT left(); }});
    connect(actions.goTo, &QAction::triggered, path_, &BreadcrumbBar::startTyping);

    auto* uploadButton = makeToolButton(*actions.uploadFiles);
    auto* uploadMenu = new QMenu(uploadButton);
    uploadMenu->addAction(actions.uploadFiles);
    uploadMenu->addAction(actions.uploadFolder);
    uploadButton->setMenu(uploadMenu);
    uploadButton->setPopupMode(QToolButton::MenuButtonPopup);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 6, 10, 6);
    row->setSpacing(2);
    for (QAction* action : {actions.back, actions.forward, actions.up})
        row->addWidget(makeToolButton(*action));
    row->addSpacing(6);
    row->addWidget(path_, 1);
    row->addSpacing(6);
    for (QAction* action : {actions.newFolder, actions.download})
        row->addWidget(makeToolButton(*action));
    row->addWidget(uploadButton);
    row->addWidget(syncButton_);
    row->addSpacing(8);
    auto* modes = new QWidget;
    auto* modeRow = new QHBoxLayout(modes);
    modeRow->setContentsMargins(0, 0, 0, 0);
    modeRow->setSpacing(2);
    modeRow->addWidget(makeToolButton(*actions.asList));
    modeRow->addWidget(makeToolButton(*actions.asGrid));
    row->addWidget(modes);
    row->addSpacing(8);
    row->addWidget(filterButton_);
    row->addWidget(filter_);
    keepTranslated(this, [this, modes] {
        modes->setAccessibleName(tr("View Mode"));
        filter_->setPlaceholderText(tr("Filter…"));
        filter_->setAccessibleName(tr("Filter…"));
        if (auto* clear = filter_->findChild<QToolButton*>())
            clear->setAccessibleName(tr("Clear the Filter"));
        path_->setAccessibleName(tr("Path"));
    });
    fitFilter();
}

void BrowserToolbar::clearFilter() {
    filter_->clear();
}

void BrowserToolbar::showFilter() {
    filterButton_->hide();
    filter_->show();
    filter_->setFocus();
    filter_->selectAll();
}

void BrowserToolbar::fitFilter() {
    const bool isShown =
        width() >= roomForFilter || filter_->hasFocus() || !filter_->text().isEmpty();
    filter_->setVisible(isShown);
    filterButton_->setVisible(!isShown);
}

void BrowserToolbar::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    fitFilter();
}

bool BrowserToolbar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut)
        QMetaObject::invokeMethod(this, &BrowserToolbar::fitFilter, Qt::QueuedConnection);
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape)
            filter_->clear();
        if (key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Down)
            Q_EMIT left();
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace tessary
