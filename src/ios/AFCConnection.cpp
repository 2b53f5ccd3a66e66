#include "ios/AFCConnection.h"

#include "base/log/DiagnosticsLogger.h"
#include "ios/AFCStatus.h"
#include "ios/IPhoneError.h"
#include "ios/PlistValues.h"
#include "phone/PhoneError.h"

#include <QSet>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace tessary {

namespace {

constexpr std::size_t mebibyte = std::size_t{1} << 20;
constexpr std::size_t networkLimit = std::size_t{64} << 10;

/// Above what a device that is awake takes, and below the library's own patience.
constexpr auto longWait = std::chrono::seconds(25);
constexpr QLatin1Char slash('/');

/// Whether the top is the documents themselves, and "/Documents" a folder that the user has in
/// them: a container has nothing of his at its top, and most phones keep that to themselves.
bool isDocumentsOf(AFCConnection& opened) {
    static const QSet<QByteArray> ofContainers{"Documents", "Library", "tmp", "StoreKit",
                                               "SystemData"};
    try {
        const std::vector<QByteArray> names = opened.readNames(QString(slash));
        return std::any_of(names.begin(), names.end(), [](const QByteArray& name) {
            return !ofContainers.contains(name) && !name.startsWith('.') &&
                   !name.startsWith("iTunes");
        });
    } catch (const Error& error) {
        const auto status = error.find<AFCStatus>();
        if (status != AFCStatus::permissionDenied && status != AFCStatus::objectNotFound)
            throw;
        return false;
    }
}

} // namespace

AFCConnection::AFCConnection(std::unique_ptr<Lockdown> session, const QString& bundleId)
    : session_(std::move(session)) {
    if (bundleId.isEmpty()) {
        openMedia();
    } else {
        houseArrest_ = openHouseArrest(bundleId);
        openContainer();
    }
    requestLimit_ = session_->usesNetwork() ? networkLimit : mebibyte;
}

HouseArrestHandle AFCConnection::openHouseArrest(const QString& bundleId) {
    std::optional<Error> refusal;
    // One connection takes one command.
    for (const char* command : {"VendDocuments", "VendContainer"}) {
        LockdownService service;
        try {
            service = session_->startService(HOUSE_ARREST_SERVICE_NAME);
        } catch (const Error& error) {
            refusal = error;
            continue;
        }
        house_arrest_client_t handle = nullptr;
        const auto status = house_arrest_client_new(session_->device(), service.get(), &handle);
        HouseArrestHandle client(handle);
        if (status != HOUSE_ARREST_E_SUCCESS || !client)
            continue;
        if (house_arrest_send_command(handle, command, bundleId.toUtf8().constData()) !=
            HOUSE_ARREST_E_SUCCESS)
            continue;
        plist_t result = nullptr;
        (void)house_arrest_get_result(handle, &result);
        const PlistHandle owner(result);
        if (!hasKey(result, "Error"))
            return client;
        const QString reason = textAt(result, "Error").value_or(QStringLiteral("Unknown"));
        DiagnosticsLogger::shared().afc.error("house_arrest %s failed for %s: %s",
                                              {QString::fromLatin1(command), bundleId, reason});
        refusal = houseArrestErrorOf(bundleId, reason);
    }
    if (!session_->isAttached())
        throw Error(PhoneError::unplugged);
    if (refusal)
        throw *refusal;
    throw Error(PhoneError::brokenOff, {},
                {IPhoneError::client, {QStringLiteral(HOUSE_ARREST_SERVICE_NAME)}});
}

void AFCConnection::openMedia() {
    const LockdownService service = session_->startService(AFC_SERVICE_NAME);
    afc_client_t handle = nullptr;
    const std::int32_t status = afc_client_new(session_->device(), service.get(), &handle);
    afc_.reset(handle);
    if (status != AFC_E_SUCCESS || !afc_)
        throw errorOf(status == AFC_E_SUCCESS ? AFC_E_MUX_ERROR : status, {});
}

void AFCConnection::openContainer() {
    afc_client_t handle = nullptr;
    const std::int32_t status =
        afc_client_new_from_house_arrest_client(houseArrest_.get(), &handle);
    afc_.reset(handle);
    if (status != AFC_E_SUCCESS || !afc_)
        throw errorOf(status == AFC_E_SUCCESS ? AFC_E_UNKNOWN_ERROR : status, {});
    char** texts = nullptr;
    const std::int32_t probe =
        ask([&](afc_client_t afc) { return afc_read_directory(afc, "/Documents", &texts); });
    const AFCTexts owner(texts);
    // Where the look itself was refused, nobody knows which folder would be opened.
    if (probe == AFC_E_OBJECT_NOT_FOUND) {
        (void)readNames(QString(slash)); // a top that is closed has documents, whatever was said
        return;
    }
    if (probe != AFC_E_SUCCESS)
        throw errorOf(probe, QString(slash));
    if (!isDocumentsOf(*this))
        workingRootPath_ = QStringLiteral("/Documents");
}

template <typename Request>
std::int32_t AFCConnection::ask(const Request& request) {
    if (isLost_)
        return AFC_E_SERVICE_NOT_CONNECTED;
    const auto begin = std::chrono::steady_clock::now();
    const std::int32_t status = request(afc_.get());
    lastWait_ = std::chrono::steady_clock::now() - begin;
    if (isLinkFailure(afcStatusFrom(status)))
        isLost_ = true;
    return status;
}

template <typename Request>
void AFCConnection::require(const QString& path, const Request& request) {
    const std::int32_t status = ask(request);
    if (status != AFC_E_SUCCESS)
        throw errorOf(status, path);
}

Error AFCConnection::errorOf(std::int32_t status, const QString& path) {
    QString shown = path;
    if (workingRootPath_ != slash && path.startsWith(workingRootPath_))
        shown = path == workingRootPath_ ? QString(slash) : path.mid(workingRootPath_.size());
    const Error error = phoneErrorOf(status, shown);
    const auto as = [&](PhoneError code) { return Error(code, {}, *error.cause()); };
    if (isLinkFailure(afcStatusFrom(status))) {
        if (lastWait_ >= longWait)
            return as(PhoneError::noAnswer);
        return session_->isAttached() ? error : as(PhoneError::unplugged);
    }
    // While it is locked a phone keeps much to itself: that is not the file's doing.
    if (error.is(PhoneError::accessDenied) && session_->isLocked())
        return as(PhoneError::locked);
    return error;
}

std::vector<QByteArray> AFCConnection::readNames(const QString& path) {
    char** texts = nullptr;
    const QByteArray name = path.toUtf8();
    const std::int32_t status =
        ask([&](afc_client_t afc) { return afc_read_directory(afc, name.constData(), &texts); });
    const AFCTexts owner(texts);
    if (status != AFC_E_SUCCESS)
        throw errorOf(status, path);
    std::vector<QByteArray> names;
    for (char** text = texts; text != nullptr && *text != nullptr; ++text) {
        QByteArray entry(*text);
        if (entry != "." && entry != "..")
            names.push_back(std::move(entry));
    }
    return names;
}

std::optional<AFCFileInfo> AFCConnection::findInfo(const QString& path) {
    char** texts = nullptr;
    const QByteArray name = path.toUtf8();
    const std::int32_t status = ask([&](afc_client_t afc) {
        const afc_error_t answer = afc_get_file_info(afc, name.constData(), &texts);
        // Nothing at all is told of no file: the answer was cut short.
        return answer == AFC_E_SUCCESS && texts == nullptr ? AFC_E_NOT_ENOUGH_DATA : answer;
    });
    const AFCTexts owner(texts);
    if (status == AFC_E_OBJECT_NOT_FOUND)
        return std::nullopt;
    if (status != AFC_E_SUCCESS)
        throw errorOf(status, path);
    return parseFileInfo(texts);
}

std::optional<std::uint64_t> AFCConnection::freeBytes() {
    char* value = nullptr;
    const std::int32_t status =
        ask([&](afc_client_t afc) { return afc_get_device_info_key(afc, "FSFreeBytes", &value); });
    const LibraryText owner(value);
    if (isLost_)
        throw errorOf(status, {});
    bool isNumber = false;
    const qulonglong bytes = QByteArray(value).toULongLong(&isNumber);
    return status == AFC_E_SUCCESS && isNumber ? std::optional<std::uint64_t>(bytes) : std::nullopt;
}

void AFCConnection::makeDirectory(const QString& path) {
    require(path, [name = path.toUtf8()](afc_client_t afc) {
        return afc_make_directory(afc, name.constData());
    });
}

void AFCConnection::removePath(const QString& path) {
    require(path, [name = path.toUtf8()](afc_client_t afc) {
        return afc_remove_path(afc, name.constData());
    });
}

void AFCConnection::renamePath(const QString& from, const QString& to) {
    require(from, [source = from.toUtf8(), target = to.toUtf8()](afc_client_t afc) {
        return afc_rename_path(afc, source.constData(), target.constData());
    });
}

void AFCConnection::setModifiedDate(const QString& path, const QDateTime& date) {
    constexpr std::uint64_t nanosecondsPerMillisecond = 1'000'000;
    const auto milliseconds =
        static_cast<std::uint64_t>(std::max<qint64>(date.toMSecsSinceEpoch(), 0));
    require(path, [&, name = path.toUtf8()](afc_client_t afc) {
        return afc_set_file_time(afc, name.constData(), milliseconds * nanosecondsPerMillisecond);
    });
}

AFCFile::AFCFile(AFCConnection& connection, const QString& path, afc_file_mode_t mode)
    : connection_(connection), path_(path) {
    connection_.require(path_, [&, name = path.toUtf8()](afc_client_t afc) {
        return afc_file_open(afc, name.constData(), mode, &handle_);
    });
    isOpen_ = true;
}

AFCFile::~AFCFile() {
    if (isOpen_)
        (void)connection_.ask([this](afc_client_t afc) { return afc_file_close(afc, handle_); });
}

std::size_t AFCFile::read(std::span<std::byte> buffer) {
    std::uint32_t count = 0;
    connection_.require(path_, [&](afc_client_t afc) {
        return afc_file_read(afc, handle_, reinterpret_cast<char*>(buffer.data()),
                             static_cast<std::uint32_t>(buffer.size()), &count);
    });
    // The library counts what the device sent, though it keeps only what was asked for.
    if (count > buffer.size())
        throw connection_.errorOf(AFC_E_TOO_MUCH_DATA, path_);
    return count;
}

void AFCFile::seek(qint64 offset) {
    connection_.require(
        path_, [&](afc_client_t afc) { return afc_file_seek(afc, handle_, offset, SEEK_SET); });
}

std::size_t AFCFile::write(ByteView bytes) {
    std::uint32_t count = 0;
    connection_.require(path_, [&](afc_client_t afc) {
        return afc_file_write(afc, handle_, reinterpret_cast<const char*>(bytes.data()),
                              static_cast<std::uint32_t>(bytes.size()), &count);
    });
    return count;
}

void AFCFile::close() {
    if (!std::exchange(isOpen_, false))
        return;
    connection_.require(path_, [this](afc_client_t afc) { return afc_file_close(afc, handle_); });
}

} // namespace tessary
