#include "ios/AppLister.h"

#include "base/text/NameOrder.h"
#include "ios/IPhoneError.h"
#include "ios/PlistValues.h"
#include "phone/PhoneError.h"

#include <algorithm>
#include <array>
#include <optional>

namespace tessary {

namespace {

constexpr std::array attributes{"CFBundleIdentifier", "CFBundleDisplayName", "CFBundleName",
                                "UIFileSharingEnabled"};

PlistHandle browseOptions() {
    PlistHandle options(plist_new_dict());
    plist_dict_set_item(options.get(), "ApplicationType", plist_new_string("User"));
    plist_t wanted = plist_new_array();
    for (const char* attribute : attributes)
        plist_array_append_item(wanted, plist_new_string(attribute));
    plist_dict_set_item(options.get(), "ReturnAttributes", wanted);
    return options;
}

std::optional<AppInfo> appFrom(plist_t entry) {
    const auto identifier = textAt(entry, "CFBundleIdentifier");
    if (!identifier || !booleanAt(entry, "UIFileSharingEnabled").value_or(false))
        return std::nullopt;
    QString name = textAt(entry, "CFBundleDisplayName").value_or(QString());
    if (name.isEmpty())
        name = textAt(entry, "CFBundleName").value_or(*identifier);
    return AppInfo{*identifier, name, true, false};
}

void sortByName(std::vector<AppInfo>& apps) {
    const QCollator collator = nameCollator();
    std::stable_sort(apps.begin(), apps.end(), [&](const AppInfo& a, const AppInfo& b) {
        return collator.compare(a.displayName, b.displayName) < 0;
    });
}

Error browseError(instproxy_error_t status) {
    return Error(status == INSTPROXY_E_CONN_FAILED || status == INSTPROXY_E_RECEIVE_TIMEOUT
                     ? PhoneError::brokenOff
                     : PhoneError::nonsense,
                 {}, Error(IPhoneError::installationProxy, {static_cast<int>(status)}));
}

} // namespace

std::vector<AppInfo> appsOf(Lockdown& session) {
    const LockdownService service = session.startService(INSTPROXY_SERVICE_NAME);
    instproxy_client_t handle = nullptr;
    instproxy_error_t status = instproxy_client_new(session.device(), service.get(), &handle);
    const InstallationProxyHandle client(handle);
    if (status != INSTPROXY_E_SUCCESS || !client)
        throw browseError(status);

    const PlistHandle options = browseOptions();
    plist_t answer = nullptr;
    status = instproxy_browse(client.get(), options.get(), &answer);
    const PlistHandle owner(answer);
    if (status != INSTPROXY_E_SUCCESS)
        throw browseError(status);
    return fileSharingAppsIn(answer);
}

std::vector<AppInfo> fileSharingAppsIn(plist_t answer) {
    std::vector<AppInfo> apps;
    if (answer == nullptr || plist_get_node_type(answer) != PLIST_ARRAY)
        return apps;
    for (std::uint32_t i = 0; i < plist_array_get_size(answer); ++i)
        if (auto app = appFrom(plist_array_get_item(answer, i)))
            apps.push_back(*std::move(app));
    sortByName(apps);
    return apps;
}

} // namespace tessary
