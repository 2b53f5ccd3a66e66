#pragma once

#include "app/updates/UpdateInfo.h"
#include "platform/http/HttpClient.h"
#include "platform/settings/SettingsStore.h"

#include <QObject>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

namespace tessary {

/// Where updates are announced, and how this program looks from there.
struct UpdateSource {
    QUrl endpoint;          ///< the server; the manifest is at /tessary/version.json
    QUrl homepage;          ///< of the product
    QString currentVersion; ///< of this program

    /// Those that the program was built with.
    [[nodiscard]] static UpdateSource builtIn();
};

/// Looks for a newer version, and keeps what came of it for the windows. Lives on the main thread;
/// the server is asked in the background.
class UpdateCheckerService : public QObject {
    Q_OBJECT

public:
    static constexpr QLatin1StringView skippedVersionKey{"Tessary_SkippedVersion"};
    static constexpr QLatin1StringView autoCheckKey{"Tessary_AutoCheckUpdates"};

    /// `openAddress` shows a page in the user's browser.
    UpdateCheckerService(std::shared_ptr<HttpClient> http, std::shared_ptr<SettingsStore> store,
                         std::function<void(const QUrl&)> openAddress,
                         UpdateSource source = UpdateSource::builtIn());

    [[nodiscard]] const std::optional<UpdateInfo>& availableUpdate() const {
        return availableUpdate_;
    }
    [[nodiscard]] bool isChecking() const {
        return isChecking_;
    }
    [[nodiscard]] bool showUpToDateAlert() const {
        return showUpToDateAlert_;
    }
    /// Why the user's last check failed.
    [[nodiscard]] const std::optional<Error>& checkFailure() const {
        return checkFailure_;
    }
    [[nodiscard]] const QString& currentVersion() const {
        return source_.currentVersion;
    }

    /// Whether this program knows whom to ask for updates, and a page of the product.
    [[nodiscard]] bool canCheck() const;
    [[nodiscard]] bool hasHomepage() const;

    /// Asks the server. Only a check that the user started tells that nothing was found or that it
    /// failed; one that is under way already is turned into such a check.
    void checkForUpdates(bool isUserInitiated);
    /// The silent check, where it can be made and unless the user has switched it off.
    void checkAtStart();

    /// On until the user switches it off. Governs only checkAtStart().
    [[nodiscard]] bool checksAutomatically() const;
    void setChecksAutomatically(bool on);

    /// Does not offer this version again, unless the user asks.
    void skipVersion(const QString& version);
    /// Puts the offer, or the notice, away until the next check.
    void dismissUpdate();
    void dismissUpToDateAlert();
    void dismissError();

    /// Shows a page of the product: this one when it is a safe address, else the homepage where
    /// there is one.
    void openHomepage(const QString& url = QString());

Q_SIGNALS:
    void stateChanged();

private:
    void finish(const std::optional<UpdateInfo>& newest, const std::optional<Error>& failure);

    std::shared_ptr<HttpClient> http_;
    std::shared_ptr<SettingsStore> store_;
    std::function<void(const QUrl&)> openAddress_;
    const UpdateSource source_;

    std::optional<UpdateInfo> availableUpdate_;
    bool isChecking_ = false;
    bool isUserInitiated_ = false;
    bool showUpToDateAlert_ = false;
    std::optional<Error> checkFailure_;
};

} // namespace tessary
