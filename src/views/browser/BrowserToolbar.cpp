#include "views/browser/BrowserToolbar.h"

#include "app/LanguageManager.h"
#include "views/browser/BreadcrumbBar.h"
#include "views/browser/BrowserActions.h"
#include "views/common/Icons.h"
#include "views/common/Layouts.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>

#include <algorithm>
#include <array>
#include <utility>

namespace tessary {

namespace {

constexpr int fieldWidth = 190;
constexpr int leastField = 90; // while something is typed into it
constexpr int spacing = 2;
constexpr int gap = 8; // between groups
constexpr int sideMargin = 8;

/// What the path has at least before others give way for it: the field, the commands' words, and
/// then the commands, so that the name of the folder can still be read.
constexpr int pathBesideField = 300;
constexpr int pathBesideWords = 260;
constexpr int leastPath = 150;
constexpr int leastPathBesideField = 100;

int widthWith(QToolButton& button, Qt::ToolButtonStyle style) {
    button.setToolButtonStyle(style);
    return button.sizeHint().width();
}

} // namespace

BrowserToolbar::BrowserToolbar(FileBrowserViewModel& browser, const BrowserActions& actions,
                               const EntryDrop& drops)
    : browser_(browser),
      path_(new BreadcrumbBar(browser, drops)),
      filter_(new QLineEdit),
      filterButton_(makeToolButton(*actions.find)),
      syncButton_(makeToolButton(*actions.sync)),
      downloadButton_(makeToolButton(*actions.download)),
      uploadButton_(new QToolButton),
      modes_(new QWidget),
      backButton_(makeToolButton(*actions.back)),
      moreButton_(new QToolButton) {
    setObjectName(QStringLiteral("toolbar"));
    filter_->setObjectName(QStringLiteral("filter"));
    filter_->setClearButtonEnabled(true);
    filter_->installEventFilter(this);
    filterButton_->setObjectName(QStringLiteral("filterButton"));
    connect(actions.find, &QAction::triggered, this, [this] { showField(false); });
    connect(actions.search, &QAction::triggered, this, [this] { showField(true); });
    connect(filter_, &QLineEdit::textChanged, this, &BrowserToolbar::takeText);
    connect(&browser, &FileBrowserViewModel::searchTextChanged, this, [this] {
        if (!isForSearch_ && filter_->text() != browser_.searchText())
            filter_->setText(browser_.searchText());
        fit();
    });
    connect(&browser, &FileBrowserViewModel::searchedNameChanged, this, [this] {
        if (isForSearch_ && browser_.searchedName().isEmpty() && !filter_->hasFocus()) {
            isForSearch_ = false;
            filter_->clear();
            showFieldTexts();
        }
        fit();
    });
    connect(path_, &BreadcrumbBar::left, this, &BrowserToolbar::left);
    connect(path_, &BreadcrumbBar::appsWanted, actions.apps, &QAction::trigger);
    connect(actions.goTo, &QAction::triggered, path_, &BreadcrumbBar::startTyping);

    auto* uploadMenu = new QMenu(uploadButton_);
    uploadMenu->addAction(actions.uploadFiles);
    uploadMenu->addAction(actions.uploadFolder);
    uploadButton_->setObjectName(QStringLiteral("uploadButton"));
    uploadButton_->setIcon(icon("copyToPhone"));
    uploadButton_->setIconSize(downloadButton_->iconSize());
    uploadButton_->setAutoRaise(true);
    uploadButton_->setMenu(uploadMenu);
    uploadButton_->setPopupMode(QToolButton::InstantPopup);
    connect(
        actions.uploadFiles, &QAction::changed, uploadButton_,
        [this, upload = actions.uploadFiles] { uploadButton_->setEnabled(upload->isEnabled()); });

    addTools(actions);
    keepTranslated(this, [this] {
        modes_->setAccessibleName(tr("View Mode"));
        showFieldTexts();
        uploadButton_->setText(tr("Copy to Phone"));
        setName(*uploadButton_, tr("Copy to Phone"));
        if (auto* clear = filter_->findChild<QToolButton*>())
            clear->setAccessibleName(tr("Clear the Filter"));
        setName(*moreButton_, tr("More Commands"));
        path_->setAccessibleName(tr("Path"));
        fit();
    });
}

void BrowserToolbar::addTools(const BrowserActions& actions) {
    QToolButton* forward = makeToolButton(*actions.forward);
    QToolButton* up = makeToolButton(*actions.up);
    QToolButton* newFolder = makeToolButton(*actions.newFolder);
    moreButton_->setObjectName(QStringLiteral("moreButton"));
    moreButton_->setIcon(lineIcon(QStringLiteral("view-more-horizontal")));
    moreButton_->setIconSize(backButton_->iconSize());
    moreButton_->setAutoRaise(true);
    moreButton_->setPopupMode(QToolButton::InstantPopup);
    moreButton_->setMenu(new QMenu(moreButton_));
    connect(moreButton_->menu(), &QMenu::aboutToShow, this, &BrowserToolbar::fillMenu);

    auto* modeRow = new QHBoxLayout(modes_);
    modeRow->setContentsMargins(gap, 0, gap, 0);
    modeRow->setSpacing(spacing);
    modeRow->addWidget(makeToolButton(*actions.asList));
    modeRow->addWidget(makeToolButton(*actions.asGrid));

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(sideMargin, 6, sideMargin, 6);
    row->setSpacing(spacing);
    for (QWidget* widget : {backButton_, forward, up})
        row->addWidget(widget);
    row->addSpacing(gap);
    row->addWidget(path_, 1);
    row->addSpacing(gap);
    for (QWidget* widget :
         std::initializer_list<QWidget*>{downloadButton_, uploadButton_, newFolder, syncButton_,
                                         modes_, filterButton_, filter_, moreButton_})
        row->addWidget(widget);

    tools_ = {{modes_, {actions.asList, actions.asGrid}},
              {syncButton_, {actions.sync}},
              {newFolder, {actions.newFolder}},
              {filterButton_, {actions.find}},
              {forward, {actions.forward}},
              {uploadButton_, {actions.uploadFiles, actions.uploadFolder}},
              {downloadButton_, {actions.download}},
              {up, {actions.up}}};
    for (const Tool& tool : tools_)
        connect(tool.actions.front(), &QAction::visibleChanged, this, &BrowserToolbar::fit);
}

const QWidget& BrowserToolbar::syncAnchor() const {
    return syncButton_->isHidden() ? *moreButton_ : *syncButton_;
}

void BrowserToolbar::showField(bool isForSearch) {
    if (isForSearch != isForSearch_) {
        filter_->clear(); // ends what it was for before
        isForSearch_ = isForSearch;
        showFieldTexts();
    }
    filter_->show();
    filter_->setFocus();
    filter_->selectAll();
    fit();
}

void BrowserToolbar::showFieldTexts() {
    const QString text = isForSearch_ ? tr("Search below…") : tr("Filter…");
    filter_->setPlaceholderText(text);
    filter_->setAccessibleName(text);
}

void BrowserToolbar::takeText(const QString& text) {
    if (!isForSearch_)
        browser_.setSearchText(text);
    else if (text.isEmpty())
        browser_.endSearch();
}

/// What is never shared: margins, and what lies between groups.
int BrowserToolbar::gaps() const {
    return 2 * sideMargin + 2 * gap + backButton_->sizeHint().width() + spacing;
}

int BrowserToolbar::widthOf(const Tool& tool) const {
    return tool.widget->sizeHint().width() + spacing;
}

QSize BrowserToolbar::minimumSizeHint() const {
    return {gaps() + leastPath + moreButton_->sizeHint().width() + spacing,
            layout()->minimumSize().height()};
}

/// The path gets what the others leave: of them as many stay as leave it what it needs.
void BrowserToolbar::fit() {
    const bool isTyping = window()->focusWidget() == filter_ || !filter_->text().isEmpty();
    const std::array worded{downloadButton_, uploadButton_};
    int words = 0;
    int room = width() - gaps();
    for (const Tool& tool : tools_) {
        if (!tool.actions.front()->isVisible())
            continue;
        for (QToolButton* button : worded)
            if (button == tool.widget) {
                words += widthWith(*button, Qt::ToolButtonTextBesideIcon);
                words -= widthWith(*button, Qt::ToolButtonIconOnly);
            }
        room -= widthOf(tool);
    }
    const int forField = fieldWidth + spacing;
    const int forFilterButton = filterButton_->sizeHint().width() + spacing;
    const bool hasField = isTyping || room - words - forField + forFilterButton >= pathBesideField;
    if (hasField)
        room -= forField - forFilterButton;
    if (room - words >= pathBesideWords)
        for (QToolButton* button : worded)
            button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);

    bool isSpared = false;
    for (const Tool& tool : tools_) {
        const bool isOffered = tool.actions.front()->isVisible();
        const bool isFilter = tool.widget == filterButton_;
        const bool hasPlace = isOffered && room >= leastPath;
        if (isOffered && !hasPlace && !(isFilter && hasField)) {
            if (!std::exchange(isSpared, true))
                room -= moreButton_->sizeHint().width() + spacing;
            room += widthOf(tool);
        }
        tool.widget->setVisible(hasPlace && !(isFilter && hasField));
    }
    filter_->setVisible(hasField);
    filter_->setFixedWidth(std::clamp(fieldWidth + room - leastPath, leastField, fieldWidth));
    // In the narrowest row the field takes the place of what the menus have, too.
    const bool isTight = hasField && room + fieldWidth - leastField < leastPathBesideField;
    backButton_->setVisible(!isTight);
    moreButton_->setVisible(isSpared && !isTight);
    layout()->activate();
}

void BrowserToolbar::fillMenu() {
    QMenu* menu = moreButton_->menu();
    menu->clear();
    for (auto tool = tools_.rbegin(); tool != tools_.rend(); ++tool)
        if (tool->widget->isHidden() && !(tool->widget == filterButton_ && !filter_->isHidden()))
            menu->addActions(tool->actions);
}

void BrowserToolbar::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    fit();
}

bool BrowserToolbar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut)
        QMetaObject::invokeMethod(this, &BrowserToolbar::fit, Qt::QueuedConnection);
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape) {
            filter_->clear();
            isForSearch_ = false;
            showFieldTexts();
        }
        const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
        if (isReturn && isForSearch_)
            browser_.searchBelow(filter_->text());
        if (key == Qt::Key_Escape || isReturn || key == Qt::Key_Down)
            Q_EMIT left();
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace tessary
