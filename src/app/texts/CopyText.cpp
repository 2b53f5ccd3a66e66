#include "app/texts/CopyText.h"

#include "app/texts/ErrorText.h"
#include "base/text/Printable.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

#include <algorithm>

namespace tessary {

namespace {

/// The context of this file's texts.
class CopyText {
    Q_DECLARE_TR_FUNCTIONS(CopyText)
};

QString nameWithReason(const LeftOut& left) {
    const QString& folder = left.item.folder;
    const QString path = (folder.isEmpty() ? folder : folder + QLatin1Char('/')) + left.item.name;
    //: the name of an item, and why it was left out
    return CopyText::tr("%1 (%2)").arg(printable(path), reasonText(left.error));
}

} // namespace

QString leftOutText(const std::vector<LeftOut>& leftOut, qint64 copiedFiles) {
    if (leftOut.empty())
        return {};
    constexpr std::size_t namedItems = 3;
    const std::size_t shown = std::min(leftOut.size(), namedItems);
    QStringList named;
    for (std::size_t i = 0; i < shown; ++i)
        named.append(nameWithReason(leftOut[i]));
    QString list = named.join(CopyText::tr(", ", "between the items of a list"));
    if (leftOut.size() > shown)
        list = CopyText::tr("%1 and %Ln more", nullptr, static_cast<int>(leftOut.size() - shown))
                   .arg(list);
    const int count = static_cast<int>(leftOut.size());
    return CopyText::tr("%Ln of %1 items were not copied: %2", nullptr, count)
        .arg(QLocale().toString(copiedFiles + count), list);
}

} // namespace tessary
