#pragma once

#include "phone/records/FileItem.h"

#include <QMimeData>

#include <vector>

namespace tessary {

/// What is dragged out of a listing: the entries themselves, for a drop within the program, and
/// where they come from. Other programs see whatever formats are set beside.
class EntryMimeData : public QMimeData {
    Q_OBJECT

public:
    static constexpr QLatin1StringView format{"application/x-tessary-entries"};

    /// `identity` is that of the connection (PhoneFileSystem::identity()).
    EntryMimeData(QString identity, std::vector<FileItem> items);

    [[nodiscard]] const QString& identity() const {
        return identity_;
    }
    [[nodiscard]] const std::vector<FileItem>& items() const {
        return items_;
    }
    [[nodiscard]] bool hasFolder() const;

private:
    const QString identity_;
    const std::vector<FileItem> items_;
};

} // namespace tessary
