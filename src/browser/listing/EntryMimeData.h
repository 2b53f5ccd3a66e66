#pragma once

#include "phone/PhoneFileSystem.h"

#include <QMimeData>

#include <memory>
#include <vector>

namespace tessary {

/// Entries of a listing that are dragged or lie on the clipboard: what they are and where they come
/// from, for this program. Other programs see whatever formats are set beside.
class EntryMimeData : public QMimeData {
    Q_OBJECT

public:
    static constexpr QLatin1StringView format{"application/x-tessary-entries"};

    /// What a paste makes of them.
    enum class Use { copy, move };

    /// Keeps the connection; it is never null.
    EntryMimeData(std::shared_ptr<PhoneFileSystem> files, std::vector<FileItem> items,
                  Use use = Use::copy);

    [[nodiscard]] const std::shared_ptr<PhoneFileSystem>& files() const {
        return files_;
    }
    /// That of the connection (PhoneFileSystem::identity()).
    [[nodiscard]] QString identity() const {
        return files_->identity();
    }
    [[nodiscard]] const std::vector<FileItem>& items() const {
        return items_;
    }
    [[nodiscard]] Use use() const {
        return use_;
    }
    [[nodiscard]] bool hasFolder() const;

private:
    const std::shared_ptr<PhoneFileSystem> files_;
    const std::vector<FileItem> items_;
    const Use use_;
};

} // namespace tessary
