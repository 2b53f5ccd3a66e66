#include "views/browser/AppListView.h"

#include "app/LanguageManager.h"
#include "app/texts/DisplayNames.h"
#include "app/texts/SharedWords.h"
#include "base/text/Printable.h"
#include "views/common/Icons.h"
#include "views/common/Layouts.h"
#include "views/common/PageStack.h"
#include "views/common/PlaceholderView.h"
#include "views/common/ProblemText.h"
#include "views/common/RowGround.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPainter>
#include <QStandardItemModel>
#include <QStyledItemDelegate>

namespace tessary {

namespace {

constexpr int iconSize = 40;
constexpr int margin = 10;

void paintLetter(QPainter& painter, const QFont& font, const QRect& tile, const QString& name,
                 const QString& identifier) {
    // The same app has the same colour every time.
    const auto hue = static_cast<int>(qChecksum(identifier.toUtf8()) % 360);
    painter.setBrush(QColor::fromHsv(hue, 120, 190));
    painter.drawRoundedRect(tile, 9, 9);
    painter.setFont(demiBold(scaled(font, 1.5)));
    painter.setPen(Qt::white);
    painter.drawText(tile, Qt::AlignCenter, name.left(1).toUpper());
}

/// A row: a tile with the app's first letter, its name, and its identifier below.
class AppRowDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
        return {200, iconSize + 2 * margin};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const bool isSelected = (option.state & QStyle::State_Selected) != 0;
        const QPalette& palette = option.palette;
        const QString name = index.data(Qt::DisplayRole).toString();
        const QString identifier = index.data(Qt::UserRole).toString();
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        const QRect card = option.rect.adjusted(8, 1, -8, -1);
        paintRowGround(*painter, option, card);
        painter->setPen(Qt::NoPen);
        const QRect tile(card.left() + margin, card.center().y() - iconSize / 2, iconSize,
                         iconSize);
        if (const QVariant picture = index.data(Qt::DecorationRole); picture.isValid())
            picture.value<QIcon>().paint(painter, tile);
        else
            paintLetter(*painter, option.font, tile, name, identifier);

        const QColor text =
            palette.color(isSelected ? QPalette::HighlightedText : QPalette::WindowText);
        const QRect texts = card.adjusted(iconSize + 2 * margin, 0, -margin, 0);
        const int line = option.fontMetrics.height();
        QRect first(texts.left(), texts.center().y() - line, texts.width(), line);
        painter->setFont(option.font);
        painter->setPen(text);
        painter->drawText(first, Qt::AlignVCenter | Qt::AlignLeft,
                          option.fontMetrics.elidedText(name, Qt::ElideRight, texts.width()));
        QColor faint = text;
        faint.setAlphaF(0.65F);
        QFont small = option.font;
        small.setPointSizeF(small.pointSizeF() * 0.88);
        painter->setFont(small);
        painter->setPen(faint);
        painter->drawText(
            first.translated(0, line), Qt::AlignVCenter | Qt::AlignLeft,
            QFontMetrics(small).elidedText(identifier, Qt::ElideMiddle, texts.width()));
        painter->restore();
    }
};

} // namespace

AppListView::AppListView(AppListViewModel& apps, Choose choose, Choose openOutside,
                         std::function<void()> goUp, QWidget* parent)
    : QWidget(parent),
      apps_(apps),
      choose_(std::move(choose)),
      openOutside_(std::move(openOutside)),
      goUp_(std::move(goUp)),
      search_(new QLineEdit),
      stack_(new PageStack),
      list_(new QListView),
      rows_(new QStandardItemModel(this)),
      placeholder_(new PlaceholderView) {
    setObjectName(QStringLiteral("appListView"));
    search_->setObjectName(QStringLiteral("appSearch"));
    search_->setClearButtonEnabled(true);
    search_->setFixedWidth(220);
    search_->installEventFilter(this);
    list_->setObjectName(QStringLiteral("appList"));
    list_->setModel(rows_);
    list_->setItemDelegate(new AppRowDelegate(list_));
    list_->setFrameShape(QFrame::NoFrame);
    list_->setMouseTracking(true);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list_->setUniformItemSizes(true);
    list_->installEventFilter(this);
    stack_->addWidget(list_);
    stack_->addWidget(placeholder_);
    auto* title = new QLabel;
    title->setFont(demiBold(title->font()));
    keepTranslated(this, [this, title] {
        title->setText(words::apps());
        search_->setPlaceholderText(tr("Filter…"));
        search_->setAccessibleName(tr("Filter…"));
        list_->setAccessibleName(words::apps());
        show();
    });

    auto* bar = new QHBoxLayout;
    bar->setContentsMargins(18, 9, 10, 9);
    bar->addWidget(title);
    bar->addStretch(1);
    bar->addWidget(search_);
    auto* column = makeColumn(*this);
    column->addLayout(bar);
    column->addWidget(stack_, 1);

    connect(search_, &QLineEdit::textChanged, this,
            [this](const QString& text) { apps_.setSearchText(text); });
    connect(list_, &QListView::clicked, this, &AppListView::open);
    list_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(list_, &QWidget::customContextMenuRequested, this, &AppListView::showMenu);
    connect(&apps, &AppListViewModel::changed, this, &AppListView::show);
}

void AppListView::show() {
    if (search_->text() != apps_.searchText())
        search_->setText(apps_.searchText());
    search_->setEnabled(!apps_.apps().empty());
    const ErrorText words = apps_.problem() ? problemText(*apps_.problem()) : ErrorText{};
    switch (apps_.state()) {
    case AppListState::ready:
        showRows();
        stack_->setCurrentWidget(list_);
        return;
    case AppListState::idle:
    case AppListState::loading:
        if (!apps_.apps().empty()) {
            showRows();
            stack_->setCurrentWidget(list_);
            return;
        }
        placeholder_->show(
            QStringLiteral("iphonePicture"), tr("Looking for apps…"), {}, tr("Cancel"),
            [this] { apps_.cancelLoading(); }, true);
        break;
    case AppListState::empty:
        placeholder_->show(QStringLiteral("iphonePicture"), tr("No Apps That Share Files"),
                           tr("Only apps whose makers turned on file sharing can be opened from a "
                              "computer. The photos and videos can be opened."),
                           tr("Photos & Videos"), [this] { choose_(mediaFolder()); });
        placeholder_->addChoice(tr("Retry"), [this] { apps_.reload(); });
        break;
    case AppListState::noMatch:
        placeholder_->show(QStringLiteral("edit-find"), tr("No Matching Apps"), {},
                           tr("Clear the Filter"), [this] { search_->clear(); });
        break;
    case AppListState::failed:
        if (apps_.problem()->what == BrowserProblem::What::appsNotRead)
            placeholder_->show(QStringLiteral("iphonePicture"), words.what, words.advice,
                               tr("Retry"), [this] { apps_.reload(); });
        else
            placeholder_->show(QStringLiteral("dialog-error"), tr("Connection Failed"),
                               words.advice + QLatin1Char('\n') + words.what, tr("Retry"),
                               [this] { apps_.reload(); });
        placeholder_->setDetails(words.details);
        break;
    }
    stack_->setCurrentWidget(placeholder_);
}

void AppListView::showRows() {
    std::vector<AppInfo> apps = apps_.filteredApps();
    AppInfo media = mediaFolder();
    media.displayName = placeDisplayName(media.displayName);
    if (media.displayName.contains(apps_.searchText().trimmed(), Qt::CaseInsensitive))
        apps.insert(apps.begin(), media);
    if (apps == shown_)
        return;
    shown_ = std::move(apps);
    rows_->clear();
    for (const AppInfo& app : shown_) {
        auto* row = new QStandardItem(printable(app.displayName));
        if (isMediaFolder(app.bundleIdentifier)) {
            row->setData(tr("What the camera took, and what was saved with it"), Qt::UserRole);
            row->setData(icon("photosPicture"), Qt::DecorationRole);
        } else {
            row->setData(printable(app.bundleIdentifier), Qt::UserRole);
        }
        rows_->appendRow(row);
    }
    list_->setCurrentIndex(rows_->index(0, 0));
}

void AppListView::open(const QModelIndex& index) {
    if (index.isValid() && index.row() < static_cast<int>(shown_.size()))
        choose_(shown_[static_cast<std::size_t>(index.row())]);
}

void AppListView::showMenu(const QPoint& where) {
    const QModelIndex index = list_->indexAt(where);
    if (!index.isValid() || index.row() >= static_cast<int>(shown_.size()))
        return;
    const AppInfo app = shown_[static_cast<std::size_t>(index.row())]; // the list may change
    QMenu menu(this);
    menu.addAction(icon("document-open-folder"), words::openInFileManager(),
                   [this, &app] { openOutside_(app); });
    menu.exec(list_->viewport()->mapToGlobal(where));
}

/// Whatever of it has the focus.
void AppListView::keyPressEvent(QKeyEvent* key) {
    if (key->key() == Qt::Key_Escape && apps_.isLoading())
        apps_.cancelLoading();
    else if (key->matches(QKeySequence::Refresh))
        apps_.reload();
    else
        QWidget::keyPressEvent(key);
}

bool AppListView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        open(list_->currentIndex());
        return true;
    }
    if (watched == list_ && key == Qt::Key_Backspace) {
        goUp_();
        return true;
    }
    if (watched == search_ && key == Qt::Key_Escape)
        search_->clear();
    if (watched == search_ && key == Qt::Key_Down)
        list_->setFocus();
    return false;
}

} // namespace tessary
