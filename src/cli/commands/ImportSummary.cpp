#include "cli/commands/ImportSummary.h"

#include "base/text/ByteFormat.h"
#include "base/text/PathNames.h"
#include "cli/terminal/RecordJson.h"

#include <QJsonArray>

#include <algorithm>

namespace tessary {

namespace {

using View = QLatin1StringView;

qint64 fetchedBefore(const FoundPhotos& found, const ImportPlan& plan) {
    return static_cast<qint64>(found.photos.size()) - plan.photos;
}

QString targetOf(const CopyItem& item) {
    return item.folder.isEmpty() ? item.name : joinPath(item.folder, item.name);
}

} // namespace

QJsonObject toJson(const ImportSummary& summary) {
    QJsonArray files;
    for (const CopyItem& item : summary.plan.items) {
        QJsonObject file = toJson(item.item);
        file.insert(View("copy"), targetOf(item));
        files.append(file);
    }
    QJsonObject object{{View("photos"), static_cast<qint64>(summary.found.photos.size())},
                       {View("fetchedBefore"), fetchedBefore(summary.found, summary.plan)},
                       {View("newPhotos"), summary.plan.photos},
                       {View("newBytes"), summary.plan.bytes},
                       {View("files"), files}};
    if (summary.outcome)
        object.insert(View("outcome"), toJson(*summary.outcome));
    if (summary.removal)
        object.insert(View("deleted"), QJsonObject{{View("photos"), summary.removal->photos},
                                                   {View("files"), summary.removal->files}});
    return object;
}

QStringList linesOf(const ImportSummary& summary) {
    const ImportPlan& plan = summary.plan;
    QStringList lines;
    if (!summary.outcome)
        for (const CopyItem& item : plan.items)
            lines << QStringLiteral("%1  %2  %3")
                         .arg(formatBytes(item.item.size).rightJustified(10), item.item.path,
                              targetOf(item));
    const QString numbers =
        QStringLiteral("%1 of %2 photos and videos are new (%3 files, %4); %5 were fetched before.")
            .arg(plan.photos)
            .arg(summary.found.photos.size())
            .arg(plan.items.size())
            .arg(formatBytes(plan.bytes))
            .arg(fetchedBefore(summary.found, plan));
    lines << numbers;
    if (summary.outcome && !plan.items.empty())
        lines << QStringLiteral("%1 files are copied and compared.").arg(summary.outcome->files);
    if (summary.removal)
        lines << QStringLiteral("%1 photos and videos are deleted from the phone (%2 files).")
                     .arg(summary.removal->photos)
                     .arg(summary.removal->files);
    return lines;
}

} // namespace tessary
