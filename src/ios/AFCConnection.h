#pragma once

#include "base/values/Bytes.h"
#include "base/values/Error.h"
#include "ios/AFCFileInfo.h"
#include "ios/Handles.h"
#include "ios/Lockdown.h"

#include <QDateTime>
#include <QString>

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace tessary {

/// Files of a device, opened through house arrest or the media service: each call is one request of
/// the AFC protocol. Paths are the device's own. Calls block, for 30 seconds at most on a silent
/// link; one caller at a time.
///
/// A refused request throws Error: what it means (PhoneError) about the path below
/// workingRootPath(), over the device's AFCStatus. Once the link has failed, every call fails at
/// once.
class AFCConnection {
public:
    /// Opens the container of `bundleId` with "VendDocuments", else with "VendContainer"; an empty
    /// one means the media folder. Throws as the services do.
    AFCConnection(std::unique_ptr<Lockdown> session, const QString& bundleId);

    /// "/Documents" when the whole container was opened, "/" when it is the documents themselves.
    [[nodiscard]] const QString& workingRootPath() const {
        return workingRootPath_;
    }
    /// The most bytes of one read or write: a network link takes less at a time than a cable.
    [[nodiscard]] std::size_t requestLimit() const {
        return requestLimit_;
    }
    [[nodiscard]] Lockdown& lockdown() {
        return *session_;
    }
    [[nodiscard]] bool isLost() const {
        return isLost_;
    }

    /// Names in the order of the device, without "." and "..", as the bytes that came: they need
    /// not be UTF-8. Some of them when the link broke off meanwhile: see AFCLink::requireLink().
    [[nodiscard]] std::vector<QByteArray> readNames(const QString& path);
    /// No value when nothing is there; any other refusal is thrown.
    [[nodiscard]] std::optional<AFCFileInfo> findInfo(const QString& path);
    void makeDirectory(const QString& path);
    void removePath(const QString& path);
    void renamePath(const QString& from, const QString& to);
    void setModifiedDate(const QString& path, const QDateTime& date);
    /// Bytes that are free on the device; no value when it does not tell.
    [[nodiscard]] std::optional<std::uint64_t> freeBytes();

private:
    friend class AFCFile;

    [[nodiscard]] HouseArrestHandle openHouseArrest(const QString& bundleId);
    void openMedia();
    void openContainer();
    /// Makes one request; its status.
    template <typename Request>
    [[nodiscard]] std::int32_t ask(const Request& request);
    /// The same, where everything but success is thrown as an error about `path`.
    template <typename Request>
    void require(const QString& path, const Request& request);
    /// What a status means, told more exactly where the phone as a whole has changed.
    [[nodiscard]] Error errorOf(std::int32_t status, const QString& path);

    QString workingRootPath_{QLatin1Char('/')};
    std::size_t requestLimit_ = 0;
    bool isLost_ = false;
    std::chrono::steady_clock::duration lastWait_{}; ///< of the last request, for its answer
    // Freed in the reverse order.
    std::unique_ptr<Lockdown> session_;
    HouseArrestHandle houseArrest_;
    AFCHandle afc_;
};

/// An open file on the device, closed when it goes.
class AFCFile {
public:
    AFCFile(AFCConnection& connection, const QString& path, afc_file_mode_t mode);
    ~AFCFile();
    AFCFile(const AFCFile&) = delete;
    AFCFile& operator=(const AFCFile&) = delete;

    /// Bytes read into the front of `buffer`; 0 at the end of the file.
    [[nodiscard]] std::size_t read(std::span<std::byte> buffer);
    /// Reading and writing go on from this offset.
    void seek(qint64 offset);
    /// Bytes that the device has taken. At most AFCConnection::requestLimit() at a time.
    [[nodiscard]] std::size_t write(ByteView bytes);
    /// Throws what the device says when the file is closed. Nothing once it is closed.
    void close();

private:
    AFCConnection& connection_;
    const QString path_;
    std::uint64_t handle_ = 0;
    bool isOpen_ = false;
};

} // namespace tessary
