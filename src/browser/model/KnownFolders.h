#pragma once

#include "phone/records/FileItem.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

namespace tessary {

/// The folders that the listings of a connection have shown so far: what a typed path can be
/// completed with, without asking the phone. Forgets everything when it has grown too large.
class KnownFolders {
public:
    static constexpr qsizetype mostNames = 50'000;

    /// What lies in a folder, in place of what was known about it.
    void note(const QString& folder, const std::vector<FileItem>& items);
    void clear();
    /// The names of the folders in `folder` that begin with `prefix` whatever its case, in order.
    [[nodiscard]] QStringList namesIn(const QString& folder, const QString& prefix) const;

private:
    QHash<QString, QStringList> names_;
    qsizetype count_ = 0;
};

} // namespace tessary
