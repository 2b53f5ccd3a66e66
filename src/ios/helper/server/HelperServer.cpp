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

std::optional<afc_file_mode_t> modeOf(quint8 mode) {
    switch (static_cast<AFCFileMode>(mode)) {
    case AFCFileMode::read:
        return AFC_FOPEN_RDONLY;
    case AFCFileMode::create:
        return AFC_FOPEN_WR;
    case AFCFileMode::change:
        return AFC_FOPEN_RW;
    }
    return std::nullopt;
}

template <typename... Values>
bool read(QDataStream& stream, Values&... values) {
    (stream >> ... >> values);
    return stream.status() == QDataStream::Ok;
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
    quint8 operation = 0;
    bool wentWell = false;
    try {
        if (refusesAll_)
            throw Error(PhoneError::notReachable, {},
                        Error(IPhoneError::helper, {QStringLiteral("another version")}));
        wentWell = read(arguments, operation) &&
                   carryOut(static_cast<HelperOperation>(operation), arguments, results);
        if (!wentWell)
            results << Error(PhoneError::notSupported);
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

bool HelperServer::moveContent(HelperOperation operation, QDataStream& arguments,
                               QDataStream& result) {
    quint32 offset = 0;
    quint32 size = 0;
    if (!read(arguments, offset, size) || offset > contentMemory || size > contentMemory - offset)
        return false;
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
    return true;
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

bool HelperServer::carryOut(HelperOperation operation, QDataStream& arguments,
                            QDataStream& result) {
    QString path;
    QString target;
    qint64 number = 0;
    switch (operation) {
    case HelperOperation::facts:
        result << lockdown().facts();
        return true;
    case HelperOperation::apps:
        result << AppLister::appsOf(lockdown());
        return true;
    case HelperOperation::open:
        if (!read(arguments, path) || connection_)
            return false;
        connection_ = std::make_unique<AFCConnection>(std::make_unique<Lockdown>(udid_), path);
        result << connection_->workingRootPath();
        return true;
    case HelperOperation::names:
        if (!read(arguments, path))
            return false;
        result << connection().readNames(path);
        return true;
    case HelperOperation::info:
        if (!read(arguments, path))
            return false;
        result << connection().findInfo(path);
        return true;
    case HelperOperation::infos: {
        QStringList names;
        if (!read(arguments, path, names))
            return false;
        result << infosIn(path, names);
        return true;
    }
    case HelperOperation::freeBytes:
        result << connection().freeBytes();
        return true;
    case HelperOperation::makeFolder:
        if (!read(arguments, path))
            return false;
        connection().makeDirectory(path);
        break;
    case HelperOperation::remove:
        if (!read(arguments, path))
            return false;
        connection().removePath(path);
        break;
    case HelperOperation::rename:
        if (!read(arguments, path, target))
            return false;
        connection().renamePath(path, target);
        break;
    case HelperOperation::setDate:
        if (!read(arguments, path, number))
            return false;
        connection().setModifiedDate(path,
                                     QDateTime::fromMSecsSinceEpoch(number, QTimeZone::utc()));
        break;
    case HelperOperation::openFile: {
        quint8 wanted = 0;
        if (!read(arguments, path, wanted))
            return false;
        const auto mode = modeOf(wanted);
        if (!mode)
            return false;
        file_.reset(); // closed before the next one is opened
        file_ = std::make_unique<AFCFile>(connection(), path, *mode);
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
        if (!read(arguments, number))
            return false;
        file().seek(number);
        break;
    case HelperOperation::read:
    case HelperOperation::write:
        return moveContent(operation, arguments, result);
    default:
        return false;
    }
    result << true;
    return true;
}

} // namespace tessary
