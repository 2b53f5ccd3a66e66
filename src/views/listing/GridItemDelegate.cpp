#include "views/listing/GridItemDelegate.h"

#include "views/common/PlainText.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QListView>
#include <QPainter>
#include <QTextLayout>
#include <QToolTip>

namespace tessary {

namespace {

constexpr int margin = 4; // pixels around the picture, the name and both

QRect cellOf(const QStyleOptionViewItem& option) {
    return option.rect.adjusted(margin, margin, -margin, -margin);
}

QRect pictureOf(const QStyleOptionViewItem& option) {
    const QRect cell = cellOf(option);
    return {cell.left(), cell.top() + margin, cell.width(), option.decorationSize.height()};
}

QRect nameOf(const QStyleOptionViewItem& option) {
    const QRect cell = cellOf(option);
    const int top = pictureOf(option).bottom() + 1 + margin;
    return {cell.left() + margin, top, cell.width() - 2 * margin, cell.bottom() + 1 - top};
}

/// The lines that a name takes, and where they and the whole entry stand.
struct Placed {
    explicit Placed(const QStyleOptionViewItem& option)
        : lines(GridItemDelegate::linesOf(option.text, option.font, nameOf(option).width())),
          name(nameOf(option).topLeft(),
               QSize(nameOf(option).width(),
                     QFontMetrics(option.font).lineSpacing() * static_cast<int>(lines.size()))),
          ground((pictureOf(option) | name)
                     .adjusted(-margin, -margin, margin, margin)
                     .intersected(option.rect)) {}

    QStringList lines;
    QRect name;
    QRect ground;
};

} // namespace

QStringList GridItemDelegate::linesOf(const QString& plain, const QFont& font, int width) {
    // A name has few blanks: it is parted at other signs, too, or else wherever a line is full.
    constexpr QChar mayBreak(0x200B);
    constexpr QLatin1StringView partingSigns("_-.");
    QString name;
    name.reserve(2 * plain.size());
    for (const QChar sign : plain) {
        name += sign;
        if (partingSigns.contains(sign))
            name += mayBreak;
    }
    const auto shown = [](QString line) { return line.remove(mayBreak).trimmed(); };
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QTextLayout layout(name, font);
    layout.setTextOption(option);
    layout.beginLayout();
    QStringList lines;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        if (lines.size() + 1 == mostLines) {
            lines.append(QFontMetrics(font).elidedText(shown(name.mid(line.textStart())),
                                                       Qt::ElideMiddle, width));
            break;
        }
        lines.append(shown(name.mid(line.textStart(), line.textLength())));
    }
    layout.endLayout();
    return lines;
}

void GridItemDelegate::paint(QPainter* painter, const QStyleOptionViewItem& plain,
                             const QModelIndex& index) const {
    QStyleOptionViewItem option = plain;
    initStyleOption(&option, index);
    const bool isSelected = (option.state & QStyle::State_Selected) != 0;
    const bool hasFocus = (option.state & QStyle::State_HasFocus) != 0;
    const QPalette::ColorGroup group =
        (option.state & QStyle::State_Active) != 0 ? QPalette::Active : QPalette::Inactive;
    const QColor accent = option.palette.color(group, QPalette::Highlight);
    const auto [lines, name, ground] = Placed(option);
    const int height = QFontMetrics(option.font).lineSpacing();

    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    constexpr qreal faded = 0.45;
    if ((option.state & QStyle::State_Enabled) == 0)
        painter->setOpacity(faded);
    constexpr float selectedShare = 0.25F;
    constexpr float hoverShare = 0.1F;
    constexpr int radius = 6;
    QColor tint = accent;
    tint.setAlphaF(isSelected ? selectedShare : hoverShare);
    if (isSelected || (option.state & QStyle::State_MouseOver) != 0) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(tint);
        painter->drawRoundedRect(ground, radius, radius);
    }
    option.icon.paint(painter, pictureOf(option), Qt::AlignCenter, QIcon::Normal);
    if (isSelected) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(accent);
        painter->drawRoundedRect(name.adjusted(-margin / 2, 0, margin / 2, 0), margin, margin);
    }
    painter->setFont(option.font);
    painter->setPen(
        option.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text));
    for (qsizetype i = 0; i < lines.size(); ++i)
        painter->drawText(
            QRect(name.left(), name.top() + height * static_cast<int>(i), name.width(), height),
            Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextSingleLine, lines[i]);
    if (hasFocus && !isSelected) {
        painter->setPen(QPen(accent, 1, Qt::DotLine));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(ground, radius, radius);
    }
    painter->restore();
}

QRect GridItemDelegate::groundOf(const QStyleOptionViewItem& plain,
                                 const QModelIndex& index) const {
    QStyleOptionViewItem option = plain;
    initStyleOption(&option, index);
    return Placed(option).ground;
}

QSize GridItemDelegate::sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
    const auto* grid = qobject_cast<const QListView*>(option.widget);
    return grid != nullptr ? grid->gridSize() : FileItemDelegate::sizeHint(option, index);
}

void GridItemDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                            const QModelIndex&) const {
    QRect place = nameOf(option);
    place.setHeight(editor->sizeHint().height());
    editor->setGeometry(place);
}

bool GridItemDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                 const QStyleOptionViewItem& plain, const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip)
        return FileItemDelegate::helpEvent(event, view, plain, index);
    QStyleOptionViewItem option = plain;
    initStyleOption(&option, index);
    const QStringList lines = linesOf(option.text, option.font, nameOf(option).width());
    const bool isCut = !lines.isEmpty() && !option.text.endsWith(lines.last());
    QToolTip::showText(event->globalPos(), isCut ? plainToolTip(option.text) : QString(), view);
    return true;
}

} // namespace tessary
