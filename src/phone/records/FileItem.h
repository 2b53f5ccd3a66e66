#pragma once

#include "phone/records/FileCategory.h"

#include <QDateTime>
#include <QString>

#include <cstdint>
#include <optional>

namespace tessary {

/// One entry of a listing, on a device or on the local disk. A value: equality covers every
/// field, `id()` is the narrower identity of a list row.
struct FileItem {
    FileItem() = default;
    FileItem(QString name, QString path, bool isDirectory, qint64 size,
             std::optional<QDateTime> modifiedDate,
             std::optional<std::uint32_t> handle = std::nullopt,
             std::optional<QString> id = std::nullopt);

    QString name; ///< as the source gives it: hostile
    QString path; ///< full path in the namespace of its source
    bool isDirectory = false;
    qint64 size = 0; ///< bytes; 0 for folders where the source gives none
    std::optional<QDateTime> modifiedDate;
    std::optional<std::uint32_t> handle; ///< MTP object handle

    /// The explicit identity, else the path.
    [[nodiscard]] QString id() const;
    /// Text after the last dot of the name, in lower case; empty without one.
    [[nodiscard]] QString fileExtension() const;
    [[nodiscard]] FileCategory category() const;
    /// "--" for a folder.
    [[nodiscard]] QString formattedSize() const;
    [[nodiscard]] QDateTime modifiedDateOrEpoch() const;
    [[nodiscard]] QString iconName() const;

    bool operator==(const FileItem&) const = default;

private:
    std::optional<QString> customId_;
};

} // namespace tessary
