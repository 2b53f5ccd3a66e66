#include "phone/records/FileItem.h"

#include "base/text/ByteFormat.h"

#include <QTimeZone>

namespace tessary {

FileItem::FileItem(QString itemName, QString itemPath, bool directory, qint64 byteCount,
                   std::optional<QDateTime> modified, std::optional<std::uint32_t> objectHandle,
                   std::optional<QString> id)
    : name(std::move(itemName)),
      path(std::move(itemPath)),
      isDirectory(directory),
      size(byteCount),
      modifiedDate(std::move(modified)),
      handle(objectHandle),
      customId_(std::move(id)) {}

QString FileItem::id() const {
    return customId_.value_or(path);
}

QString FileItem::fileExtension() const {
    // Like a path extension: a leading dot starts a hidden name, not an extension. A hostile name
    // may hold slashes.
    const QStringView last = QStringView(name).mid(name.lastIndexOf(QLatin1Char('/')) + 1);
    const qsizetype dot = last.lastIndexOf(QLatin1Char('.'));
    return dot <= 0 ? QString() : last.mid(dot + 1).toString().toLower();
}

FileCategory FileItem::category() const {
    return isDirectory ? FileCategory::folder : fileCategoryForExtension(fileExtension());
}

QString FileItem::formattedSize() const {
    return isDirectory ? QStringLiteral("--") : formatBytes(size);
}

QDateTime FileItem::modifiedDateOrEpoch() const {
    // Not value_or(): a date is dear to make, and a folder has many entries.
    return modifiedDate ? *modifiedDate : QDateTime::fromMSecsSinceEpoch(0, QTimeZone::utc());
}

QString FileItem::iconName() const {
    return tessary::iconName(category());
}

} // namespace tessary
