#include "phone/records/EntryMarks.h"

#include <QHashFunctions>

namespace tessary {

namespace {

quint64 markOf(const FileItem& item) {
    // What comes into a folder gives it another size and date.
    if (item.isDirectory)
        return qHashMulti(0, item.path, true);
    const qint64 date = item.modifiedDate ? item.modifiedDate->toMSecsSinceEpoch() : -1;
    return qHashMulti(0, item.path, false, item.size, date);
}

} // namespace

void EntryMarks::add(const FileItem& item) {
    marks_.insert(markOf(item));
}

void EntryMarks::add(const EntryMarks& more) {
    marks_.unite(more.marks_);
}

bool EntryMarks::contains(const FileItem& now) const {
    return marks_.contains(markOf(now));
}

bool EntryMarks::containsFolder(const QString& path) const {
    return contains({{}, path, true, 0, std::nullopt});
}

} // namespace tessary
