#pragma once

#include "ios/files/AFCFileSystem.h"
#include "support/FileBytes.h"
#include "support/PluggedIPhone.h"

#include <QStringList>

namespace tessary {

/// The file system of the app "notes" on a virtual iPhone that is plugged in; of its media folder
/// when `isMedia`.
class IPhoneFiles : public PluggedIPhone {
public:
    explicit IPhoneFiles(const VirtualIPhoneConfig& wishes = {}, bool isMedia = false,
                         SerialQueue::Patience patience = {})
        : PluggedIPhone(wishes),
          queue(std::make_shared<PhoneQueue>(std::chrono::milliseconds(300))),
          files(identity(), isMedia ? std::nullopt : std::optional(notes()), queue, patience) {}

    [[nodiscard]] PhoneIdentity identity() const {
        PhoneIdentity identity;
        identity.udid = udid();
        identity.platform = DevicePlatform::iOS;
        identity.name = QStringLiteral("Ann's iPhone");
        return identity;
    }
    [[nodiscard]] static AppInfo notes() {
        return {bundleId, QStringLiteral("Notes"), true, false};
    }
    [[nodiscard]] FileItem item(const QString& path) {
        return require(files, path, {});
    }
    [[nodiscard]] QStringList names(const QString& folder) {
        QStringList found = namesOf(listAll(files, folder, {}).items);
        found.sort();
        return found;
    }
    /// Writes a file by the file system, from memory.
    FileItem put(const NewFile& file, const QByteArray& content, const Call& call = {}) {
        return files.write(file, sourceOf(content), {}, call);
    }
    [[nodiscard]] QByteArray get(const QString& path) {
        return readBytes(files, item(path));
    }

    std::shared_ptr<PhoneQueue> queue;
    AFCFileSystem files;
};

/// The log text of the Error that `call` ends with; "nothing was thrown" when there is none.
template <typename Work>
[[nodiscard]] std::string errorOf(const Work& call) {
    try {
        call();
    } catch (const Error& error) {
        return error.what();
    }
    return "nothing was thrown";
}

} // namespace tessary
