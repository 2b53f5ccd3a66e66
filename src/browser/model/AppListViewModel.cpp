#include "browser/model/AppListViewModel.h"

#include "base/log/DiagnosticsLogger.h"
#include "base/threads/Background.h"
#include "base/threads/CancellationError.h"
#include "ios/helper/IPhoneInfo.h"
#include "phone/BusyPhones.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tessary {

namespace {

std::vector<AppInfo> askPhone(const DeviceInfo& device, const std::stop_token& stop) {
    const BusyPhones::Mark mark(BusyPhones::shared(), device.udid);
    return iphoneApps(device.udid, stop);
}

} // namespace

AppListViewModel::AppListViewModel(ListApps listApps, QObject* parent)
    : QObject(parent), listApps_(listApps ? std::move(listApps) : askPhone) {}

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
    error_.reset();
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
    error_.reset();
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
            } catch (const std::exception& error) {
                fail(adviceFor(error));
            }
        });
    Q_EMIT changed();
}

void AppListViewModel::cancelLoading() {
    if (!isLoading_)
        return;
    ++number_;
    stop_.request_stop();
    fail({QStringLiteral("The apps were not read."),
          QStringLiteral("Refresh the list to try again.")});
}

void AppListViewModel::finish(std::vector<AppInfo> apps) {
    isLoading_ = false;
    apps_ = std::move(apps);
    Q_EMIT changed();
}

void AppListViewModel::fail(const ErrorAdvice& error) {
    DiagnosticsLogger::shared().ui.error("AppListViewModel error: %s", {error.message});
    isLoading_ = false;
    error_ = error;
    Q_EMIT changed();
}

AppListState AppListViewModel::state() const {
    if (!device_)
        return AppListState::idle;
    if (isLoading_)
        return AppListState::loading;
    if (error_)
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
