#include "views/browser/BreadcrumbBar.h"

#include "app/LanguageManager.h"
#include "app/texts/DisplayNames.h"
#include "app/texts/SharedWords.h"
#include "base/text/Printable.h"
#include "views/common/EntryDrop.h"
#include "views/common/Layouts.h"
#include "views/common/PlainText.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QStringListModel>
#include <QToolButton>

#include <functional>
#include <utility>

namespace tessary {

namespace {

constexpr int longestPart = 220; // pixels; longer names are cut in the middle
constexpr int shortestPart = 40;
constexpr int partPadding = 26;   // pixels around a name, separator included
constexpr int overflowWidth = 40; // pixels of the menu of parts, separator included
constexpr const char* pathProperty = "path";

/// A line for a path. What it may become hangs below it while the user types; Tab takes the first
/// of that.
class PathEdit : public QLineEdit {
public:
    /// `leave` is called when the path is there, or the user has turned to something else.
    PathEdit(FileBrowserViewModel& browser, std::function<void()> leave, QWidget* parent)
        : QLineEdit(browser.currentPath(), parent), browser_(browser), leave_(std::move(leave)) {
        setObjectName(QStringLiteral("pathEdit"));
        setCursor(Qt::IBeamCursor);
        auto* completer = new QCompleter(&completions_, this);
        // The folders are looked up by the text: the completer has nothing to leave out.
        completer->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
        completer->setMaxVisibleItems(12);
        setCompleter(completer);
        connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
            completions_.setStringList(browser_.pathCompletions(text));
            browser_.dismissProblem(); // what was entered before counts no more
        });
    }

protected:
    bool event(QEvent* event) override {
        // Before it moves the focus.
        if (event->type() == QEvent::KeyPress &&
            static_cast<QKeyEvent*>(event)->key() == Qt::Key_Tab) {
            const QStringList found = browser_.pathCompletions(text());
            if (!found.isEmpty()) {
                setText(found.constFirst() + QLatin1Char('/'));
                completions_.setStringList(browser_.pathCompletions(text()));
                completer()->complete();
                event->accept();
                return true;
            }
        }
        return QLineEdit::event(event);
    }

    void keyPressEvent(QKeyEvent* event) override {
        const bool isCompleting = completer()->popup()->isVisible();
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
            completer()->popup()->hide();
            browser_.goToTyped(text(), [leave = leave_](bool isThere) {
                if (isThere)
                    leave();
            });
        } else if (event->key() == Qt::Key_Escape && !isCompleting) {
            leave_();
        } else {
            QLineEdit::keyPressEvent(event);
        }
    }

    void focusOutEvent(QFocusEvent* event) override {
        QLineEdit::focusOutEvent(event);
        // The list of completions and other windows take the focus for a while only.
        if (event->reason() != Qt::PopupFocusReason &&
            event->reason() != Qt::ActiveWindowFocusReason)
            leave_();
    }

private:
    FileBrowserViewModel& browser_;
    const std::function<void()> leave_;
    QStringListModel completions_;
};

} // namespace

BreadcrumbBar::BreadcrumbBar(FileBrowserViewModel& browser, const EntryDrop& drops)
    : browser_(browser), drops_(drops), layout_(new QHBoxLayout(this)) {
    setObjectName(QStringLiteral("breadcrumbs"));
    layout_->setContentsMargins(0, 0, 0, 0);
    layout_->setSpacing(0);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setMinimumHeight(30);
    setCursor(Qt::IBeamCursor);
    setAcceptDrops(true);
    connect(&browser, &FileBrowserViewModel::pathChanged, this, &BreadcrumbBar::showPath);
    connect(&browser, &FileBrowserViewModel::connectionChanged, this, &BreadcrumbBar::showPath);
    keepTranslated(this, [this] { showPath(); });
}

void BreadcrumbBar::showPath() {
    std::vector<Part> path;
    const auto& device = browser_.activeDevice();
    if (device && device->platform == DevicePlatform::iOS) {
        path.push_back({words::apps(), {}});
        if (!browser_.isMedia())
            path.push_back({printable(browser_.appName()), browser_.rootPath()});
    }
    // The root has a name of ours, or the phone's.
    for (const PathComponent& part : browser_.breadcrumbs())
        path.push_back(
            {printable(&part == &browser_.breadcrumbs().front() ? placeDisplayName(part.name)
                                                                : part.name),
             part.path});
    if (std::exchange(path_, path) != path)
        stopTyping();
    rebuild();
}

void BreadcrumbBar::choose(const QString& path) {
    if (path.isEmpty())
        Q_EMIT appsWanted();
    else
        browser_.navigateTo(path);
    Q_EMIT left();
}

void BreadcrumbBar::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        startTyping();
}

void BreadcrumbBar::startTyping() {
    if (edit_ == nullptr) {
        edit_ = new PathEdit(
            browser_, [this] { stopTyping(); }, this);
        edit_->setAccessibleName(tr("Path"));
        rebuild();
    }
    edit_->show();
    edit_->setFocus();
    edit_->selectAll();
}

void BreadcrumbBar::stopTyping() {
    QLineEdit* edit = std::exchange(edit_, nullptr);
    if (edit == nullptr)
        return;
    const bool hadFocus = edit->hasFocus();
    edit->hide();
    edit->deleteLater(); // it may be what calls
    rebuild();
    if (hadFocus)
        Q_EMIT left();
}

void BreadcrumbBar::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    rebuild();
}

/// As wide as it is when it is the last one, whose name is bolder.
int BreadcrumbBar::widthOf(const Part& part) const {
    return std::min(QFontMetrics(demiBold(font())).horizontalAdvance(part.name), longestPart) +
           partPadding;
}

void BreadcrumbBar::rebuild() {
    target_ = nullptr;
    while (QLayoutItem* old = layout_->takeAt(0)) {
        QWidget* widget = old->widget();
        if (widget != nullptr && widget != edit_) {
            widget->hide();
            widget->deleteLater();
        }
        delete old;
    }
    if (edit_ != nullptr) {
        layout_->addWidget(edit_);
        return;
    }
    if (path_.empty())
        return;
    // The last part always shows; from there towards the root as many as there is room for. The
    // root gives way last.
    const std::size_t last = path_.size() - 1;
    const bool showsRoot =
        last == 0 || widthOf(path_.front()) + overflowWidth + widthOf(path_[last]) <= width();
    int room = width() - overflowWidth - (showsRoot ? widthOf(path_.front()) : 0);
    std::size_t first = path_.size();
    while (first > 1 && (first == path_.size() || room - widthOf(path_[first - 1]) > 0))
        room -= widthOf(path_[--first]);
    if (showsRoot)
        addPart(path_.front(), last == 0, width());
    if (first > (showsRoot ? 1U : 0U))
        addOverflow(showsRoot ? 1 : 0, first);
    for (std::size_t i = first; i < path_.size(); ++i) {
        addSeparator();
        addPart(path_[i], i == last, width() - overflowWidth);
    }
    layout_->addStretch(1);
}

void BreadcrumbBar::addPart(const Part& part, bool isLast, int mostWidth) {
    auto* button = new QToolButton;
    button->setCursor(Qt::ArrowCursor);
    button->setAutoRaise(true);
    const QFont font = isLast ? demiBold(button->font()) : button->font();
    button->setFont(font);
    const int most = std::max(std::min(longestPart, mostWidth - partPadding), shortestPart);
    button->setText(QFontMetrics(font)
                        .elidedText(part.name, Qt::ElideMiddle, most)
                        .replace(QLatin1Char('&'), QStringLiteral("&&")));
    button->setAccessibleName(part.name);
    button->setProperty(pathProperty, part.path);
    if (!part.path.isEmpty())
        button->setToolTip(plainToolTip(printable(part.path)));
    connect(button, &QToolButton::clicked, this, [this, path = part.path] { choose(path); });
    layout_->addWidget(button);
}

QToolButton* BreadcrumbBar::partAt(const QPoint& position) const {
    auto* part = qobject_cast<QToolButton*>(childAt(position));
    // What leads out of the files is no folder to drop something into.
    return part != nullptr && !part->property(pathProperty).toString().isEmpty() ? part : nullptr;
}

void BreadcrumbBar::showTarget(QToolButton* part) {
    if (target_ != nullptr)
        target_->setDown(false);
    target_ = part;
    if (target_ != nullptr)
        target_->setDown(true);
}

void BreadcrumbBar::dragEnterEvent(QDragEnterEvent* event) {
    if (drops_.isUsable(*event))
        event->acceptProposedAction();
}

void BreadcrumbBar::dragMoveEvent(QDragMoveEvent* event) {
    QToolButton* part = partAt(event->position().toPoint());
    const DropFolder folder{part == nullptr ? QString() : part->property(pathProperty).toString(),
                            {}};
    showTarget(drops_.consider(*event, folder) ? part : nullptr);
}

void BreadcrumbBar::dragLeaveEvent(QDragLeaveEvent* event) {
    showTarget(nullptr);
    QWidget::dragLeaveEvent(event);
}

void BreadcrumbBar::dropEvent(QDropEvent* event) {
    showTarget(nullptr);
    if (const QToolButton* part = partAt(event->position().toPoint()))
        drops_.drop(*event, {part->property(pathProperty).toString(), {}});
    else
        event->ignore();
}

void BreadcrumbBar::addOverflow(std::size_t first, std::size_t end) {
    if (first > 0)
        addSeparator();
    auto* button = new QToolButton;
    button->setCursor(Qt::ArrowCursor);
    button->setAutoRaise(true);
    button->setText(QStringLiteral("…"));
    button->setAccessibleName(tr("Folders in between"));
    button->setPopupMode(QToolButton::InstantPopup);
    auto* menu = new QMenu(button);
    for (std::size_t i = first; i < end; ++i)
        menu->addAction(path_[i].name, this, [this, path = path_[i].path] { choose(path); });
    button->setMenu(menu);
    layout_->addWidget(button);
}

void BreadcrumbBar::addSeparator() {
    auto* separator = new QLabel(QStringLiteral("›"));
    separator->setForegroundRole(QPalette::PlaceholderText);
    layout_->addWidget(separator);
}

} // namespace tessary
