#pragma once

#include "phone/records/FileItem.h"

#include <QSet>

namespace tessary {

/// Files and folders as they were once, told from whatever gets their paths later. Keeps a 64-bit
/// mark of each. A value, cheap to copy.
class EntryMarks {
public:
    void add(const FileItem& item);
    void add(const EntryMarks& more);
    /// Whether an entry is one of them, and a file also as it was: by size and date. Handles
    /// do not count, for a phone gives others at its next attachment.
    [[nodiscard]] bool contains(const FileItem& now) const;
    [[nodiscard]] bool containsFolder(const QString& path) const;

    bool operator==(const EntryMarks&) const = default;

private:
    QSet<quint64> marks_;
};

} // namespace tessary
