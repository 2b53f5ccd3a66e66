#pragma once

#include "mtp/client/MTPSession.h"

#include <vector>

namespace tessary {

/// MTP transactions with one device. Every call is one transaction (an upload two, and an object
/// whose 32-bit size is full one more for its true size) and blocks. Used by one thread at a time.
/// There is no cache and no retry; failures are MTPFailure. Calls do not check whether a session is
/// open: the device does.
class MTPClient : private MTPSession {
public:
    using MTPSession::MTPSession;

    using MTPSession::asked;
    using MTPSession::closeSession;
    using MTPSession::openSession;
    using MTPSession::setEventReceiver;
    using MTPSession::setStop;
    using MTPSession::settleSoon;

    /// How often the device has answered so far, or content was taken from a source: a call since
    /// which this has not changed has done nothing, and may be made again.
    [[nodiscard]] std::uint64_t proceeded() const {
        return answered() + drawn_;
    }

    [[nodiscard]] MTPDeviceInfo getDeviceInfo();
    [[nodiscard]] std::vector<std::uint32_t> getStorageIDs();
    [[nodiscard]] MTPStorageInfo getStorageInfo(std::uint32_t storageID);
    /// Percent; no value when the device does not tell.
    [[nodiscard]] std::optional<int> getBatteryLevel();
    /// The children of a folder; `mtpRootHandle` stands for the root of the storage.
    [[nodiscard]] std::vector<std::uint32_t> getObjectHandles(std::uint32_t storageID,
                                                              std::uint32_t parentHandle);
    /// `true64BitSize` is filled when the 32-bit size is 0xFFFFFFFF and the device knows better.
    [[nodiscard]] MTPObjectInfo getObjectInfo(std::uint32_t handle);
    /// The size property of an object in bytes. No value when the device has no such property;
    /// after the first such answer it is not asked again.
    [[nodiscard]] std::optional<std::uint64_t> getObjectSize(std::uint32_t handle);

    /// All properties of what a folder holds, in one transaction: the bytes as they arrive, for
    /// MTPPropertyList. `folder` is 0 for the roots of all storages. Broken off as getObject.
    void getObjectPropList(std::uint32_t folder, const MTPDataSink& sink,
                           const MTPStreamOptions& options = {});
    /// The small picture of an object, encoded. Broken off as getObject.
    void getThumb(std::uint32_t handle, const MTPDataSink& sink,
                  const MTPStreamOptions& options = {});

    /// The object piece by piece, of any size. `options.expectedSize` is used when the container
    /// cannot tell the size. A transfer that is broken off (by the stop token, an exception of the
    /// sink, or a failure) leaves the session usable. Returns the number of bytes.
    std::uint64_t getObject(std::uint32_t handle, const MTPDataSink& sink,
                            const MTPStreamOptions& options = {});

    /// `length` bytes of an object from `offset` on, or fewer at its end: never asked for beyond
    /// it, where some devices hang. With GetPartialObject64 where `isWide`, else with
    /// GetPartialObject, for which `offset` fits 32 bits. Broken off as getObject.
    std::uint64_t getPartialObject(std::uint32_t handle, std::uint64_t offset, std::uint32_t length,
                                   bool isWide, const MTPDataSink& sink,
                                   const MTPStreamOptions& options = {});

    /// Sends a new object with all that `object` says of it: storage, parent, name, date of the
    /// last change; its content comes from a source of `size` bytes. The result is the handle that
    /// the device announced, or 0; devices disagree on its worth, so look the object up by listing
    /// its parent. An object that the device made for an upload that then failed stays there.
    /// Broken off as getObject.
    std::uint32_t sendObject(MTPObjectInfo object, const MTPDataSource& source, std::uint64_t size,
                             const MTPStreamOptions& options = {});

    // A file that is there, written to in place, as Android's extension has it: between beginEdit
    // and endEdit; the end of the session ends it too. Dates change with it.

    void beginEdit(std::uint32_t handle);
    /// `size` bytes from `source`, from an offset on that is not beyond the file's end. Broken off
    /// as getObject; what the device has then stays.
    void sendPartialObject(std::uint32_t handle, std::uint64_t offset, std::uint32_t size,
                           const MTPDataSource& source, const MTPStreamOptions& options = {});
    void endEdit(std::uint32_t handle);
    /// The date of an object's last change, where the device lets it be set.
    void setDateModified(std::uint32_t handle, const QDateTime& date);

    /// The result as that of sendObject().
    std::uint32_t createFolder(const QString& name, std::uint32_t parentHandle,
                               std::uint32_t storageID);

    void renameObject(std::uint32_t handle, const QString& newName);
    /// Moves an object into another folder; `parentHandle` 0 is the root of the storage here.
    void moveObject(std::uint32_t handle, std::uint32_t storageID, std::uint32_t parentHandle);
    void deleteObject(std::uint32_t handle);

private:
    template <typename Decode>
    [[nodiscard]] auto receiveRecord(const QString& failure, Decode decode);
    [[nodiscard]] std::optional<Bytes> receiveList(const QString& failure);
    void setProperty(std::uint32_t handle, MTPObjectProperty property, const QString& value);
    std::uint32_t sendObjectInfo(const MTPObjectInfo& info);
    [[nodiscard]] MTPDataSource draw(const MTPDataSource& source, std::uint64_t size,
                                     const std::stop_token& stop);

    std::uint64_t drawn_ = 0; ///< sources that something was taken from
    bool objectSizeSupported_ = true;
};

} // namespace tessary
