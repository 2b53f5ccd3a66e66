#include "cli/CliRunner.h"

#include "app/texts/ErrorText.h"
#include "base/local/LocalError.h"
#include "base/text/ByteFormat.h"
#include "base/text/PathNames.h"
#include "base/text/Printable.h"
#include "base/threads/CancellationError.h"
#include "cli/ChosenDevice.h"
#include "cli/CliFailure.h"
#include "cli/DeviceChanges.h"
#include "cli/DeviceFollower.h"
#include "cli/ImportSummary.h"
#include "cli/ProgressPrinter.h"
#include "cli/RecordJson.h"
#include "devices/list/DeviceManager.h"
#include "ios/helper/IPhoneHelper.h"
#include "transfer/local/LocalFileSystem.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <optional>

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

void addPhoneInfo(DeviceInfo& device, const std::stop_token& stop) {
    const IPhoneFacts facts = askIPhoneFacts(device.udid, stop);
    device.deviceName = facts.name;
    device.batteryLevel = facts.battery;
    if (facts.storage) {
        device.freeStorageBytes = facts.storage->freeBytes;
        device.totalStorageBytes = facts.storage->totalBytes;
    }
}

} // namespace

CliRunner::CliRunner(DeviceSources sources, DeviceServices& services, UserDefaults& defaults,
                     std::FILE* out, std::FILE* error, QString ledgers)
    : sources_(sources),
      services_(services),
      defaults_(defaults),
      out_(out),
      error_(error),
      ledgers_(std::move(ledgers)) {}

CliRunner::ExitStatus CliRunner::run(const CliRequest& request,
                                     const std::stop_token& stop) noexcept {
    using Step = void (CliRunner::*)();
    static constexpr std::array<Step, 12> steps{
        &CliRunner::devices, &CliRunner::watch, &CliRunner::apps, &CliRunner::list,
        &CliRunner::info,    &CliRunner::get,   &CliRunner::put,  &CliRunner::makeFolders,
        &CliRunner::remove,  &CliRunner::move,  &CliRunner::sync, &CliRunner::importPhotos};
    request_ = request;
    stop_ = stop;
    device_.reset();
    files_.reset();
    status_ = done;
    try {
        sayIfDamaged();
        (this->*steps[static_cast<std::size_t>(request.command)])();
        flushOutput();
    } catch (const CancellationError&) {
        fail(QStringLiteral("Interrupted."));
        return interrupted;
    } catch (const Error& error) {
        fail(errorText(error).text());
    } catch (const std::exception& error) {
        fail(QString::fromUtf8(error.what()));
    }
    return status_;
}

/// Settings that made no sense count as none: the user should know why.
void CliRunner::sayIfDamaged() {
    const auto trouble = defaults_.trouble();
    if (trouble && trouble->kind == SettingsTrouble::Kind::damaged)
        std::fprintf(error_,
                     "tessary-cli: The settings in %s are damaged and count as none. The next "
                     "change keeps the damaged file beside the new one.\n",
                     qUtf8Printable(printable(trouble->file)));
}

/// What was printed has arrived. An error otherwise: a script must not take a part for all.
void CliRunner::flushOutput() {
    if (std::fflush(out_) == 0 && std::ferror(out_) == 0)
        return;
    const QString reason = QString::fromLocal8Bit(std::strerror(errno));
    throw CliFailure(QStringLiteral("The output cannot be written whole: %1").arg(reason));
}

void CliRunner::fail(const QString& message) {
    std::fprintf(error_, "tessary-cli: %s\n", qUtf8Printable(printable(message)));
    status_ = failed;
}

void CliRunner::print(const QJsonValue& document) {
    const QByteArray text = printableLines(QString::fromUtf8(jsonText(document))).toUtf8();
    std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), out_);
}

void CliRunner::printLine(const QString& line) {
    // The lines hold what phones and programs say.
    std::fprintf(out_, "%s\n", qUtf8Printable(printable(line)));
}

const DeviceInfo& CliRunner::chosenDevice() {
    if (device_)
        return *device_;
    const bool wantsADB = request_.protocol == ProtocolMode::adbTurbo;
    if (wantsADB && !services_.adbTool().find())
        throw CliFailure(
            QStringLiteral("adb is not installed. Install it, or use --protocol mtp."));
    std::vector<ADBDevice> reached;
    if (wantsADB || (sources_.asksADB && !request_.protocol))
        reached = services_.adbWays().devices();
    DeviceInfo device = chooseDevice(sources_, request_, stop_, reached);
    if (device.platform == DevicePlatform::android) {
        const auto chosen = protocolModeFromRawValue(
            defaults_.value(DeviceManager::protocolModesKey).toObject()[device.udid].toString());
        device.protocolMode = request_.protocol.value_or(chosen.value_or(device.protocolMode));
    }
    device_ = std::move(device);
    return *device_;
}

PhoneFileSystem& CliRunner::files() {
    if (files_)
        return *files_;
    const DeviceInfo& device = chosenDevice();
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
    files_ =
        !isIPhone ? services_.files().open(device)
        : request_.media
            ? services_.files().openMedia(device)
            : services_.files().openApp(device, AppInfo{request_.app, request_.app, true, false});
    return *files_;
}

/// Devices that have not told their figures by then are listed without.
void CliRunner::devices() {
    DeviceFollower follower(DeviceFollower::Mode::once, sources_, services_, request_.alsoAccept);
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
    DeviceFollower follower(DeviceFollower::Mode::listening, sources_, services_,
                            request_.alsoAccept);
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
        flushOutput();
        before = *std::move(after);
    }
}

void CliRunner::apps() {
    const DeviceInfo& device = chosenDevice();
    if (device.platform != DevicePlatform::iOS)
        throw CliFailure(
            QStringLiteral("\"%1\" is no iPhone: it has files of its own, not of apps.")
                .arg(request_.device));
    const std::vector<AppInfo> apps = services_.apps(device, stop_);
    if (request_.json) {
        QJsonArray array;
        for (const AppInfo& app : apps)
            array.append(toJson(app));
        print(array);
        return;
    }
    if (apps.empty())
        printLine(QStringLiteral("No app on this iPhone shares its files."));
    for (const AppInfo& app : apps)
        printLine(QStringLiteral("%1  %2").arg(printable(app.bundleIdentifier).leftJustified(40),
                                               printable(app.displayName)));
}

void CliRunner::list() {
    Listing listing = listAll(files(), request_.paths.front(), stop_);
    std::vector<FileItem> items = std::move(listing.items);
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
    } else {
        for (const FileItem& item : items)
            printLine(QStringLiteral("%1  %2  %3%4")
                          .arg(item.formattedSize().rightJustified(10), shownDate(item),
                               printable(item.name),
                               item.isDirectory ? QStringLiteral("/") : QString()));
    }
    // What is there and cannot be listed is not left out in silence.
    for (const UnreadableEntry& entry : listing.unreadable)
        fail(QStringLiteral("Not listed: %1: %2").arg(entry.path, reasonText(entry.error)));
}

void CliRunner::info() {
    if (!request_.paths.isEmpty()) {
        const FileItem item = require(files(), request_.paths.front(), stop_);
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
    DeviceInfo device = chosenDevice();
    if (device.platform == DevicePlatform::iOS)
        addPhoneInfo(device, stop_);
    else
        addLiveInfo(device, services_.files().open(device)->liveInfo());
    if (request_.json) {
        print(toJson(device));
        return;
    }
    printDevice(device);
}

void CliRunner::printDevice(const DeviceInfo& device) {
    printLine(QStringLiteral("name      %1").arg(printable(device.deviceName.value_or(QString()))));
    printLine(QStringLiteral("udid      %1").arg(printable(device.udid)));
    printLine(QStringLiteral("platform  %1").arg(rawValue(device.platform)));
    printLine(QStringLiteral("mode      %1").arg(rawValue(device.protocolMode)));
    const QString place = device.platform == DevicePlatform::android ? device.usbLocation
                          : device.connectionType == ConnectionType::usb
                              ? QStringLiteral("USB")
                              : QStringLiteral("network");
    printLine(QStringLiteral("plugged   %1").arg(place));
    if (device.batteryLevel)
        printLine(QStringLiteral("battery   %1 %").arg(*device.batteryLevel));
    for (const StorageVolume& volume : device.volumes)
        printLine(QStringLiteral("storage   %1: %2 (/storage/%3)")
                      .arg(printable(volume.name), volume.formattedCapacity(), volume.id));
    if (device.totalStorageBytes)
        printLine(QStringLiteral("storage   %1")
                      .arg(device.formattedStorageSummary().value_or(QString())));
    if (device.isLocked)
        printLine(QStringLiteral("storage   none: unlock the phone and choose File transfer on "
                                 "it"));
}

void CliRunner::get() {
    const FileItem item = require(files(), request_.paths.front(), stop_);
    const bool intoFolder = QFileInfo(request_.localPath).isDir();
    if (intoFolder && !isSafeName(item.name))
        throw CliFailure(
            QStringLiteral("The name \"%1\" cannot be used on this computer. Give a name for the "
                           "copy.")
                .arg(item.name));
    const QString folder = intoFolder ? request_.localPath : parentPath(request_.localPath);
    const QString name = intoFolder ? item.name : lastComponent(request_.localPath);
    copy({files_, std::make_shared<LocalFileSystem>(folder), {{item, name}}, folder});
}

void CliRunner::put() {
    LocalItem local = openLocalItem(request_.localPath);
    const FileItem folder = requireFolder(files(), request_.paths.front(), stop_);
    const QString name = local.item.name;
    copy({local.files, files_, {{std::move(local.item), name}}, folder.path});
}

/// Copies, with progress, and reports how it ended; what was left out makes it a failure.
void CliRunner::copy(TreeCopyRequest request) {
    const bool isFolder = request.items.front().item.isDirectory;
    request.policy = [answer = request_.clash](const Clash& clash) {
        return clash.coming.isDirectory && clash.existing.isDirectory ? ClashAnswer::merge : answer;
    };
    request.skipsSame = request_.onlyNew;
    const CopyOutcome outcome = run(std::move(request));
    if (request_.json)
        print(isFolder || outcome.made.isEmpty()
                  ? toJson(outcome)
                  : QJsonObject{{QLatin1StringView("path"), outcome.made.front()},
                                {QLatin1StringView("size"), outcome.bytes}});
    sayLeftOut(outcome);
}

CopyOutcome CliRunner::run(TreeCopyRequest request) {
    ProgressPrinter printer(error_);
    CopyOutcome outcome =
        TreeCopy(std::move(request))
            .run([&](const TransferProgress& progress) { printer.show(progress); }, stop_);
    if (outcome.isCancelled)
        throw CancellationError();
    return outcome;
}

void CliRunner::sayLeftOut(const CopyOutcome& outcome) {
    for (const LeftOut& left : outcome.leftOut)
        fail(QStringLiteral("Not copied: %1: %2").arg(left.item.item.path, reasonText(left.error)));
    if (outcome.failure)
        throw *outcome.failure;
}

/// What was fetched before is not asked for again, whatever it is called here now.
void CliRunner::importPhotos() {
    request_.media = chosenDevice().platform == DevicePlatform::iOS;
    FoundPhotos found = findPhotos(files(), chosenDevice(), ledgers_, {}, stop_);
    if (!request_.isDryRun && !QDir().mkpath(request_.localPath))
        throw Error(LocalError::cannotMakeFolder, {request_.localPath, QString()});
    const auto to = std::make_shared<LocalFileSystem>(request_.localPath);
    ImportPlan plan = planImport(found.newOnes(), *found.ledger, *to, request_.localPath,
                                 {.byDate = request_.byDate}, stop_);
    ImportSummary summary{found, plan, {}};
    if (!request_.isDryRun) {
        found.ledger->add(plan.alreadyHere);
        summary.outcome = plan.items.empty()
                              ? CopyOutcome()
                              : run(importRequest(files_, to, std::move(plan), found.ledger));
    }
    if (request_.json)
        print(toJson(summary));
    else
        for (const QString& line : linesOf(summary))
            printLine(line);
    for (const UnreadableEntry& entry : found.unreadable)
        fail(QStringLiteral("Not listed: %1: %2").arg(entry.path, reasonText(entry.error)));
    if (summary.outcome)
        sayLeftOut(*summary.outcome);
}

void CliRunner::makeFolders() {
    for (const QString& path : request_.paths)
        (void)files().makeFolder(parentPath(path), lastComponent(path), stop_);
    if (request_.json)
        print(QJsonArray::fromStringList(request_.paths));
}

void CliRunner::remove() {
    for (const QString& path : request_.paths)
        files().removeTree(require(files(), path, stop_), stop_);
    if (request_.json)
        print(QJsonArray::fromStringList(request_.paths));
}

void CliRunner::move() {
    FileItem item = require(files(), request_.paths[0], stop_);
    const QString& target = request_.paths[1];
    const QString oldFolder = parentPath(item.path);

    // A bare name renames; a folder that exists takes the item in; any other path does both.
    QString folder = oldFolder;
    QString name = target;
    if (target.contains(QLatin1Char('/'))) {
        folder = parentPath(target);
        name = lastComponent(target);
        const auto existing = files().find(target, stop_);
        if (existing && existing->isDirectory) {
            folder = existing->path;
            name = item.name;
        } else if (existing && existing->path != item.path) {
            throw Error(PhoneError::taken, {name});
        }
        folder = require(files(), folder, stop_).path;
    }
    const bool isMoved = folder != oldFolder;
    if (isMoved)
        item = files().move(item, folder, stop_);
    try {
        if (name != item.name)
            item = files().rename(item, name, TakenName::refused, stop_);
    } catch (...) {
        if (isMoved) // all or nothing, also after a stop request
            (void)files().move(item, oldFolder, {});
        throw;
    }
    if (request_.json)
        print(QJsonObject{{QLatin1StringView("path"), item.path}});
}

} // namespace tessary
