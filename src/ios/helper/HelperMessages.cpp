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

QDataStream& operator<<(QDataStream& stream, const AFCFileInfo& info) {
    const auto& date = info.modifiedDate;
    return stream << info.isDirectory << info.isLink << info.isFile << info.size
                  << (date ? std::optional(date->toMSecsSinceEpoch()) : std::nullopt);
}

QDataStream& operator>>(QDataStream& stream, AFCFileInfo& info) {
    std::optional<qint64> date;
    stream >> info.isDirectory >> info.isLink >> info.isFile >> info.size >> date;
    if (info.size && *info.size < 0)
        info.size.reset();
    if (date)
        info.modifiedDate = QDateTime::fromMSecsSinceEpoch(*date, QTimeZone::utc());
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const AFCLookup& lookup) {
    const auto* error = std::get_if<Error>(&lookup);
    stream << (error == nullptr);
    return error != nullptr ? stream << *error
                            : stream << std::get<std::optional<AFCFileInfo>>(lookup);
}

QDataStream& operator>>(QDataStream& stream, AFCLookup& lookup) {
    bool isInfo = false;
    stream >> isInfo;
    if (isInfo)
        stream >> lookup.emplace<std::optional<AFCFileInfo>>();
    else if (auto error = readError(stream))
        lookup = *std::move(error);
    else
        stream.setStatus(QDataStream::ReadCorruptData);
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const StorageInfo& storage) {
    return stream << storage.freeBytes << storage.totalBytes;
}

QDataStream& operator>>(QDataStream& stream, StorageInfo& storage) {
    stream >> storage.freeBytes >> storage.totalBytes;
    storage.totalBytes = std::max<qint64>(storage.totalBytes, 0);
    storage.freeBytes = std::clamp<qint64>(storage.freeBytes, 0, storage.totalBytes);
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const IPhoneFacts& facts) {
    return stream << facts.name << facts.storage << facts.battery;
}

QDataStream& operator>>(QDataStream& stream, IPhoneFacts& facts) {
    stream >> facts.name >> facts.storage >> facts.battery;
    if (facts.name)
        facts.name = shortened(*facts.name);
    if (facts.battery && (*facts.battery < 0 || *facts.battery > mostPercent))
        facts.battery.reset();
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const AppInfo& app) {
    return stream << app.bundleIdentifier << app.displayName << app.fileSharingEnabled
                  << app.documentsInPlace;
}

QDataStream& operator>>(QDataStream& stream, AppInfo& app) {
    stream >> app.bundleIdentifier >> app.displayName >> app.fileSharingEnabled >>
        app.documentsInPlace;
    app.bundleIdentifier = shortened(app.bundleIdentifier);
    app.displayName = shortened(app.displayName);
    return stream;
}

} // namespace tessary
