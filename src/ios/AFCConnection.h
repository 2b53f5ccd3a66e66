#pragma once

#include "base/values/Bytes.h"
#include "ios/AFCFileInfo.h"
#include "ios/Handles.h"
#include "ios/LockdownSession.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>

namespace tessary {

/// A status as the library hands it on: any number that a device sends, and not only those that
/// its enumeration has.
using AFCStatus = std::int32_t;

/// The container of one app, opened through house arrest: each call is one request of the AFC
/// protocol. Paths are the device's own. Calls block, for 30 seconds at most on a silent link,
/// and are made on one thread; only isLost() and markLost() may come from any.
///
/// A refused request throws TessaryError::afcError with the device's status. Once the link has
/// failed, every call fails at once with `serviceNotConnected`.
class AFCConnection {
public:
    /// Opens the container of `bundleId` with "VendDocuments", else with "VendContainer". Throws
    /// TessaryError::houseArrestFailed or ::afcError. `beat` is called after each request.
    AFCConnection(std::unique_ptr<LockdownSession> session, const QString& bundleId,
                  std::function<void()> beat);

    /// "/Documents" when the whole container was opened, "/" when it is the documents themselves.
    [[nodiscard]] const QString& workingRootPath() const {
        return workingRootPath_;
    }
    /// The most bytes that one write may have: a network link takes less at a time than a cable.
    [[nodiscard]] std::size_t writeLimit() const {
        return writeLimit_;
    }
    [[nodiscard]] bool isLost() const {
        return isLost_;
    }
    void markLost() {
        isLost_ = true;
    }

    /// Names in the order of the device, without "." and "..". Some of them when the link broke off
    /// meanwhile: see requireLink().
    [[nodiscard]] QStringList readDirectory(const QString& path);
    /// No value when the device refuses to tell; throws when the link has failed.
    [[nodiscard]] std::optional<AFCFileInfo> fileInfo(const QString& path);
    /// Throws unless the device still answers. The library takes an answer that was cut short for a
    /// whole one: only what another answer followed is known to have come in full.
    void requireLink();
    void makeDirectory(const QString& path);
    void removePath(const QString& path);
    void renamePath(const QString& from, const QString& to);
    void setModifiedDate(const QString& path, const QDateTime& date);

private:
    friend class AFCFile;

    [[nodiscard]] HouseArrestHandle openHouseArrest(const QString& bundleId);
    void openClient();
    /// Makes one request; its status.
    template <typename Request>
    [[nodiscard]] AFCStatus ask(const Request& request);
    /// The same, where everything but success is thrown.
    template <typename Request>
    void require(const Request& request);

    const std::function<void()> beat_;
    QString workingRootPath_{QLatin1Char('/')};
    std::size_t writeLimit_ = 0;
    std::atomic<bool> isLost_ = false;
    // Freed in the reverse order.
    std::unique_ptr<LockdownSession> session_;
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
    /// Bytes that the device has taken. At most AFCConnection::writeLimit() at a time.
    [[nodiscard]] std::size_t write(ByteView bytes);
    /// Throws what the device says when the file is closed. Nothing once it is closed.
    void close();

private:
    AFCConnection& connection_;
    std::uint64_t handle_ = 0;
    bool isOpen_ = false;
};

} // namespace tessary
