#include "views/listing/GridLayout.h"

#include <algorithm>

namespace tessary {

GridLayout::GridLayout(int entries, std::vector<Section> sections, int width, QSize cell,
                       int headingHeight)
    : width_(width), columns_(std::max(width / cell.width(), 1)), cell_(cell) {
    if (sections.empty() && entries > 0)
        sections.push_back({});
    int top = 0;
    for (std::size_t n = 0; n < sections.size(); ++n) {
        const int end = n + 1 < sections.size() ? sections[n + 1].firstEntry : entries;
        sections_.push_back({sections[n].firstEntry, end - sections[n].firstEntry, top,
                             sections[n].hasHeading ? headingHeight : 0});
        top = height();
    }
}

int GridLayout::lines(const Placed& section) const {
    return (section.count + columns_ - 1) / columns_;
}

int GridLayout::height() const {
    if (sections_.empty())
        return 0;
    const Placed& last = sections_.back();
    return last.top + last.headingHeight + lines(last) * cell_.height();
}

int GridLayout::sectionOf(int entry) const {
    const auto after = std::ranges::upper_bound(sections_, entry, {}, &Placed::firstEntry);
    return static_cast<int>(after - sections_.begin()) - 1;
}

int GridLayout::sectionAt(int y) const {
    const auto after = std::ranges::upper_bound(sections_, y, {}, &Placed::top);
    return std::max(static_cast<int>(after - sections_.begin()) - 1, 0);
}

QRect GridLayout::cell(int entry) const {
    const int section = sectionOf(entry);
    if (section < 0)
        return {};
    const Placed& in = at(section);
    const int n = entry - in.firstEntry;
    return {QPoint(n % columns_ * cell_.width(),
                   in.top + in.headingHeight + n / columns_ * cell_.height()),
            cell_};
}

int GridLayout::entryAt(QPoint place) const {
    if (sections_.empty() || place.x() < 0 || place.x() >= columns_ * cell_.width())
        return -1;
    const Placed& in = at(sectionAt(place.y()));
    const int below = place.y() - in.top - in.headingHeight;
    const int n = below / cell_.height() * columns_ + place.x() / cell_.width();
    return below < 0 || n >= in.count ? -1 : in.firstEntry + n;
}

std::vector<GridLayout::Range> GridLayout::entriesIn(const QRect& area) const {
    std::vector<Range> ranges;
    const int firstColumn = std::max(area.left(), 0) / cell_.width();
    const int lastColumn = std::min(area.right() / cell_.width(), columns_ - 1);
    if (sections_.empty() || area.right() < 0 || firstColumn > lastColumn)
        return ranges;
    for (int s = sectionAt(area.top()); s < sectionCount(); ++s) {
        const Placed& in = at(s);
        const int top = in.top + in.headingHeight;
        if (in.top > area.bottom())
            break;
        const int firstLine = std::max(area.top() - top, 0) / cell_.height();
        for (int line = firstLine; line < lines(in) && top + line * cell_.height() <= area.bottom();
             ++line) {
            const int first = line * columns_ + firstColumn;
            const int last = std::min(line * columns_ + lastColumn, in.count - 1);
            if (first > last)
                break;
            // Whole lines are one range.
            if (!ranges.empty() && ranges.back().second == in.firstEntry + first - 1)
                ranges.back().second = in.firstEntry + last;
            else
                ranges.emplace_back(in.firstEntry + first, in.firstEntry + last);
        }
    }
    return ranges;
}

/// The entry of a line in a column, or the last one of the line.
int GridLayout::inLine(int section, int line, int column) const {
    const Placed& in = at(section);
    return in.firstEntry + std::min(line * columns_ + column, in.count - 1);
}

int GridLayout::above(int entry) const {
    const int section = sectionOf(entry);
    if (section < 0)
        return entry;
    const int n = entry - at(section).firstEntry;
    if (n >= columns_)
        return entry - columns_;
    if (section == 0)
        return entry;
    return inLine(section - 1, lines(at(section - 1)) - 1, n % columns_);
}

int GridLayout::below(int entry) const {
    const int section = sectionOf(entry);
    if (section < 0)
        return entry;
    const Placed& in = at(section);
    const int n = entry - in.firstEntry;
    if (n / columns_ + 1 < lines(in))
        return inLine(section, n / columns_ + 1, n % columns_);
    return section + 1 < sectionCount() ? inLine(section + 1, 0, n % columns_) : entry;
}

GridLayout::Range GridLayout::entriesOf(int section) const {
    const Placed& in = at(section);
    return {in.firstEntry, in.firstEntry + in.count - 1};
}

QRect GridLayout::heading(int section) const {
    const Placed& in = at(section);
    return {0, in.top, in.headingHeight > 0 ? width_ : 0, in.headingHeight};
}

int GridLayout::headingAt(QPoint place) const {
    if (sections_.empty())
        return -1;
    const int section = sectionAt(place.y());
    return heading(section).contains(place) ? section : -1;
}

} // namespace tessary
