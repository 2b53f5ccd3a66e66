#include "app/copies/CopyReopening.h"

#include "transfer/local/LocalFileSystem.h"

namespace tessary {

namespace {

using namespace Qt::StringLiterals;

const QLatin1StringView local{"local:"};

std::shared_ptr<PhoneFileSystem> openPhone(const QString& identity, const QString& appName,
                                           const std::vector<DeviceInfo>& attached,
                                           PhoneFileSystems& phones) {
    for (const DeviceInfo& device : attached) {
        if (!device.isDataAccessible())
            continue;
        std::shared_ptr<PhoneFileSystem> files;
        if (device.platform == DevicePlatform::iOS) {
            const QString phone = u"ios:%1:"_s.arg(device.udid);
            if (identity.startsWith(phone)) {
                const QString bundle = identity.mid(phone.size());
                const QString name = appName.isEmpty() ? bundle : appName; // of an older record
                files = phones.openApp(device, {bundle, name, true, false});
            }
        } else {
            files = phones.open(device);
        }
        if (files && files->identity() == identity)
            return files;
    }
    return nullptr;
}

} // namespace

std::optional<CopyEnds> reopen(const CopyJob& job, const std::vector<DeviceInfo>& attached,
                               PhoneFileSystems& phones) {
    const auto open = [&](const QString& identity, const QString& appName,
                          LocalLinks links) -> std::shared_ptr<PhoneFileSystem> {
        if (identity.startsWith(local))
            return std::make_shared<LocalFileSystem>(identity.mid(local.size()), links);
        return openPhone(identity, appName, attached, phones);
    };
    CopyEnds ends{open(job.source, job.sourceApp, LocalLinks::filesFollowed),
                  open(job.target, job.targetApp, LocalLinks::reported)};
    return ends.from && ends.to ? std::optional(std::move(ends)) : std::nullopt;
}

} // namespace tessary
