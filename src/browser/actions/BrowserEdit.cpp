#include "browser/actions/BrowserEdit.h"

#include "base/threads/CancellationError.h"
#include "phone/PhoneError.h"
#include "phone/PhoneQueue.h"

#include <QCoreApplication>
#include <QSet>

namespace tessary {

namespace {

constexpr std::size_t namedFailures = 3;

} // namespace

BrowserEditReport editEach(PhoneFileSystem& files, const std::vector<FileItem>& items,
                           BrowserProblem::What what, const EditAction& action,
                           const std::function<void(int)>& progress, const std::stop_token& stop) {
    BrowserEditReport report;
    const auto queue = files.queue();
    const auto job = queue ? std::optional(queue->beginJob()) : std::nullopt;
    BrowserProblem problem{what, items.front().name, 0, static_cast<int>(items.size()), {}};
    for (std::size_t i = 0; i < items.size() && !stop.stop_requested(); ++i) {
        try {
            action(files, items[i], stop);
            report.donePaths << items[i].path;
        } catch (const CancellationError&) {
            break;
        } catch (const Error& error) {
            ++problem.failed;
            if (error.is(PhoneError::notFound) || error.is(PhoneError::notAsCopied))
                report.gonePaths << items[i].path;
            if (problem.failures.size() < namedFailures)
                problem.failures.push_back({items[i].name, error});
            if (endsEverything(error)) {
                report.isDeviceLost = isDeviceLost(error);
                problem.failed += static_cast<int>(items.size() - i) - 1;
                break;
            }
        }
        progress(static_cast<int>(i) + 1);
    }
    report.isStopped = stop.stop_requested();
    if (problem.failed > 0) {
        problem.name = problem.failures.front().name;
        report.problem = std::move(problem);
    }
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
