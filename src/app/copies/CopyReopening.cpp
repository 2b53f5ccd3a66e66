#include "app/copies/CopyReopening.h"

#include "transfer/local/LocalFileSystem.h"

namespace tessary {

namespace {

using namespace Qt::StringLiterals;

const QLatin1StringView local{"local:"};

/// An app as far as its copy tells of it: "Notes (Ann's iPhone)".
AppInfo appOf(const QString& bundle, const QString& shown) {
    const qsizetype end = shown.lastIndexOf(u" ("_s);
    return {bundle, end > 0 ? shown.left(end) : bundle, true, false};
}

std::shared_ptr<PhoneFileSystem> openPhone(const QString& identity, const QString& shown,
                                           const std::vector<DeviceInfo>& attached,
                                           PhoneFileSystems& phones) {
    for (const DeviceInfo& device : attached) {
        if (!device.isDataAccessible())
            continue;
        std::shared_ptr<PhoneFileSystem> files;
        if (device.platform == DevicePlatform::iOS) {
            const QString phone = u"ios:%1:"_s.arg(device.udid);
            if (identity.startsWith(phone))
                files = phones.openApp(device, appOf(identity.mid(phone.size()), shown));
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
    const auto open = [&](const QString& identity, const QString& shown,
                          LocalLinks links) -> std::shared_ptr<PhoneFileSystem> {
        if (identity.startsWith(local))
            return std::make_shared<LocalFileSystem>(identity.mid(local.size()), links);
        return openPhone(identity, shown, attached, phones);
    };
    const QString& from = job.sourcePhone.isEmpty() ? job.phone : job.sourcePhone;
    CopyEnds ends{open(job.source, from, LocalLinks::filesFollowed),
                  open(job.target, job.phone, LocalLinks::reported)};
    return ends.from && ends.to ? std::optional(std::move(ends)) : std::nullopt;
}

} // namespace tessary
