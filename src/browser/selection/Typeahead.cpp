#include "browser/selection/Typeahead.h"

#include "browser/listing/FileRows.h"

namespace tessary {

namespace {

bool isRepeated(const QString& letter, const QString& text) {
    return text.size() > letter.size() && text == letter.repeated(text.size() / letter.size());
}

/// The first row from `start` on, and round, whose name begins with `prefix`.
int find(const FileRows& rows, const QString& prefix, int start) {
    const int count = rows.count();
    for (int step = 0; step < count; ++step) {
        const int row = (start + step) % count;
        if (rows.foldedName(row).startsWith(prefix))
            return row;
    }
    return -1;
}

} // namespace

void Typeahead::reset() {
    buffer_.clear();
}

int Typeahead::type(const QString& character, const FileRows& rows, int currentRow) {
    const QString letter = rows.listing().folded(character);
    const auto now = clock_();
    if (now - last_ > patience)
        buffer_.clear();
    last_ = now;
    if (letter.isEmpty())
        return -1;
    buffer_ += letter;
    if (isRepeated(letter, buffer_))
        return find(rows, letter, currentRow + 1);
    const int row = find(rows, buffer_, 0);
    if (row >= 0)
        return row;
    buffer_ = letter;
    return find(rows, buffer_, 0);
}

} // namespace tessary
