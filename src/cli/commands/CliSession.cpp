#include "cli/commands/CliSession.h"

#include "app/texts/ErrorText.h"
#include "base/text/Printable.h"
#include "cli/devices/ChosenDevice.h"
#include "cli/terminal/CliFailure.h"
#include "devices/list/DeviceManager.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cerrno>
#include <cstring>
#include <utility>
#include <vector>

namespace tessary {

namespace {

/// An array's or object's text, made whole before it is printed.
QByteArray jsonText(const QJsonValue& document) {
    const QJsonDocument wrapped =
        document.isArray() ? QJsonDocument(document.toArray()) : QJsonDocument(document.toObject());
    return wrapped.toJson(QJsonDocument::Indented);
}

} // namespace

CliSession::CliSession(const CliSetup& setup, CliRequest request, std::stop_token stop)
    : setup_(setup), request_(std::move(request)), stop_(std::move(stop)) {}

const DeviceInfo& CliSession::device() {
    if (device_)
        return *device_;
    const bool wantsADB = request_.protocol == ProtocolMode::adbTurbo;
    // A phone on the network is reached by its address, whether adb is installed or not.
    if (wantsADB && ADBWays::isAddress(request_.device))
        setup_.services.adbWays().connect(request_.device, stop_);
    std::vector<ADBDevice> reached;
    if (wantsADB || (setup_.sources.asksADB && !request_.protocol))
        reached = setup_.services.adbWays().devices();
    DeviceInfo device = chooseDevice(setup_.sources, request_, stop_, reached);
    if (device.platform == DevicePlatform::android) {
        const auto chosen =
            protocolModeFromRawValue(setup_.defaults.value(DeviceManager::protocolModesKey)
                                         .toObject()[device.udid]
                                         .toString());
        device.protocolMode = request_.protocol.value_or(chosen.value_or(device.protocolMode));
        if (wantsADB && !setup_.services.adbWays().canReach(identityOf(device)))
            throw CliFailure(
                QStringLiteral("adb is not installed. Install it, or use --protocol mtp."));
    }
    device_ = std::move(device);
    return *device_;
}

const std::shared_ptr<PhoneFileSystem>& CliSession::sharedFiles() {
    if (files_)
        return files_;
    const DeviceInfo& device = this->device();
    const bool isIPhone = device.platform == DevicePlatform::iOS;
    if (isIPhone && request_.app.isEmpty() && !request_.media)
        throw CliFailure(
            QStringLiteral("The files of an iPhone are its photos (--media) and those of its apps: "
                           "give one with --app; tessary-cli apps %1 lists them.")
                .arg(request_.device));
    if (!isIPhone && !request_.app.isEmpty())
        throw CliFailure(QStringLiteral("--app is for iPhones only."));
    if (!isIPhone && request_.media)
        throw CliFailure(QStringLiteral("--media is for iPhones only."));
    files_ = !isIPhone        ? setup_.services.files().open(device)
             : request_.media ? setup_.services.files().openMedia(device)
                              : setup_.services.files().openApp(
                                    device, AppInfo{request_.app, request_.app, true, false});
    return files_;
}

void CliSession::useMedia() {
    request_.media = device().platform == DevicePlatform::iOS;
}

void CliSession::print(const QJsonValue& document) {
    const QByteArray text = printableLines(QString::fromUtf8(jsonText(document))).toUtf8();
    std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), setup_.out);
}

void CliSession::printLine(const QString& line) {
    // The lines hold what phones and programs say.
    std::fprintf(setup_.out, "%s\n", qUtf8Printable(printable(line)));
}

/// What was printed has arrived. An error otherwise: a script must not take a part for all.
void CliSession::flushOutput() {
    if (std::fflush(setup_.out) == 0 && std::ferror(setup_.out) == 0)
        return;
    const QString reason = QString::fromLocal8Bit(std::strerror(errno));
    throw CliFailure(QStringLiteral("The output cannot be written whole: %1").arg(reason));
}

void CliSession::warn(const QString& message) {
    std::fprintf(setup_.error, "tessary-cli: %s\n", qUtf8Printable(printable(message)));
}

void CliSession::fail(const QString& message) {
    warn(message);
    hasFailed_ = true;
}

void CliSession::fail(const char* what, const QString& path, const Error& error) {
    fail(QStringLiteral("%1: %2: %3").arg(QLatin1StringView(what), path, reasonText(error)));
}

} // namespace tessary
