#pragma once

#include "ios/files/AFCFileSystem.h"
#include "support/PluggedIPhone.h"

#include <QStringList>

#include <algorithm>

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
        QStringList found;
        for (const FileItem& item : listAll(files, folder, {}).items)
            found << item.name;
        found.sort();
        return found;
    }
    /// Writes a file by the file system, from memory.
    FileItem put(const NewFile& file, const QByteArray& content, const Call& call = {}) {
        return files.write(
            file, sourceOf(content), [this](qint64 done) { progress.push_back(done); }, call);
    }
    /// A source of these bytes; `drawn` is told how many of them were.
    [[nodiscard]] static ByteSource sourceOf(const QByteArray& content,
                                             std::function<void(qint64)> drawn = {}) {
        return [content, drawn = std::move(drawn),
                at = qsizetype{0}](std::span<std::byte> room) mutable {
            const auto count = std::min(static_cast<qsizetype>(room.size()), content.size() - at);
            std::copy_n(content.constData() + at, count, reinterpret_cast<char*>(room.data()));
            at += count;
            if (drawn)
                drawn(at);
            return static_cast<std::size_t>(count);
        };
    }
    [[nodiscard]] QByteArray get(const QString& path, ByteRange range = {}, const Call& call = {}) {
        QByteArray content;
        const qint64 count = files.read(
            item(path), range,
            [&](ByteView bytes) {
                content.append(reinterpret_cast<const char*>(bytes.data()),
                               static_cast<qsizetype>(bytes.size()));
            },
            call);
        return count == content.size() ? content : QByteArray("a wrong count");
    }

    std::shared_ptr<PhoneQueue> queue;
    AFCFileSystem files;
    std::vector<qint64> progress; ///< of the files that were put
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
