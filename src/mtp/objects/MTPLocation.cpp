#include "mtp/objects/MTPLocation.h"

#include "base/text/PathNames.h"

namespace tessary {

QString MTPLocation::shownPath() const {
    if (prefix.isEmpty())
        return path;
    return isRoot() ? prefix : prefix + path;
}

MTPLocation MTPLocation::child(const QString& name) const {
    return {storageID, joinPath(path, name), prefix};
}

MTPLocation MTPLocation::folder() const {
    return {storageID, parentPath(path), prefix};
}

} // namespace tessary
