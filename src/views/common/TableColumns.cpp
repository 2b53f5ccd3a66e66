#include "views/common/TableColumns.h"

#include "app/LanguageManager.h"

#include <QHeaderView>
#include <QJsonArray>
#include <QMenu>
#include <QScopedValueRollback>
#include <QTreeView>

#include <algorithm>

namespace tessary {

namespace {

using Key = QLatin1StringView;

constexpr int first = 0;
constexpr int narrowest = 60;       // pixels
constexpr int narrowestFirst = 120; // the same
constexpr int widest = 800;         // the same

} // namespace

TableColumns::TableColumns(QTreeView& view, std::vector<TableColumn> columns)
    : QObject(&view), view_(view), header_(*view.header()), menu_(new QMenu(&view)) {
    for (TableColumn& column : columns)
        columns_.push_back({std::move(column)});
    header_.setStretchLastSection(false);
    header_.setSectionResizeMode(QHeaderView::Interactive);
    header_.setMinimumSectionSize(narrowest);
    header_.setSectionsMovable(true);
    header_.setFirstSectionMovable(false);
    connect(&header_, &QHeaderView::sectionResized, this, &TableColumns::resized);
    connect(&header_, &QHeaderView::sectionMoved, this, &TableColumns::choicesChanged);
    makeMenu();
    fit();
}

void TableColumns::makeMenu() {
    for (Shown& shown : columns_) {
        if (!shown.column.isChoosable)
            continue;
        const int column = shown.column.column;
        QAction* choice = shown.choice = menu_->addAction(QString());
        choice->setCheckable(true);
        choice->setChecked(true);
        connect(choice, &QAction::toggled, this, [this, column](bool isWanted) {
            of(column)->isWanted = isWanted;
            fit();
            Q_EMIT choicesChanged();
        });
        keepTranslated(choice, [this, choice, column] {
            choice->setText(view_.model()->headerData(column, Qt::Horizontal).toString());
        });
    }
    keepTranslated(menu_, [this] { menu_->setTitle(tr("Columns")); });
    header_.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&header_, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& where) { menu_->popup(header_.viewport()->mapToGlobal(where)); });
}

TableColumns::Shown* TableColumns::of(int column) {
    const auto found =
        std::ranges::find(columns_, column, [](const Shown& shown) { return shown.column.column; });
    return found == columns_.end() ? nullptr : &*found;
}

/// The column to the right of one; -1 when there is none.
int TableColumns::nextTo(int column) const {
    for (int place = header_.visualIndex(column) + 1; place < header_.count(); ++place)
        if (const int next = header_.logicalIndex(place); !header_.isSectionHidden(next))
            return next;
    return -1;
}

void TableColumns::resized(int column) {
    if (isFitting_ || header_.isSectionHidden(column))
        return;
    {
        const QScopedValueRollback fitting(isFitting_, true);
        const int next = nextTo(column);
        const int room = view_.viewport()->width();
        if (next >= 0) {
            const int tooWide = header_.length() + free_ - room;
            const int given = std::min(tooWide, header_.sectionSize(next) - narrowest);
            header_.resizeSection(next, header_.sectionSize(next) - given);
            header_.resizeSection(column, header_.sectionSize(column) - (tooWide - given));
        } else if (column != first) {
            free_ = std::max(room - header_.length(), 0);
            const int mostWide = room - (header_.length() - header_.sectionSize(column)) +
                                 header_.sectionSize(first) - narrowestFirst;
            header_.resizeSection(column, std::min(header_.sectionSize(column), mostWide));
        }
        for (Shown& shown : columns_)
            if (!header_.isSectionHidden(shown.column.column))
                shown.column.width = header_.sectionSize(shown.column.column);
    }
    fitFirst();
    Q_EMIT choicesChanged();
}

void TableColumns::fit() {
    const QScopedValueRollback fitting(isFitting_, true);
    int room = view_.viewport()->width();
    const int half = room / 2;
    const auto isOffered = [](const Shown& shown) {
        return shown.isWanted && (!shown.column.isOffered || shown.column.isOffered());
    };
    // What cannot be chosen is needed, and takes room from what can.
    for (const bool isNeeded : {true, false})
        for (const Shown& shown : columns_) {
            const TableColumn& column = shown.column;
            if (column.isChoosable == isNeeded)
                continue;
            const bool isShown = isOffered(shown) && room >= column.room;
            header_.setSectionHidden(column.column, !isShown);
            if (!isShown)
                continue;
            header_.resizeSection(column.column,
                                  isNeeded ? std::min(column.width, half) : column.width);
            if (isNeeded)
                room -= header_.sectionSize(column.column);
        }
    fitFirst();
}

/// Where there is little room nothing stays free.
void TableColumns::fitFirst() {
    const QScopedValueRollback fitting(isFitting_, true);
    const int left = view_.viewport()->width() - (header_.length() - header_.sectionSize(first));
    header_.resizeSection(first, std::max(left - free_, std::min(left, narrowestFirst)));
}

QJsonObject TableColumns::choices() const {
    std::vector<const Shown*> inOrder;
    for (const Shown& shown : columns_)
        inOrder.push_back(&shown);
    std::ranges::sort(inOrder, {}, [this](const Shown* shown) {
        return header_.visualIndex(shown->column.column);
    });
    QJsonArray columns;
    for (const Shown* shown : inOrder)
        columns.append(QJsonObject{{Key("name"), shown->column.name},
                                   {Key("width"), shown->column.width},
                                   {Key("shown"), shown->isWanted}});
    return {{Key("columns"), columns}, {Key("free"), free_}};
}

void TableColumns::restore(const QJsonObject& choices) {
    const QSignalBlocker quiet(this);
    free_ = std::clamp(choices.value(Key("free")).toInt(), 0, widest);
    int place = header_.visualIndex(first);
    for (const QJsonValue& entry : choices.value(Key("columns")).toArray()) {
        const auto shown = std::ranges::find(columns_, entry[Key("name")].toString(),
                                             [](const Shown& each) { return each.column.name; });
        if (shown == columns_.end())
            continue;
        TableColumn& column = shown->column;
        column.width = std::clamp(entry[Key("width")].toInt(column.width), narrowest, widest);
        if (const int now = header_.visualIndex(column.column); now > place)
            header_.moveSection(now, ++place);
        if (shown->choice != nullptr)
            shown->choice->setChecked(entry[Key("shown")].toBool(true));
    }
    fit();
}

} // namespace tessary
