#include "views/browser/BrowserToolbar.h"

#include "app/LanguageManager.h"
#include "views/browser/BreadcrumbBar.h"
#include "views/browser/BrowserActions.h"
#include "views/common/Icons.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>

namespace tessary {

namespace {

/// Narrower than this, the path needs the room of the field, and of the commands' words. Pixels.
constexpr int roomForField = 1050;
constexpr int roomForWords = 760;
constexpr int roomForModes = 460; // less leaves them to the menu

} // namespace

BrowserToolbar::BrowserToolbar(FileBrowserViewModel& browser, const BrowserActions& actions,
                               QWidget* parent)
    : QWidget(parent),
      browser_(browser),
      path_(new BreadcrumbBar),
      filter_(new QLineEdit),
      filterButton_(makeToolButton(*actions.find)),
      syncButton_(makeToolButton(*actions.sync)),
      downloadButton_(makeToolButton(*actions.download)),
      uploadButton_(new QToolButton),
      modes_(new QWidget) {
    setObjectName(QStringLiteral("toolbar"));
    filter_->setObjectName(QStringLiteral("filter"));
    filter_->setClearButtonEnabled(true);
    filter_->setFixedWidth(190);
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

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 6, 10, 6);
    row->setSpacing(2);
    for (QAction* action : {actions.back, actions.forward, actions.up})
        row->addWidget(makeToolButton(*action));
    row->addSpacing(6);
    row->addWidget(path_, 1);
    row->addSpacing(6);
    row->addWidget(downloadButton_);
    row->addWidget(uploadButton_);
    row->addSpacing(8);
    row->addWidget(makeToolButton(*actions.newFolder));
    row->addWidget(syncButton_);
    row->addSpacing(8);
    auto* modeRow = new QHBoxLayout(modes_);
    modeRow->setContentsMargins(0, 0, 0, 0);
    modeRow->setSpacing(2);
    modeRow->addWidget(makeToolButton(*actions.asList));
    modeRow->addWidget(makeToolButton(*actions.asGrid));
    row->addWidget(modes_);
    row->addSpacing(8);
    row->addWidget(filterButton_);
    row->addWidget(filter_);
    keepTranslated(this, [this] {
        modes_->setAccessibleName(tr("View Mode"));
        showFieldTexts();
        uploadButton_->setText(tr("Copy to Phone"));
        uploadButton_->setAccessibleName(tr("Copy to Phone"));
        uploadButton_->setToolTip(tr("Copy to Phone"));
        if (auto* clear = filter_->findChild<QToolButton*>())
            clear->setAccessibleName(tr("Clear the Filter"));
        path_->setAccessibleName(tr("Path"));
    });
    fit();
}

void BrowserToolbar::hidePhoneCommands() {
    for (QToolButton* button : {downloadButton_, uploadButton_, syncButton_})
        button->hide();
}

void BrowserToolbar::clearFilter() {
    filter_->clear();
}

void BrowserToolbar::showField(bool isForSearch) {
    if (isForSearch != isForSearch_) {
        filter_->clear(); // ends what it was for before
        isForSearch_ = isForSearch;
        showFieldTexts();
    }
    filterButton_->hide();
    filter_->show();
    filter_->setFocus();
    filter_->selectAll();
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

void BrowserToolbar::fit() {
    const bool hasField =
        width() >= roomForField || filter_->hasFocus() || !filter_->text().isEmpty();
    filter_->setVisible(hasField);
    filterButton_->setVisible(!hasField);
    modes_->setVisible(width() >= roomForModes);
    const auto style = width() - (hasField ? filter_->width() : 0) >= roomForWords
                           ? Qt::ToolButtonTextBesideIcon
                           : Qt::ToolButtonIconOnly;
    for (QToolButton* button : {downloadButton_, uploadButton_})
        button->setToolButtonStyle(style);
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
