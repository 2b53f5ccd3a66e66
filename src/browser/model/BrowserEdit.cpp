#include "browser/model/BrowserEdit.h"

#include "base/text/Printable.h"
#include "base/threads/CancellationError.h"
#include "browser/model/BrowserLoad.h"
#include "phone/DevicePath.h"

#include <QCoreApplication>
#include <QSet>

#include <algorithm>

namespace tessary {

namespace {

constexpr std::size_t namedFailures = 3;

struct EditFailure {
    QString name;
    ErrorAdvice words;
};

ErrorAdvice reportOf(const std::vector<EditFailure>& failures, std::size_t failedInAll,
                     std::size_t total, const QString& verb) {
    const EditFailure& first = failures.front();
    if (total == 1)
        return {QStringLiteral("Failed to %1 %2: %3")
                    .arg(verb, printable(first.name), first.words.message),
                first.words.advice};
    QStringList named;
    for (std::size_t i = 0; i < std::min(failures.size(), namedFailures); ++i)
        named << QStringLiteral("%1 (%2)").arg(printable(failures[i].name),
                                               failures[i].words.message);
    QString message = QStringLiteral("Failed to %1 %2 of %3 items: %4")
                          .arg(verb)
                          .arg(failedInAll)
                          .arg(total)
                          .arg(named.join(QLatin1StringView(", ")));
    if (failedInAll > static_cast<std::size_t>(named.size()))
        message += QStringLiteral(" and %1 more")
                       .arg(failedInAll - static_cast<std::size_t>(named.size()));
    return {message, first.words.advice};
}

} // namespace

BrowserEditReport
editEach(FileAccess& files, const std::vector<FileItem>& items, const QString& verb,
         const std::function<void(const FileItem&, const std::stop_token&)>& action,
         const std::function<void(int)>& progress, const std::stop_token& stop) {
    BrowserEditReport report;
    const auto hold = files.hold();
    std::vector<EditFailure> failures;
    std::size_t failedInAll = 0;
    for (std::size_t i = 0; i < items.size() && !stop.stop_requested(); ++i) {
        try {
            action(items[i], stop);
            report.donePaths << items[i].path;
        } catch (const CancellationError&) {
            break;
        } catch (const std::exception& error) {
            failures.push_back({items[i].name, adviceFor(error, files)});
            ++failedInAll;
            if (isDeviceLost(error)) {
                report.isDeviceLost = true;
                failedInAll = items.size() - i + failures.size() - 1;
                break;
            }
        }
        progress(static_cast<int>(i) + 1);
    }
    if (!failures.empty())
        report.error = reportOf(failures, failedInAll, items.size(), verb);
    return report;
}

QString freeFolderName(const std::vector<FileItem>& items) {
    QSet<QString> taken;
    for (const FileItem& item : items)
        taken.insert(item.name.toCaseFolded());
    QString name = QCoreApplication::translate("BrowserEdit", "New Folder");
    for (int n = 2; taken.contains(name.toCaseFolded()); ++n)
        name = QCoreApplication::translate("BrowserEdit", "New Folder %1").arg(n);
    return name;
}

} // namespace tessary
