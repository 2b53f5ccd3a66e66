#include "ios/AFCConnection.h"

#include "base/log/DiagnosticsLogger.h"
#include "base/values/TessaryError.h"
#include "ios/PlistValues.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace tessary {

namespace {

constexpr std::size_t mebibyte = std::size_t{1} << 20;
constexpr std::size_t networkWriteLimit = std::size_t{64} << 10;

/// Statuses that the library gives when the link is broken or out of step.
bool isLinkFailure(AFCStatus status) {
    constexpr std::array failures{AFCError::opHeaderInvalid, AFCError::muxError, AFCError::noMem,
                                  AFCError::notEnoughData, AFCError::sslError};
    return std::find(failures.begin(), failures.end(), afcErrorFromStatus(status)) !=
           failures.end();
}

TessaryError errorOf(AFCStatus status) {
    return TessaryError::afcError(afcErrorFromStatus(status));
}

} // namespace

AFCConnection::AFCConnection(std::unique_ptr<LockdownSession> session, const QString& bundleId,
                             std::function<void()> beat)
    : beat_(std::move(beat)),
      session_(std::move(session)),
      houseArrest_(openHouseArrest(bundleId)) {
    openClient();
    writeLimit_ = session_->usesNetwork() ? networkWriteLimit : mebibyte;
}

HouseArrestHandle AFCConnection::openHouseArrest(const QString& bundleId) {
    QString lastError = QStringLiteral("Unknown error");
    // One connection takes one command.
    for (const char* command : {"VendDocuments", "VendContainer"}) {
        LockdownService service;
        try {
            service = session_->startService(HOUSE_ARREST_SERVICE_NAME);
        } catch (const TessaryError& error) {
            lastError = error.message();
            continue;
        }
        house_arrest_client_t handle = nullptr;
        const auto status = house_arrest_client_new(session_->device(), service.get(), &handle);
        HouseArrestHandle client(handle);
        beat_();
        if (status != HOUSE_ARREST_E_SUCCESS || !client)
            continue;
        if (house_arrest_send_command(handle, command, bundleId.toUtf8().constData()) !=
            HOUSE_ARREST_E_SUCCESS)
            continue;
        plist_t result = nullptr;
        (void)house_arrest_get_result(handle, &result);
        const PlistHandle owner(result);
        beat_();
        if (!hasKey(result, "Error"))
            return client;
        lastError = textAt(result, "Error").value_or(QStringLiteral("Unknown"));
        DiagnosticsLogger::shared().afc.error("house_arrest %s failed for %s: %s",
                                              {QString::fromLatin1(command), bundleId, lastError});
    }
    throw TessaryError::houseArrestFailed(QStringLiteral("VendDocuments/VendContainer failed: ") +
                                          lastError);
}

void AFCConnection::openClient() {
    afc_client_t handle = nullptr;
    const AFCStatus status = afc_client_new_from_house_arrest_client(houseArrest_.get(), &handle);
    afc_.reset(handle);
    if (status != AFC_E_SUCCESS || !afc_)
        throw errorOf(status == AFC_E_SUCCESS ? AFC_E_UNKNOWN_ERROR : status);
    char** texts = nullptr;
    const AFCStatus probe =
        ask([&](afc_client_t afc) { return afc_read_directory(afc, "/Documents", &texts); });
    const AFCTexts owner(texts);
    if (isLost_)
        throw errorOf(probe);
    if (probe == AFC_E_SUCCESS && texts != nullptr)
        workingRootPath_ = QStringLiteral("/Documents");
}

template <typename Request>
AFCStatus AFCConnection::ask(const Request& request) {
    if (isLost_)
        return AFC_E_SERVICE_NOT_CONNECTED;
    const AFCStatus status = request(afc_.get());
    if (isLinkFailure(status))
        isLost_ = true;
    beat_();
    return status;
}

template <typename Request>
void AFCConnection::require(const Request& request) {
    const AFCStatus status = ask(request);
    if (status != AFC_E_SUCCESS)
        throw errorOf(status);
}

QStringList AFCConnection::readDirectory(const QString& path) {
    char** texts = nullptr;
    const QByteArray name = path.toUtf8();
    const AFCStatus status =
        ask([&](afc_client_t afc) { return afc_read_directory(afc, name.constData(), &texts); });
    const AFCTexts owner(texts);
    if (status != AFC_E_SUCCESS)
        throw errorOf(status);
    QStringList names;
    for (char** text = texts; text != nullptr && *text != nullptr; ++text) {
        const QString entry = QString::fromUtf8(*text);
        if (entry != QLatin1StringView(".") && entry != QLatin1StringView(".."))
            names.append(entry);
    }
    return names;
}

std::optional<AFCFileInfo> AFCConnection::fileInfo(const QString& path) {
    char** texts = nullptr;
    const QByteArray name = path.toUtf8();
    const AFCStatus status =
        ask([&](afc_client_t afc) { return afc_get_file_info(afc, name.constData(), &texts); });
    const AFCTexts owner(texts);
    if (isLost_)
        throw errorOf(status);
    if (status != AFC_E_SUCCESS || texts == nullptr)
        return std::nullopt;
    return parseFileInfo(texts);
}

void AFCConnection::requireLink() {
    char* value = nullptr;
    const AFCStatus status =
        ask([&](afc_client_t afc) { return afc_get_device_info_key(afc, "Model", &value); });
    std::free(value);
    if (isLost_)
        throw errorOf(status);
}

void AFCConnection::makeDirectory(const QString& path) {
    require([name = path.toUtf8()](afc_client_t afc) {
        return afc_make_directory(afc, name.constData());
    });
}

void AFCConnection::removePath(const QString& path) {
    require([name = path.toUtf8()](afc_client_t afc) {
        return afc_remove_path(afc, name.constData());
    });
}

void AFCConnection::renamePath(const QString& from, const QString& to) {
    require([source = from.toUtf8(), target = to.toUtf8()](afc_client_t afc) {
        return afc_rename_path(afc, source.constData(), target.constData());
    });
}

void AFCConnection::setModifiedDate(const QString& path, const QDateTime& date) {
    constexpr std::uint64_t nanosecondsPerMillisecond = 1'000'000;
    const auto milliseconds =
        static_cast<std::uint64_t>(std::max<qint64>(date.toMSecsSinceEpoch(), 0));
    require([&, name = path.toUtf8()](afc_client_t afc) {
        return afc_set_file_time(afc, name.constData(), milliseconds * nanosecondsPerMillisecond);
    });
}

AFCFile::AFCFile(AFCConnection& connection, const QString& path, afc_file_mode_t mode)
    : connection_(connection) {
    connection_.require([&, name = path.toUtf8()](afc_client_t afc) {
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
    connection_.require([&](afc_client_t afc) {
        return afc_file_read(afc, handle_, reinterpret_cast<char*>(buffer.data()),
                             static_cast<std::uint32_t>(buffer.size()), &count);
    });
    // The library counts what the device sent, though it keeps only what was asked for.
    if (count > buffer.size())
        throw TessaryError::afcError(AFCError::tooMuchData);
    return count;
}

std::size_t AFCFile::write(ByteView bytes) {
    std::uint32_t count = 0;
    connection_.require([&](afc_client_t afc) {
        return afc_file_write(afc, handle_, reinterpret_cast<const char*>(bytes.data()),
                              static_cast<std::uint32_t>(bytes.size()), &count);
    });
    return count;
}

void AFCFile::close() {
    if (!std::exchange(isOpen_, false))
        return;
    connection_.require([this](afc_client_t afc) { return afc_file_close(afc, handle_); });
}

} // namespace tessary
