#include "adb/tool/ADBTool.h"

#include "base/threads/CancellationError.h"
#include "base/values/TessaryError.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>

namespace tessary {

namespace {

using Outcome = ProcessResult::Outcome;
using View = QLatin1StringView;

constexpr View noSerialPrefix("USB-");

/// What adb says of a connection, and what a person can do about it.
struct Row {
    View sign;
    View words;
};
constexpr std::array connectionTable{
    Row{View("unauthorized"),
        View("The phone has not allowed this computer yet. Unlock it and tap Allow in the question "
             "about USB debugging.")},
    Row{View("still authorizing"),
        View("The phone has not allowed this computer yet. Unlock it and tap Allow in the question "
             "about USB debugging.")},
    Row{View("device offline"),
        View("The phone is offline for adb. Unplug it and plug it in again, or turn USB debugging "
             "off and on.")},
    Row{View("no devices/emulators found"),
        View("adb does not reach the phone. Turn on USB debugging on it, or switch to Standard "
             "MTP.")},
    Row{View("more than one"),
        View("adb reaches several phones and cannot tell which one is meant. Unplug the others, or "
             "switch to Standard MTP.")},
    Row{View("' not found"),
        View("adb does not reach the phone. Turn on USB debugging on it, or switch to Standard "
             "MTP.")},
    Row{View("cannot connect to daemon"), View("adb's server cannot be started.")},
    Row{View("failed to start daemon"), View("adb's server cannot be started.")},
    Row{View("protocol fault"), View("The connection to the phone broke off.")},
    Row{View("error: closed"), View("The connection to the phone broke off.")},
    Row{View("Connection reset"), View("The connection to the phone broke off.")},
    Row{View("no response"), View("The connection to the phone broke off.")},
    Row{View("unexpected EOF"), View("The connection to the phone broke off.")},
};
constexpr std::array fileTable{
    Row{View("Read-only file system"), View("This storage of the phone is read-only.")},
    Row{View("No space left"), View("The storage of the phone is full.")},
    Row{View("Permission denied"), View("The phone does not allow this.")},
    Row{View("Operation not permitted"), View("The phone does not allow this.")},
    Row{View("File too large"), View("The file is too large for this storage of the phone.")},
};

/// What adb printed, without its notes about its own server.
QString textOf(const ProcessResult& result) {
    QStringList lines;
    for (const QByteArray* output : {&result.standardError, &result.standardOutput})
        for (const QByteArray& line : output->left(8192).split('\n'))
            if (const QByteArray text = line.trimmed(); !text.isEmpty() && !text.startsWith('*'))
                lines.append(QString::fromUtf8(text));
    return lines.join(QLatin1Char('\n'));
}

template <std::size_t count>
const Row* find(const std::array<Row, count>& table, const QString& text) {
    const auto found = std::find_if(table.begin(), table.end(),
                                    [&](const Row& row) { return text.contains(row.sign); });
    return found == table.end() ? nullptr : &*found;
}

} // namespace

QString phoneShellQuoted(const QString& text) {
    return QLatin1Char('\'') +
           QString(text).replace(QLatin1Char('\''), QLatin1StringView("'\\''")) + QLatin1Char('\'');
}

bool isADBConnectionFailure(const ProcessResult& result) {
    if (result.outcome != Outcome::exited)
        return true;
    return !result.succeeded() && find(connectionTable, textOf(result)) != nullptr;
}

QString adbFailure(const ProcessResult& result) {
    switch (result.outcome) {
    case Outcome::notStarted:
        return QStringLiteral("adb cannot be started.");
    case Outcome::crashed:
        return QStringLiteral("adb crashed.");
    case Outcome::timedOut:
        return QStringLiteral("adb does not answer. Unplug the phone and plug it in again.");
    case Outcome::flooded:
        return QStringLiteral("adb answers nonsense.");
    case Outcome::cancelled:
    case Outcome::exited:
        break;
    }
    if (result.succeeded())
        return {};
    const QString text = textOf(result);
    if (const Row* row = find(connectionTable, text))
        return row->words;
    if (const Row* row = find(fileTable, text))
        return row->words;
    constexpr qsizetype longest = 300;
    return text.isEmpty() ? QStringLiteral("adb ended with status %1.").arg(result.exitStatus)
                          : text.section(QLatin1Char('\n'), 0, 0).left(longest);
}

ADBTool::ADBTool(ProcessRunner& processes, std::optional<QStringList> paths)
    : processes_(processes), paths_(std::move(paths)) {}

QStringList ADBTool::defaultPaths() {
    const QString inSDK = QStringLiteral("/platform-tools/adb");
    QStringList paths;
    for (const char* variable : {"ANDROID_HOME", "ANDROID_SDK_ROOT"})
        if (const QString sdk = qEnvironmentVariable(variable); !sdk.isEmpty())
            paths.append(sdk + inSDK);
    for (const QString& folder : qEnvironmentVariable("PATH").split(QLatin1Char(':')))
        if (folder.startsWith(QLatin1Char('/')))
            paths.append(folder + QStringLiteral("/adb"));
    return paths + QStringList{QDir::homePath() + QStringLiteral("/Android/Sdk") + inSDK,
                               QDir::homePath() + QStringLiteral("/Library/Android/sdk") + inSDK,
                               QStringLiteral("/opt/homebrew/bin/adb"),
                               QStringLiteral("/usr/local/bin/adb"),
                               QStringLiteral("/usr/bin") + QStringLiteral("/adb")};
}

std::optional<QString> ADBTool::find() const {
    return findAmong(paths_.value_or(defaultPaths()));
}

std::optional<QString> ADBTool::findAmong(const QStringList& paths) {
    for (const QString& path : paths) {
        const QFileInfo info(path);
        if (info.isFile() && info.isExecutable())
            return path;
    }
    return std::nullopt;
}

std::vector<ADBDevice> ADBTool::devices() {
    std::vector<ADBDevice> found;
    if (const auto executable = find()) {
        const ProcessResult result = processes_.run(
            *executable, {QStringLiteral("devices"), QStringLiteral("-l")}, shortLimit);
        if (result.succeeded())
            found = parseADBDevices(result.standardOutput);
        for (ADBDevice& device : found)
            if (device.isReady() && device.isNetwork())
                device.phoneSerial = phoneSerialOf(*executable, device);
    }
    const std::scoped_lock lock(mutex_);
    known_ = found;
    return found;
}

QString ADBTool::phoneSerialOf(const QString& executable, const ADBDevice& device) {
    constexpr std::chrono::seconds patience(3);
    constexpr qsizetype longest = 128;
    constexpr qsizetype remembered = 256;
    const QString key = device.serial + QLatin1Char('\n') + device.transportId;
    {
        const std::scoped_lock lock(mutex_);
        if (const auto known = phoneSerials_.constFind(key); known != phoneSerials_.cend())
            return *known;
    }
    const ProcessResult result =
        processes_.run(executable,
                       {QStringLiteral("-s"), device.serial, QStringLiteral("shell"),
                        QStringLiteral("getprop"), QStringLiteral("ro.serialno")},
                       patience);
    if (!result.succeeded())
        return {}; // asked again next time
    const QString serial = QString::fromUtf8(result.standardOutput).trimmed().left(longest);
    const std::scoped_lock lock(mutex_);
    if (phoneSerials_.size() >= remembered)
        phoneSerials_.clear();
    phoneSerials_.insert(key, serial);
    return serial;
}

bool ADBTool::isConnected(const std::optional<QString>& serial) {
    const std::vector<ADBDevice> all = devices();
    const auto ready = std::count_if(all.begin(), all.end(),
                                     [](const ADBDevice& device) { return device.isReady(); });
    if (!serial || serial->isEmpty() || serial->startsWith(noSerialPrefix))
        return ready == 1;
    return std::any_of(all.begin(), all.end(), [&](const ADBDevice& device) {
        return device.isReady() && (device.serial == *serial || device.phoneSerial == *serial);
    });
}

/// `-s` and what adb calls the device.
QStringList ADBTool::selection(const DeviceInfo& device) const {
    const QString serial = device.serialNumber.value_or(QString());
    const QString place = QStringLiteral("usb:") + device.usbLocation;
    const QString flag = QStringLiteral("-s");
    const std::scoped_lock lock(mutex_);
    if (serial.isEmpty() || serial.startsWith(noSerialPrefix)) {
        // Without a serial adb takes the only phone that it reaches: it must not be another one.
        const bool isOther = known_.size() == 1 && !known_.front().path.isEmpty() &&
                             !device.usbLocation.isEmpty() && known_.front().path != place;
        if (isOther)
            throw TessaryError::fileIOError(
                QStringLiteral("adb does not reach the phone. Turn on USB debugging on it, or "
                               "switch to Standard MTP."));
        return {};
    }
    const auto same = [&](const ADBDevice& one) { return one.serial == serial; };
    const auto count = std::count_if(known_.begin(), known_.end(), same);
    if (count > 1 && std::any_of(known_.begin(), known_.end(), [&](const ADBDevice& one) {
            return same(one) && one.path == place;
        }))
        return {flag, place};
    if (count == 0)
        for (const ADBDevice& one : known_)
            if (one.phoneSerial == serial)
                return {flag, one.serial};
    return {flag, serial};
}

ProcessRequest ADBTool::request(const DeviceInfo& device, const QStringList& words,
                                std::optional<std::chrono::milliseconds> limit,
                                const std::stop_token& stop) const {
    const auto executable = find();
    if (!executable)
        throw TessaryError::fileIOError(QStringLiteral("adb is not installed."));
    ProcessRequest request;
    request.program = *executable;
    request.arguments = selection(device) + words;
    request.limit = limit;
    request.stop = stop;
    return request;
}

ProcessResult ADBTool::run(const ProcessRequest& request) const {
    ProcessResult result = processes_.follow(request);
    if (result.outcome == Outcome::cancelled)
        throw CancellationError();
    return result;
}

} // namespace tessary
