#include "cli/CliRunner.h"

#include "cli/DeviceChanges.h"
#include "cli/DeviceFollower.h"
#include "cli/ProgressPrinter.h"
#include "cli/RecordJson.h"
#include "core/ByteFormat.h"
#include "core/CancellationError.h"
#include "core/Printable.h"
#include "core/TessaryError.h"
#include "files/DevicePath.h"
#include "files/ErrorAdvice.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <array>

namespace tessary {

namespace {

/// Time for a silent phone to be given up on.
constexpr std::chrono::seconds detailsPatience(15);

QString shownDate(const FileItem& item) {
    return item.modifiedDate ? item.modifiedDate->toString(QStringLiteral("yyyy-MM-dd HH:mm"))
                             : QString(16, QLatin1Char(' '));
}

/// An array's or object's text, made whole before it is printed.
QByteArray jsonText(const QJsonValue& document) {
    const QJsonDocument wrapped =
        document.isArray() ? QJsonDocument(document.toArray()) : QJsonDocument(document.toObject());
    return wrapped.toJson(QJsonDocument::Indented);
}

void addLiveInfo(DeviceInfo& device, const std::optional<LiveDeviceInfo>& live) {
    if (!live)
        return;
    device.batteryLevel = live->battery;
    device.volumes = live->volumes;
    device.isLocked = live->volumes.empty();
}

} // namespace

CliRunner::CliRunner(UsbBus& bus, DeviceFileService& files, std::FILE* out, std::FILE* error)
    : bus_(bus), files_(files), out_(out), error_(error) {}

CliRunner::ExitStatus CliRunner::run(const CliRequest& request,
                                     const std::stop_token& stop) noexcept {
    using Step = void (CliRunner::*)();
    static constexpr std::array<Step, 9> steps{
        &CliRunner::devices,     &CliRunner::watch,  &CliRunner::list,
        &CliRunner::info,        &CliRunner::get,    &CliRunner::put,
        &CliRunner::makeFolders, &CliRunner::remove, &CliRunner::move};
    request_ = request;
    stop_ = stop;
    device_.reset();
    status_ = done;
    try {
        (this->*steps[static_cast<std::size_t>(request.command)])();
    } catch (const CancellationError&) {
        fail(QStringLiteral("Interrupted."));
        return interrupted;
    } catch (const std::exception& error) {
        const QStringList holders = device_ ? files_.programsHolding(*device_) : QStringList();
        const ErrorAdvice words = adviceFor(error, holders);
        fail(words.advice.isEmpty() ? words.message
                                    : words.message + QLatin1Char(' ') + words.advice);
    }
    std::fflush(out_);
    return status_;
}

void CliRunner::fail(const QString& message) {
    std::fprintf(error_, "tessary-cli: %s\n", qUtf8Printable(printable(message)));
    status_ = failed;
}

void CliRunner::print(const QJsonValue& document) {
    const QByteArray text = jsonText(document);
    std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), out_);
}

void CliRunner::printLine(const QString& line) {
    std::fprintf(out_, "%s\n", qUtf8Printable(line));
}

DeviceInfo CliRunner::chosenDevice() {
    const std::vector<DeviceInfo> all = scanAndroidDevices(bus_, request_.alsoAccept);
    using Test = bool (*)(const DeviceInfo&, const QString&);
    static constexpr std::array<Test, 3> tests{
        [](const DeviceInfo& device, const QString& wanted) { return device.udid == wanted; },
        [](const DeviceInfo& device, const QString& wanted) {
            return device.udid.startsWith(wanted);
        },
        [](const DeviceInfo& device, const QString& wanted) {
            return device.deviceName.value_or(QString()).compare(wanted, Qt::CaseInsensitive) == 0;
        }};
    for (const Test test : tests) {
        std::vector<DeviceInfo> matching;
        std::copy_if(all.begin(), all.end(), std::back_inserter(matching),
                     [&](const DeviceInfo& device) { return test(device, request_.device); });
        if (matching.size() > 1)
            throw TessaryError::deviceNotFound(
                QStringLiteral("\"%1\" fits %2 devices. Give more of the udid: see tessary-cli "
                               "devices.")
                    .arg(request_.device)
                    .arg(matching.size()));
        if (matching.size() == 1) {
            device_ = matching.front();
            return *device_;
        }
    }
    throw TessaryError::deviceNotFound(
        QStringLiteral("\"%1\" is not attached. Plug it in, unlock it and choose File transfer on "
                       "it; tessary-cli devices lists what is there.")
            .arg(request_.device));
}

/// Devices that have not told their figures by then are listed without.
void CliRunner::devices() {
    DeviceFollower follower(DeviceFollower::Mode::once, bus_, files_, request_.alsoAccept);
    const auto end = std::chrono::steady_clock::now() + detailsPatience;
    DeviceSnapshot now;
    while (!now.isSettled) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            end - std::chrono::steady_clock::now());
        auto next = follower.next(stop_, left);
        throwIfStopped(stop_);
        if (!next)
            break;
        now = *std::move(next);
    }
    if (request_.json) {
        QJsonArray array;
        for (const DeviceInfo& device : now.devices)
            array.append(toJson(device, troubleOf(now, device)));
        print(array);
        return;
    }
    if (now.devices.empty())
        printLine(QStringLiteral("No device is attached. Plug a phone in, unlock it and choose "
                                 "File transfer on it."));
    for (const DeviceInfo& device : now.devices)
        printLine(deviceLine(device, troubleOf(now, device)));
}

/// Ends with a stop request only.
void CliRunner::watch() {
    DeviceFollower follower(DeviceFollower::Mode::listening, bus_, files_, request_.alsoAccept);
    DeviceSnapshot before;
    while (true) {
        auto after = follower.next(stop_, DeviceManager::storageInterval);
        throwIfStopped(stop_);
        if (!after)
            continue;
        for (const DeviceChange& change : changesBetween(before, *after))
            printLine(request_.json
                          ? QString::fromUtf8(
                                QJsonDocument(toJson(change)).toJson(QJsonDocument::Compact))
                          : changeLine(change));
        std::fflush(out_);
        before = *std::move(after);
    }
}

void CliRunner::list() {
    const DeviceInfo device = chosenDevice();
    const QString& path = request_.paths.front();
    std::vector<FileItem> items = files_.listDirectory(path, device, stop_);
    std::stable_sort(items.begin(), items.end(), [](const FileItem& a, const FileItem& b) {
        if (a.isDirectory != b.isDirectory)
            return a.isDirectory;
        return a.name.compare(b.name, Qt::CaseInsensitive) < 0;
    });
    if (request_.json) {
        QJsonArray array;
        for (const FileItem& item : items)
            array.append(toJson(item));
        print(array);
        return;
    }
    for (const FileItem& item : items)
        printLine(QStringLiteral("%1  %2  %3%4")
                      .arg(item.formattedSize().rightJustified(10), shownDate(item),
                           printable(item.name),
                           item.isDirectory ? QStringLiteral("/") : QString()));
}

void CliRunner::info() {
    DeviceInfo device = chosenDevice();
    if (!request_.paths.isEmpty()) {
        const FileItem item = files_.itemAt(request_.paths.front(), device, stop_);
        if (request_.json) {
            print(toJson(item));
            return;
        }
        printLine(QStringLiteral("name      %1").arg(printable(item.name)));
        printLine(QStringLiteral("path      %1").arg(printable(item.path)));
        printLine(QStringLiteral("kind      %1").arg(rawValue(item.category())));
        printLine(QStringLiteral("size      %1").arg(item.formattedSize()));
        printLine(QStringLiteral("modified  %1").arg(shownDate(item)));
        return;
    }
    addLiveInfo(device, files_.fetchLiveDeviceInfo(device));
    if (request_.json) {
        print(toJson(device));
        return;
    }
    printLine(QStringLiteral("name      %1").arg(printable(device.deviceName.value_or(QString()))));
    printLine(QStringLiteral("udid      %1").arg(printable(device.udid)));
    printLine(QStringLiteral("platform  %1").arg(rawValue(device.platform)));
    printLine(QStringLiteral("mode      %1").arg(rawValue(device.protocolMode)));
    printLine(QStringLiteral("plugged   %1").arg(device.usbLocation));
    if (device.batteryLevel)
        printLine(QStringLiteral("battery   %1 %").arg(*device.batteryLevel));
    for (const StorageVolume& volume : device.volumes)
        printLine(QStringLiteral("storage   %1: %2 (/storage/%3)")
                      .arg(printable(volume.name), volume.formattedCapacity(), volume.id));
    if (device.isLocked)
        printLine(QStringLiteral("storage   none: unlock the phone and choose File transfer on "
                                 "it"));
}

void CliRunner::get() {
    const DeviceInfo device = chosenDevice();
    const FileItem item = files_.itemAt(request_.paths.front(), device, stop_);
    const bool intoFolder = QFileInfo(request_.localPath).isDir();
    if (intoFolder && !isSafeName(item.name))
        throw TessaryError::fileIOError(
            QStringLiteral("The name \"%1\" cannot be used on this computer. Give a name for the "
                           "copy.")
                .arg(item.name));
    const QString target =
        intoFolder ? joinPath(request_.localPath, item.name) : request_.localPath;
    ProgressPrinter printer(error_);
    if (item.isDirectory) {
        finish(files_.downloadDirectoryContents(
            item, target, device,
            [&printer](const TransferProgress& progress) { printer.show(progress); }, stop_));
        return;
    }
    files_.downloadFile(
        item, target, device, [&printer](qint64 all, qint64 total) { printer.show(all, total); },
        stop_);
    if (request_.json)
        print(QJsonObject{{QLatin1StringView("path"), target},
                          {QLatin1StringView("size"), QFileInfo(target).size()}});
}

void CliRunner::put() {
    const DeviceInfo device = chosenDevice();
    const QString& folder = request_.paths.front();
    const QFileInfo local(request_.localPath);
    ProgressPrinter printer(error_);
    if (local.isDir()) {
        finish(files_.uploadDirectory(
            request_.localPath, folder, device,
            [&printer](const TransferProgress& progress) { printer.show(progress); }, stop_));
        return;
    }
    files_.uploadFile(
        request_.localPath, folder, device,
        [&printer](qint64 all, qint64 total) { printer.show(all, total); }, stop_);
    if (request_.json)
        print(QJsonObject{{QLatin1StringView("path"), joinPath(folder, local.fileName())},
                          {QLatin1StringView("size"), local.size()}});
}

/// Reports how a folder transfer ended; what was left out makes it a failure.
void CliRunner::finish(const TransferOutcome& outcome) {
    if (request_.json)
        print(toJson(outcome));
    for (const SkippedItem& item : outcome.skipped)
        fail(QStringLiteral("Not copied: %1: %2").arg(item.path, item.reason));
}

void CliRunner::makeFolders() {
    const DeviceInfo device = chosenDevice();
    for (const QString& path : request_.paths)
        files_.createFolder(lastComponent(path), parentPath(path), device, stop_);
    if (request_.json)
        print(QJsonArray::fromStringList(request_.paths));
}

void CliRunner::remove() {
    const DeviceInfo device = chosenDevice();
    for (const QString& path : request_.paths)
        files_.deleteFile(files_.itemAt(path, device, stop_), device, stop_);
    if (request_.json)
        print(QJsonArray::fromStringList(request_.paths));
}

void CliRunner::move() {
    const DeviceInfo device = chosenDevice();
    FileItem item = files_.itemAt(request_.paths[0], device, stop_);
    const QString& target = request_.paths[1];
    const QString oldFolder = parentPath(item.path);

    // A bare name renames; a folder that exists takes the item in; any other path does both.
    QString folder = oldFolder;
    QString name = target;
    if (target.contains(QLatin1Char('/'))) {
        folder = parentPath(target);
        name = lastComponent(target);
        try {
            const FileItem existing = files_.itemAt(target, device, stop_);
            if (existing.isDirectory) {
                folder = existing.path;
                name = item.name;
            }
        } catch (const TessaryError&) {
            // Nothing of this name is there: it is the new one.
        }
        folder = files_.itemAt(folder, device, stop_).path;
    }
    if (folder != oldFolder) {
        files_.moveItem(item, folder, device, stop_);
        item.path = joinPath(folder, item.name);
    }
    if (name != item.name)
        files_.renameItem(item, name, device, stop_);
    if (request_.json)
        print(QJsonObject{{QLatin1StringView("path"), joinPath(folder, name)}});
}

} // namespace tessary
