#pragma once

#include "base/values/Bytes.h"
#include "ios/helper/IPhoneHelper.h"

#include <QDateTime>

#include <span>

namespace tessary {

class AFCLinkFile;

/// Files of an iPhone, an app's container or the media folder, by way of a helper that has them
/// open: each call is one request of the AFC protocol. Paths are the device's own. Calls block, for
/// the helper's patience at most, and are made on one thread; only isLost() and end() may come from
/// any.
///
/// A refused request throws Error: what it means (PhoneError) about the path below
/// the working root, over the device's AFCStatus. Once the link has failed every call fails.
class AFCLink : private IPhoneHelper {
public:
    /// Starts the helper and opens the container of `bundleId`; an empty one means the media
    /// folder. Errors as lockdown's and house arrest's; CancellationError when `stop` asks
    /// meanwhile.
    AFCLink(const QString& udid, const QString& bundleId, const IPhoneHelper::Limits& limits,
            const std::stop_token& stop);

    using IPhoneHelper::content;
    using IPhoneHelper::end;
    using IPhoneHelper::isLost;
    using IPhoneHelper::processId;

    /// A path below the working root as the device has it: written out, so that a folder called
    /// like the root is not taken for it.
    [[nodiscard]] QString inContainer(const QString& path) const;
    /// Whether a request was made since the last beginAction() that may have changed something on
    /// the device.
    [[nodiscard]] bool hasTouched() const {
        return hasTouched_;
    }
    void beginAction() {
        hasTouched_ = false;
    }

    /// Names in the order of the device, without "." and "..", as the bytes that came, which need
    /// not be UTF-8. Some of them when the link broke off meanwhile: see requireLink().
    [[nodiscard]] std::vector<QByteArray> readNames(const QString& path);
    /// No value when nothing is there; any other refusal is thrown.
    [[nodiscard]] std::optional<AFCFileInfo> findInfo(const QString& path);
    /// The same of several names in a folder, by one message to the helper: a row for each.
    [[nodiscard]] std::vector<AFCLookup> findInfos(const QString& folder, const QStringList& names);
    void makeDirectory(const QString& path);
    void removePath(const QString& path);
    void renamePath(const QString& from, const QString& to);
    void setModifiedDate(const QString& path, const QDateTime& date);
    /// One file is open at a time. It must not outlive the link.
    [[nodiscard]] std::unique_ptr<AFCLinkFile> openFile(const QString& path, AFCFileMode mode);
    /// Bytes that are free on the device; no value when it does not tell.
    [[nodiscard]] std::optional<std::uint64_t> freeBytes();
    [[nodiscard]] IPhoneFacts facts();

    /// Throws unless the device still answers. The library takes an answer that was cut short for a
    /// whole one: only what another answer followed is known to have come in full.
    void requireLink() {
        (void)freeBytes();
    }

private:
    friend class AFCLinkFile;

    /// Makes one request by way of the helper.
    template <typename Result, typename... Values>
    Result ask(HelperOperation operation, const Values&... arguments);
    template <typename... Values>
    void request(HelperOperation operation, const Values&... arguments);

    /// "/Documents" when the whole container was opened, "/" when it is the documents themselves.
    QString workingRootPath_;
    bool hasTouched_ = false;
};

/// An open file on the device, closed when it goes.
class AFCLinkFile {
public:
    explicit AFCLinkFile(AFCLink& link) : link_(link) {}
    ~AFCLinkFile();
    AFCLinkFile(const AFCLinkFile&) = delete;
    AFCLinkFile& operator=(const AFCLinkFile&) = delete;

    /// Bytes read into the front of `buffer`, a part of AFCLink::content(); 0 at the file's end.
    [[nodiscard]] std::size_t read(std::span<std::byte> buffer);
    /// Bytes that the device has taken of a part of AFCLink::content().
    [[nodiscard]] std::size_t write(ByteView bytes);
    /// Reading and writing go on from this offset.
    void seek(qint64 offset);
    /// Throws what the device says when the file is closed. Nothing once it is closed.
    void close();

private:
    [[nodiscard]] std::size_t move(HelperOperation operation, ByteView bytes);

    AFCLink& link_;
    bool isOpen_ = true;
};

} // namespace tessary
