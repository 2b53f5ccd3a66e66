#include "ios/files/AFCItems.h"

#include "base/text/PathNames.h"

#include <QStringDecoder>

#include <cstdlib>

namespace tessary {

std::optional<QString> textOfName(const QByteArray& bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = decoder(bytes);
    return decoder.hasError() ? std::nullopt : std::optional(std::move(text));
}

AFCRow rowFrom(const QString& path, const std::optional<AFCFileInfo>& facts) {
    if (facts && facts->isLink)
        return UnreadableEntry{path, Error(PhoneError::notSupported, {path})};
    if (!facts || !(facts->isDirectory || (facts->isFile && facts->size)))
        return UnreadableEntry{path, Error(PhoneError::unreadable, {path})};
    return FileItem(lastComponent(path), path, facts->isDirectory,
                    facts->isDirectory ? 0 : *facts->size, facts->modifiedDate);
}

bool isStill(const FileItem& listed, const FileItem& now) {
    // Whoever keeps dates may keep them to the second.
    constexpr qint64 dateSlack = 1000;
    if (listed.isDirectory || now.isDirectory)
        return listed.isDirectory == now.isDirectory;
    const bool hasDates = listed.modifiedDate && now.modifiedDate;
    return listed.size == now.size &&
           (!hasDates || std::abs(listed.modifiedDate->msecsTo(*now.modifiedDate)) < dateSlack);
}

} // namespace tessary
