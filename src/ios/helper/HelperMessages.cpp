#include "ios/helper/HelperMessages.h"

#include "base/text/Printable.h"
#include "ios/AFCStatus.h"
#include "ios/IPhoneError.h"
#include "phone/PhoneError.h"

#include <QTimeZone>

#include <algorithm>

namespace tessary {

namespace {

/// Causes below causes: an error of ours has one or two.
constexpr int deepestCause = 4;
/// A phone's status or the like; longer texts are cut.
constexpr qsizetype longestArgument = 4096;
constexpr int mostArguments = 8;
/// Bytes; phones have 255 characters.
constexpr qsizetype longestName = 4096;
constexpr int mostPercent = 100;

std::optional<ErrorCode> codeFrom(qint32 layer, qint32 value) {
    if (layer == static_cast<qint32>(ErrorLayer::phone) && value >= 0 &&
        value <= static_cast<qint32>(PhoneError::full))
        return static_cast<PhoneError>(value);
    if (layer == static_cast<qint32>(ErrorLayer::iphone) && value >= 0 &&
        value <= static_cast<qint32>(lastIPhoneError))
        return static_cast<IPhoneError>(value);
    if (layer == static_cast<qint32>(ErrorLayer::afc))
        return afcStatusFrom(value);
    return std::nullopt;
}

std::optional<Error> readErrorAt(QDataStream& stream, int depth) {
    qint32 layer = 0;
    qint32 value = 0;
    quint8 count = 0;
    stream >> layer >> value >> count;
    if (depth > deepestCause || count > mostArguments)
        return std::nullopt;
    QVariantList arguments;
    for (int n = 0; n < count; ++n) {
        bool isNumber = false;
        qint64 number = 0;
        QString text;
        stream >> isNumber >> number >> text;
        arguments.append(isNumber ? QVariant(number) : QVariant(text.left(longestArgument)));
    }
    bool hasCause = false;
    stream >> hasCause;
    const auto code = codeFrom(layer, value);
    if (stream.status() != QDataStream::Ok || !code)
        return std::nullopt;
    if (!hasCause)
        return Error(*code, arguments);
    const auto cause = readErrorAt(stream, depth + 1);
    return cause ? std::optional(Error(*code, arguments, *cause)) : std::nullopt;
}

template <typename T>
void writeOptional(QDataStream& stream, const std::optional<T>& value) {
    stream << value.has_value();
    if (value)
        stream << *value;
}

template <typename T>
std::optional<T> readOptional(QDataStream& stream) {
    bool isThere = false;
    stream >> isThere;
    T value{};
    if (isThere)
        stream >> value;
    return isThere ? std::optional(std::move(value)) : std::nullopt;
}

/// A list as long as there is something to read.
template <typename T, typename Read>
void readList(QDataStream& stream, std::vector<T>& list, const Read& read) {
    quint32 count = 0;
    stream >> count;
    for (quint32 n = 0; n < count && stream.status() == QDataStream::Ok; ++n)
        list.push_back(read());
}

} // namespace

QDataStream& operator<<(QDataStream& stream, const Error& error) {
    stream << static_cast<qint32>(error.code().layer())
           << static_cast<qint32>(error.code().value());
    const auto count = std::min<qsizetype>(error.arguments().size(), mostArguments);
    stream << static_cast<quint8>(count);
    for (const QVariant& argument : error.arguments().first(count)) {
        const bool isNumber = argument.typeId() != QMetaType::QString;
        stream << isNumber << argument.toLongLong() << (isNumber ? QString() : argument.toString());
    }
    stream << (error.cause() != nullptr);
    return error.cause() != nullptr ? stream << *error.cause() : stream;
}

std::optional<Error> readError(QDataStream& stream) {
    return readErrorAt(stream, 0);
}

QDataStream& operator<<(QDataStream& stream, const std::vector<QByteArray>& names) {
    stream << static_cast<quint32>(names.size());
    for (const QByteArray& name : names)
        stream << name;
    return stream;
}

QDataStream& operator>>(QDataStream& stream, std::vector<QByteArray>& names) {
    readList(stream, names, [&] {
        QByteArray name;
        stream >> name;
        if (name.size() > longestName)
            stream.setStatus(QDataStream::ReadCorruptData);
        return name;
    });
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const std::optional<AFCFileInfo>& info) {
    stream << info.has_value();
    if (!info)
        return stream;
    stream << info->isDirectory << info->isLink << info->isFile;
    writeOptional(stream, info->size);
    const auto date = info->modifiedDate;
    writeOptional(stream, date ? std::optional(date->toMSecsSinceEpoch()) : std::nullopt);
    return stream;
}

QDataStream& operator>>(QDataStream& stream, std::optional<AFCFileInfo>& info) {
    bool isThere = false;
    stream >> isThere;
    if (!isThere)
        return stream;
    AFCFileInfo read;
    stream >> read.isDirectory >> read.isLink >> read.isFile;
    const auto size = readOptional<qint64>(stream);
    read.size = size && *size >= 0 ? size : std::nullopt;
    if (const auto date = readOptional<qint64>(stream))
        read.modifiedDate = QDateTime::fromMSecsSinceEpoch(*date, QTimeZone::utc());
    info = read;
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const std::vector<AFCLookup>& lookups) {
    stream << static_cast<quint32>(lookups.size());
    for (const AFCLookup& lookup : lookups) {
        const auto* error = std::get_if<Error>(&lookup);
        stream << (error == nullptr);
        if (error != nullptr)
            stream << *error;
        else
            stream << std::get<std::optional<AFCFileInfo>>(lookup);
    }
    return stream;
}

QDataStream& operator>>(QDataStream& stream, std::vector<AFCLookup>& lookups) {
    readList(stream, lookups, [&]() -> AFCLookup {
        bool isInfo = false;
        stream >> isInfo;
        if (isInfo) {
            std::optional<AFCFileInfo> info;
            stream >> info;
            return info;
        }
        if (auto error = readError(stream))
            return *std::move(error);
        stream.setStatus(QDataStream::ReadCorruptData);
        return {};
    });
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const IPhoneFacts& facts) {
    writeOptional(stream, facts.name);
    stream << facts.storage.has_value();
    if (facts.storage)
        stream << facts.storage->freeBytes << facts.storage->totalBytes;
    writeOptional(stream, facts.battery ? std::optional<qint32>(*facts.battery) : std::nullopt);
    return stream;
}

QDataStream& operator>>(QDataStream& stream, IPhoneFacts& facts) {
    if (const auto name = readOptional<QString>(stream))
        facts.name = shortened(*name);
    bool hasStorage = false;
    stream >> hasStorage;
    if (hasStorage) {
        StorageInfo storage;
        stream >> storage.freeBytes >> storage.totalBytes;
        storage.totalBytes = std::max<qint64>(storage.totalBytes, 0);
        storage.freeBytes = std::clamp<qint64>(storage.freeBytes, 0, storage.totalBytes);
        facts.storage = storage;
    }
    const auto battery = readOptional<qint32>(stream);
    if (battery && *battery >= 0 && *battery <= mostPercent)
        facts.battery = *battery;
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const std::vector<AppInfo>& apps) {
    stream << static_cast<quint32>(apps.size());
    for (const AppInfo& app : apps)
        stream << app.bundleIdentifier << app.displayName << app.fileSharingEnabled
               << app.documentsInPlace;
    return stream;
}

QDataStream& operator>>(QDataStream& stream, std::vector<AppInfo>& apps) {
    readList(stream, apps, [&] {
        AppInfo app;
        stream >> app.bundleIdentifier >> app.displayName >> app.fileSharingEnabled >>
            app.documentsInPlace;
        app.bundleIdentifier = shortened(app.bundleIdentifier);
        app.displayName = shortened(app.displayName);
        return app;
    });
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const std::optional<std::uint64_t>& number) {
    writeOptional(stream, number ? std::optional<quint64>(*number) : std::nullopt);
    return stream;
}

QDataStream& operator>>(QDataStream& stream, std::optional<std::uint64_t>& number) {
    const auto read = readOptional<quint64>(stream);
    number = read ? std::optional<std::uint64_t>(*read) : std::nullopt;
    return stream;
}

} // namespace tessary
