#include "cli/terminal/FileLine.h"

#include "base/text/Printable.h"

namespace tessary {

QString shownDate(const FileItem& item) {
    return item.modifiedDate
               ? item.modifiedDate->toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm"))
               : QString(16, QLatin1Char(' '));
}

QString fileLine(const FileItem& item, const QString& shown) {
    constexpr int sizeWidth = 10;
    return QStringLiteral("%1  %2  %3%4")
        .arg(item.formattedSize().rightJustified(sizeWidth), shownDate(item), printable(shown),
             item.isDirectory ? QStringLiteral("/") : QString());
}

} // namespace tessary
