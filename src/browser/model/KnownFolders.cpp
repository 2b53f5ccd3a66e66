#include "browser/model/KnownFolders.h"

#include "base/text/NameOrder.h"

#include <algorithm>

namespace tessary {

void KnownFolders::note(const QString& folder, const std::vector<FileItem>& items) {
    QStringList names;
    for (const FileItem& item : items)
        if (item.isDirectory)
            names.append(item.name);
    count_ -= names_.take(folder).size();
    if (count_ + names.size() > mostNames)
        clear();
    if (names.size() > mostNames)
        return;
    count_ += names.size();
    names_.insert(folder, std::move(names));
}

void KnownFolders::clear() {
    names_.clear();
    count_ = 0;
}

QStringList KnownFolders::namesIn(const QString& folder, const QString& prefix) const {
    QStringList found;
    for (const QString& name : names_.value(folder))
        if (name.startsWith(prefix, Qt::CaseInsensitive))
            found.append(name);
    std::sort(found.begin(), found.end(), nameCollator());
    return found;
}

} // namespace tessary
