#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

#include <utility>
#include <vector>

namespace tessary {

/// Where the entries of a grid stand: rows of equal cells, in sections that may have a heading
/// above them. Any question is answered in a time that hardly grows with the number of entries. A
/// value; places are in pixels from the top of the whole content.
class GridLayout {
public:
    /// Entries from `firstEntry` to the next section.
    struct Section {
        int firstEntry = 0;
        bool hasHeading = false;
    };
    /// Neighbouring entries: the first and the last.
    using Range = std::pair<int, int>;

    /// Nothing.
    GridLayout() = default;
    /// `sections` are in order, and the first begins at 0; without any all entries are in one.
    GridLayout(int entries, std::vector<Section> sections, int width, QSize cell,
               int headingHeight);

    [[nodiscard]] int height() const;
    /// Cells beside one another; at least one.
    [[nodiscard]] int columns() const {
        return columns_;
    }
    [[nodiscard]] QRect cell(int entry) const;
    /// -1 where there is none.
    [[nodiscard]] int entryAt(QPoint place) const;
    /// Those whose cells touch an area.
    [[nodiscard]] std::vector<Range> entriesIn(const QRect& area) const;
    /// The entry above or below in the same column, or the nearest to it; the same at the edge.
    [[nodiscard]] int above(int entry) const;
    [[nodiscard]] int below(int entry) const;

    [[nodiscard]] int sectionCount() const {
        return static_cast<int>(sections_.size());
    }
    [[nodiscard]] Range entriesOf(int section) const;
    /// Empty for a section without.
    [[nodiscard]] QRect heading(int section) const;
    /// The section whose heading is there; -1 where there is none.
    [[nodiscard]] int headingAt(QPoint place) const;
    /// The section that holds a height; those at the ends for what is beyond.
    [[nodiscard]] int sectionAt(int y) const;

private:
    struct Placed {
        int firstEntry = 0;
        int count = 0;
        int top = 0;
        int headingHeight = 0;
    };
    [[nodiscard]] const Placed& at(int section) const {
        return sections_[static_cast<std::size_t>(section)];
    }
    [[nodiscard]] int sectionOf(int entry) const;
    [[nodiscard]] int lines(const Placed& section) const;
    [[nodiscard]] int inLine(int section, int line, int column) const;

    std::vector<Placed> sections_;
    int width_ = 0;
    int columns_ = 1;
    QSize cell_{1, 1};
};

} // namespace tessary
