#pragma once

#include "phone/records/FileCategory.h"

#include <QDateTime>
#include <QString>

#include <cstdint>
#include <functional>
#include <optional>

namespace tessary {

/// One entry of a listing, on a device or on the local disk. A value: equality and hash cover
/// every field, `id()` is the narrower identity of a list row.
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
    friend std::size_t qHash(const FileItem& item, std::size_t seed);

    std::optional<QString> customId_;
};

[[nodiscard]] std::size_t qHash(const FileItem& item, std::size_t seed = 0);

} // namespace tessary

template <>
struct std::hash<tessary::FileItem> {
    std::size_t operator()(const tessary::FileItem& item) const {
        return tessary::qHash(item);
    }
};
