#include "browser/model/AppListViewModel.h"

#include "base/log/DiagnosticsLogger.h"
#include "base/threads/Background.h"
#include "base/threads/CancellationError.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tessary {

AppListViewModel::AppListViewModel(ListApps listApps, QObject* parent)
    : QObject(parent), listApps_(std::move(listApps)) {}

AppListViewModel::~AppListViewModel() {
    stop_.request_stop();
}

void AppListViewModel::setDevice(const DeviceInfo& device) {
    const bool isSame = device_ && device_->id() == device.id();
    const bool isSamePhone = device_ && device_->udid == device.udid;
    device_ = device;
    if (isSame)
        return;
    if (!isSamePhone) {
        apps_.clear();
        searchText_.clear();
    }
    reload();
}

void AppListViewModel::clear() {
    ++number_;
    stop_.request_stop();
    device_.reset();
    apps_.clear();
    problem_.reset();
    searchText_.clear();
    isLoading_ = false;
    Q_EMIT changed();
}

void AppListViewModel::reload() {
    if (!device_)
        return;
    stop_.request_stop();
    const std::uint64_t number = ++number_;
    isLoading_ = true;
    problem_.reset();
    stop_ = runInBackground(
        this,
        [listApps = listApps_, device = *device_](const std::stop_token& stop) {
            return listApps(device, stop);
        },
        [this, number](BackgroundResult<std::vector<AppInfo>> result) {
            if (number != number_)
                return;
            try {
                finish(result.take());
            } catch (const CancellationError&) {
                cancelLoading();
            } catch (const Error& error) {
                fail(BrowserProblem::of(BrowserProblem::What::apps, {}, error));
            }
        });
    Q_EMIT changed();
}

void AppListViewModel::cancelLoading() {
    if (!isLoading_)
        return;
    ++number_;
    stop_.request_stop();
    if (apps_.empty())
        fail(BrowserProblem{BrowserProblem::What::appsNotRead, {}, 1, 1, {}});
    else
        finish(apps_);
}

void AppListViewModel::finish(std::vector<AppInfo> apps) {
    isLoading_ = false;
    apps_ = std::move(apps);
    Q_EMIT changed();
}

void AppListViewModel::fail(const BrowserProblem& problem) {
    if (!problem.failures.empty())
        DiagnosticsLogger::shared().ui.error("AppListViewModel error: %s",
                                             {problem.failures.front().error.logText()});
    isLoading_ = false;
    problem_ = problem;
    Q_EMIT changed();
}

AppListState AppListViewModel::state() const {
    if (!device_)
        return AppListState::idle;
    if (isLoading_)
        return AppListState::loading;
    if (problem_)
        return AppListState::failed;
    if (apps_.empty())
        return AppListState::empty;
    return filteredApps().empty() ? AppListState::noMatch : AppListState::ready;
}

std::vector<AppInfo> AppListViewModel::filteredApps() const {
    const QString wanted = searchText_.trimmed();
    std::vector<AppInfo> shown;
    std::copy_if(apps_.begin(), apps_.end(), std::back_inserter(shown), [&](const AppInfo& app) {
        return app.displayName.contains(wanted, Qt::CaseInsensitive) ||
               app.bundleIdentifier.contains(wanted, Qt::CaseInsensitive);
    });
    return shown;
}

void AppListViewModel::setSearchText(const QString& text) {
    if (std::exchange(searchText_, text) != text)
        Q_EMIT changed();
}

} // namespace tessary
