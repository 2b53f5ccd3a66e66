#include "ios/helper/server/HelperServer.h"

#include "base/text/PathNames.h"
#include "ios/AppLister.h"
#include "ios/IPhoneError.h"
#include "phone/PhoneError.h"
#include "platform/process/ChildChannel.h"

#include <QIODevice>
#include <QTimeZone>

#include <algorithm>
#include <span>

namespace tessary {

namespace {

Error nothingOpen() {
    return Error(PhoneError::brokenOff, {},
                 Error(IPhoneError::helper, {QStringLiteral("nothing is open")}));
}

Error senseless() {
    return Error(PhoneError::notSupported);
}

afc_file_mode_t modeOf(quint8 mode) {
    switch (static_cast<AFCFileMode>(mode)) {
    case AFCFileMode::read:
        return AFC_FOPEN_RDONLY;
    case AFCFileMode::create:
        return AFC_FOPEN_WR;
    case AFCFileMode::change:
        return AFC_FOPEN_RW;
    }
    throw senseless();
}

/// The next argument.
template <typename Value>
Value take(QDataStream& arguments) {
    Value value{};
    arguments >> value;
    if (arguments.status() != QDataStream::Ok)
        throw senseless();
    return value;
}

} // namespace

void HelperServer::serve(int descriptor) {
    QByteArray request;
    while (ChildChannel::receive(descriptor, request, longestHelperRequest)) {
        if (!ChildChannel::send(descriptor, answer(request)))
            return;
    }
}

QByteArray HelperServer::answer(const QByteArray& request) {
    QByteArray result;
    QDataStream results(&result, QIODevice::WriteOnly);
    QDataStream arguments(request);
    bool wentWell = false;
    try {
        if (version_ != helperVersion)
            throw Error(PhoneError::notReachable, {},
                        Error(IPhoneError::helper, {QStringLiteral("another version")}));
        const auto operation = static_cast<HelperOperation>(take<quint8>(arguments));
        carryOut(operation, arguments, results);
        wentWell = true;
    } catch (const Error& error) {
        result.clear();
        results.device()->seek(0);
        results << error;
    }
    const bool isLost = connection_ && connection_->isLost();
    QByteArray answer;
    QDataStream stream(&answer, QIODevice::WriteOnly);
    stream << isLost << wentWell;
    return answer + result;
}

Lockdown& HelperServer::lockdown() {
    if (connection_ && !connection_->isLost())
        return connection_->lockdown();
    if (!lockdown_)
        lockdown_ = std::make_unique<Lockdown>(udid_);
    return *lockdown_;
}

AFCConnection& HelperServer::connection() {
    if (!connection_)
        throw nothingOpen();
    return *connection_;
}

AFCFile& HelperServer::file() {
    if (!file_)
        throw nothingOpen();
    return *file_;
}

void HelperServer::moveContent(HelperOperation operation, QDataStream& arguments,
                               QDataStream& result) {
    const auto offset = take<quint32>(arguments);
    const auto size = take<quint32>(arguments);
    if (offset > contentMemory || size > contentMemory - offset)
        throw senseless();
    const std::span all(content_.get() + offset, size);
    std::size_t done = 0;
    for (bool goesOn = true; goesOn && done < size;) {
        const auto part = all.subspan(done, std::min(size - done, connection().requestLimit()));
        const std::size_t count =
            operation == HelperOperation::read ? file().read(part) : file().write(part);
        done += count;
        goesOn = count == part.size(); // most often it is the end of the file
    }
    result << static_cast<quint32>(done);
}

std::vector<AFCLookup> HelperServer::infosIn(const QString& folder, const QStringList& names) {
    std::vector<AFCLookup> lookups;
    for (const QString& name : names) {
        try {
            lookups.emplace_back(connection().findInfo(joinPath(folder, name)));
        } catch (const Error& error) {
            if (connection().isLost())
                throw;
            lookups.emplace_back(error);
        }
    }
    return lookups;
}

void HelperServer::carryOut(HelperOperation operation, QDataStream& arguments,
                            QDataStream& result) {
    const auto path = [&arguments] { return take<QString>(arguments); };
    switch (operation) {
    case HelperOperation::facts:
        result << lockdown().facts();
        return;
    case HelperOperation::apps:
        result << appsOf(lockdown());
        return;
    case HelperOperation::open:
        if (connection_)
            throw senseless();
        connection_ = std::make_unique<AFCConnection>(std::make_unique<Lockdown>(udid_), path());
        result << connection_->workingRootPath();
        return;
    case HelperOperation::names:
        result << connection().readNames(path());
        return;
    case HelperOperation::info:
        result << connection().findInfo(path());
        return;
    case HelperOperation::infos: {
        const QString folder = path();
        result << infosIn(folder, take<QStringList>(arguments));
        return;
    }
    case HelperOperation::freeBytes:
        result << std::optional<quint64>(connection().freeBytes());
        return;
    case HelperOperation::read:
    case HelperOperation::write:
        moveContent(operation, arguments, result);
        return;
    case HelperOperation::makeFolder:
        connection().makeDirectory(path());
        break;
    case HelperOperation::remove:
        connection().removePath(path());
        break;
    case HelperOperation::rename: {
        const QString from = path();
        connection().renamePath(from, path());
        break;
    }
    case HelperOperation::setDate: {
        const QString at = path();
        const auto date = QDateTime::fromMSecsSinceEpoch(take<qint64>(arguments), QTimeZone::utc());
        connection().setModifiedDate(at, date);
        break;
    }
    case HelperOperation::openFile: {
        const QString at = path();
        const afc_file_mode_t mode = modeOf(take<quint8>(arguments));
        file_.reset(); // closed before the next one is opened
        file_ = std::make_unique<AFCFile>(connection(), at, mode);
        break;
    }
    case HelperOperation::closeFile: {
        const auto closing = std::move(file_);
        if (!closing)
            throw nothingOpen();
        closing->close();
        break;
    }
    case HelperOperation::seek:
        file().seek(take<qint64>(arguments));
        break;
    default:
        throw senseless();
    }
    result << true; // every answer has a byte behind it at least
}

} // namespace tessary
