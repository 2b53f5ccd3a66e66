#pragma once

#include "base/local/LocalSource.h"
#include "mtp/files/MTPSession.h"
#include "phone/DeviceLane.h"
#include "phone/TransferOutcome.h"

#include <QHash>
#include <QString>

#include <stop_token>

namespace tessary {

class MTPUploadMemory;

/// Copies local files and folders to a device within one session. Each folder on the device is
/// listed at most once. A file that is there already is replaced without ever being without
/// either version: the new one is sent under a temporary name, the old one deleted, the new one
/// renamed; a device that cannot rename refuses the copy instead. What a failed or cancelled
/// upload left on the device is removed.
///
/// Calls throw TessaryError, MTPTransportError or CancellationError.
class MTPUpload {
public:
    /// A folder on the device and what it held when an upload first looked.
    struct Folder {
        MTPLocation location;
        MTPFolderContents contents;
        std::uint64_t edits = 0; ///< DeviceLane::edits() when it was looked at
    };

    MTPUpload(MTPSession& session, DeviceLane::Turn& turn, std::stop_token stop);

    /// Copies one file into a folder of the device, under the source's name.
    void file(const LocalSource& source, const MTPLocation& folder, std::uint32_t folderHandle,
              const FileProgressCallback& progress);

    /// The same for one of several files, with what is remembered of the folder from the last one.
    /// A file of that name is an error unless `mayReplace`.
    void file(const LocalSource& source, const MTPLocation& folder, std::uint32_t folderHandle,
              bool mayReplace, MTPUploadMemory& memory, const FileProgressCallback& progress);

    /// Copies a local folder, as a folder of the source's name, into a folder of the device.
    /// Folders that are there already are filled up. Files that cannot be read here, or that the
    /// device refuses, are left out and named in the outcome; a full storage ends the copy.
    [[nodiscard]] TransferOutcome folder(const LocalSource& source, const MTPLocation& parent,
                                         std::uint32_t parentHandle,
                                         const TransferProgressCallback& progress);

private:
    Folder open(const MTPLocation& location, std::uint32_t handle);
    Folder makeFolder(Folder& parent, const QString& name);
    std::uint32_t send(const QString& localFile, const QString& name, Folder& folder,
                       const FileProgressCallback& progress);
    [[nodiscard]] std::uint32_t replace(const QString& localFile, const MTPObjectInfo& old,
                                        Folder& folder, const FileProgressCallback& progress);
    [[nodiscard]] std::uint32_t transfer(const QString& localFile, const QString& name,
                                         const Folder& folder,
                                         const FileProgressCallback& progress);
    [[nodiscard]] std::optional<MTPObjectInfo> findNew(const Folder& folder, const QString& name,
                                                       std::uint32_t announced);
    void removeLeftover(const Folder& folder, const QString& name, std::uint32_t announced,
                        qint64 size) noexcept;
    void removeSent(const Folder& folder, const QString& name, std::uint32_t handle) noexcept;
    void refresh(Folder& folder);

    MTPSession& session_;
    DeviceLane::Turn& turn_;
    const std::stop_token stop_;
};

/// What is known of the folders of one device that files were sent to one by one, so that each is
/// listed once only. Used by one thread. Others may change the folders meanwhile: keep it for one
/// run, no longer.
class MTPUploadMemory {
public:
    /// The file that was sent last, as the device described it right afterwards. No value when the
    /// handle that it announced was none.
    [[nodiscard]] const std::optional<MTPObjectInfo>& lastSent() const {
        return lastSent_;
    }

private:
    friend class MTPUpload;

    std::optional<MTPObjectInfo> lastSent_;
    QHash<QString, MTPUpload::Folder> folders_; ///< by the path as the user addresses it
};

} // namespace tessary
