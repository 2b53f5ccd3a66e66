#include "ios/helper/AFCLink.h"

#include "phone/PhoneError.h"

#include <algorithm>
#include <utility>

namespace tessary {

namespace {

constexpr QLatin1Char slash('/');

} // namespace

AFCLink::AFCLink(const QString& udid, const QString& bundleId, const IPhoneHelper::Limits& limits,
                 const std::stop_token& stop)
    : IPhoneHelper(udid, limits) {
    workingRootPath_ = askFor<QString>(HelperOperation::open, helperArguments(bundleId), stop);
    requireSense(workingRootPath_.startsWith(slash));
}

QString AFCLink::inContainer(const QString& path) const {
    if (workingRootPath_ == slash)
        return path;
    return path == slash ? workingRootPath_ : workingRootPath_ + path;
}

template <typename Result, typename... Values>
Result AFCLink::ask(HelperOperation operation, const Values&... arguments) {
    if (isLost())
        throw Error(PhoneError::brokenOff);
    return askFor<Result>(operation, helperArguments(arguments...));
}

template <typename... Values>
void AFCLink::request(HelperOperation operation, const Values&... arguments) {
    // Every answer has a byte behind it at least.
    (void)ask<bool>(operation, arguments...);
}

std::vector<QByteArray> AFCLink::readNames(const QString& path) {
    constexpr qsizetype longestName = 4096; // bytes; phones have 255 characters
    auto names = ask<std::vector<QByteArray>>(HelperOperation::names, path);
    requireSense(std::ranges::all_of(
        names, [](const QByteArray& name) { return name.size() <= longestName; }));
    return names;
}

std::optional<AFCFileInfo> AFCLink::findInfo(const QString& path) {
    return ask<std::optional<AFCFileInfo>>(HelperOperation::info, path);
}

std::vector<AFCLookup> AFCLink::findInfos(const QString& folder, const QStringList& names) {
    auto found = ask<std::vector<AFCLookup>>(HelperOperation::infos, folder, names);
    requireSense(found.size() == static_cast<std::size_t>(names.size()));
    return found;
}

void AFCLink::makeDirectory(const QString& path) {
    hasTouched_ = true;
    request(HelperOperation::makeFolder, path);
}

void AFCLink::removePath(const QString& path) {
    hasTouched_ = true;
    request(HelperOperation::remove, path);
}

void AFCLink::renamePath(const QString& from, const QString& to) {
    hasTouched_ = true;
    request(HelperOperation::rename, from, to);
}

void AFCLink::setModifiedDate(const QString& path, const QDateTime& date) {
    hasTouched_ = true;
    request(HelperOperation::setDate, path, date.toMSecsSinceEpoch());
}

std::unique_ptr<AFCLinkFile> AFCLink::openFile(const QString& path, AFCFileMode mode) {
    hasTouched_ = hasTouched_ || mode != AFCFileMode::read;
    request(HelperOperation::openFile, path, static_cast<quint8>(mode));
    return std::make_unique<AFCLinkFile>(*this);
}

std::optional<std::uint64_t> AFCLink::freeBytes() {
    return ask<std::optional<quint64>>(HelperOperation::freeBytes);
}

IPhoneFacts AFCLink::facts() {
    return ask<IPhoneFacts>(HelperOperation::facts);
}

AFCLinkFile::~AFCLinkFile() {
    try {
        close();
    } catch (const Error&) {
        // Nobody asked.
    }
}

void AFCLinkFile::close() {
    if (std::exchange(isOpen_, false))
        link_.request(HelperOperation::closeFile);
}

void AFCLinkFile::seek(qint64 offset) {
    link_.request(HelperOperation::seek, offset);
}

std::size_t AFCLinkFile::read(std::span<std::byte> buffer) {
    return move(HelperOperation::read, buffer);
}

std::size_t AFCLinkFile::write(ByteView bytes) {
    link_.hasTouched_ = true;
    return move(HelperOperation::write, bytes);
}

std::size_t AFCLinkFile::move(HelperOperation operation, ByteView bytes) {
    const auto offset = static_cast<quint32>(bytes.data() - link_.content().get());
    const auto size = static_cast<quint32>(std::min(bytes.size(), contentMemory - offset));
    const auto count = link_.ask<quint32>(operation, offset, size);
    link_.requireSense(count <= size);
    return count;
}

} // namespace tessary
