#pragma once

#include "browser/actions/BrowserProblem.h"
#include "phone/records/AppInfo.h"
#include "phone/records/DeviceInfo.h"

#include <QObject>

#include <functional>
#include <optional>
#include <stop_token>
#include <vector>

namespace tessary {

enum class AppListState {
    idle,    ///< no phone is chosen
    loading, ///< the phone is being asked; apps of an earlier answer stay
    ready,   ///< there are apps
    empty,   ///< no app shares files
    noMatch, ///< none fits the search text
    failed,  ///< the phone did not answer: see AppListViewModel::problem
};

/// The apps of one iPhone that share their files, for choosing one of them. Lives on the main
/// thread; the phone is asked in the background, and an answer that is no longer wanted is
/// dropped.
class AppListViewModel : public QObject {
    Q_OBJECT

public:
    /// Blocking; called off the main thread. Throws Error or CancellationError.
    using ListApps = std::function<std::vector<AppInfo>(const DeviceInfo&, const std::stop_token&)>;

    explicit AppListViewModel(ListApps listApps, QObject* parent = nullptr);
    /// Stops what is under way.
    ~AppListViewModel() override;

    /// Shows the apps of a phone. Newer facts about the phone shown are taken over without asking
    /// it again, unless it is plugged in anew.
    void setDevice(const DeviceInfo& device);
    /// No phone is chosen any more, or it is gone.
    void clear();
    /// Asks the phone again.
    void reload();
    /// Gives up the question under way. Apps of an earlier answer stay.
    void cancelLoading();

    [[nodiscard]] const std::optional<DeviceInfo>& device() const {
        return device_;
    }
    [[nodiscard]] AppListState state() const;
    [[nodiscard]] bool isLoading() const {
        return isLoading_;
    }
    /// The last failure.
    [[nodiscard]] const std::optional<BrowserProblem>& problem() const {
        return problem_;
    }
    /// All apps, by name.
    [[nodiscard]] const std::vector<AppInfo>& apps() const {
        return apps_;
    }
    /// The apps whose name or identifier contains the search text, case aside.
    [[nodiscard]] std::vector<AppInfo> filteredApps() const;
    [[nodiscard]] const QString& searchText() const {
        return searchText_;
    }
    void setSearchText(const QString& text);

Q_SIGNALS:
    /// Anything that is shown differs.
    void changed();

private:
    void finish(std::vector<AppInfo> apps);
    void fail(const BrowserProblem& problem);

    const ListApps listApps_;
    std::optional<DeviceInfo> device_;
    std::vector<AppInfo> apps_;
    std::optional<BrowserProblem> problem_;
    QString searchText_;
    bool isLoading_ = false;
    std::uint64_t number_ = 0; ///< answers to older questions are dropped
    std::stop_source stop_{std::nostopstate};
};

} // namespace tessary
