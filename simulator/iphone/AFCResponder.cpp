#include "simulator/iphone/AFCResponder.h"

#include "base/values/LittleEndian.h"
#include "simulator/wire/AFCRefusal.h"
#include "simulator/wire/Garbling.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace tessary {

using namespace Qt::StringLiterals;

namespace {

/// Longer requests, file content aside, are no requests.
constexpr std::uint64_t longestParameters = 64 * 1024;
/// A read answers at most this much, whatever it asks for.
constexpr std::uint64_t longestRead = 4 * 1024 * 1024;
/// Content is taken to the disk in pieces of this size.
constexpr std::uint64_t writeStep = 1024 * 1024;
constexpr std::size_t mostFiles = 256;
constexpr std::uint64_t noResources = 3;

} // namespace

std::uint64_t AFCResponder::Request::number(std::size_t index) const {
    if (parameters.size() < (index + 1) * sizeof(std::uint64_t))
        throw AFCRefusal{afc::invalidArg};
    return readLittleEndian<std::uint64_t>(parameters, index * sizeof(std::uint64_t));
}

std::string AFCResponder::Request::text(std::size_t numbers, std::size_t index) const {
    std::size_t at = numbers * sizeof(std::uint64_t);
    for (;; --index) {
        if (at >= parameters.size())
            throw AFCRefusal{afc::invalidArg};
        const auto begin = parameters.begin() + static_cast<std::ptrdiff_t>(at);
        const auto end = std::find(begin, parameters.end(), std::byte{0});
        if (index == 0)
            return {reinterpret_cast<const char*>(parameters.data()) + at,
                    static_cast<std::size_t>(end - begin)};
        at = static_cast<std::size_t>(end - parameters.begin()) + 1;
    }
}

AFCResponder::AFCResponder(VirtualIPhone& phone, PhoneStream& stream, PhoneContainer container)
    : phone_(phone), stream_(stream), container_(std::move(container)) {}

void AFCResponder::run() {
    while (const auto request = readRequest()) {
        if (!handle(*request))
            return;
    }
}

std::optional<AFCResponder::Request> AFCResponder::readRequest() {
    std::array<std::byte, AFCHeader::size> head{};
    if (!read(head))
        return std::nullopt;
    const auto header = AFCCodec::decodeHeader(head);
    if (!header)
        return std::nullopt;
    Request request{*header, AFCCodec::requestName(header->operation), {}};
    const bool isWrite = header->operation == static_cast<std::uint64_t>(AFCOperation::fileWrite);
    const std::uint64_t length = header->headLength - AFCHeader::size;
    // Only content may stand behind the head.
    if (length > longestParameters || (!isWrite && request.bulkLength() > longestParameters))
        return std::nullopt;
    request.parameters.resize(length + (isWrite ? 0 : request.bulkLength()));
    if (!read(request.parameters))
        return std::nullopt;
    return request;
}

QString AFCResponder::detail(const Request& request) const {
    try {
        switch (static_cast<AFCOperation>(request.header.operation)) {
        case AFCOperation::readDir:
        case AFCOperation::removePath:
        case AFCOperation::removePathAndContents:
        case AFCOperation::makeDir:
        case AFCOperation::getFileInfo:
            return QString::fromStdString(request.text(0));
        case AFCOperation::fileOpen:
        case AFCOperation::truncate:
        case AFCOperation::setFileModTime:
            return QString::fromStdString(request.text(1));
        case AFCOperation::renamePath:
            return QString::fromStdString(request.text(0) + " -> " + request.text(0, 1));
        default:
            return {};
        }
    } catch (const AFCRefusal&) {
        return {};
    }
}

bool AFCResponder::handle(const Request& request) {
    const auto operation = static_cast<AFCOperation>(request.header.operation);
    std::uint64_t length = 0;
    if (operation == AFCOperation::fileWrite)
        length = request.bulkLength();
    else if (operation == AFCOperation::fileRead && request.parameters.size() >= 16)
        length = request.number(1);
    if (!phone_.begin(stream_, request.name, detail(request), length))
        return false;
    const std::uint64_t refused = phone_.hooks().status(request.name);
    if (operation == AFCOperation::fileWrite)
        return writeFile(request, refused);
    if (refused != afc::success)
        return answerStatus(request, refused);
    try {
        return operation == AFCOperation::fileRead ? readFile(request) : perform(request);
    } catch (const AFCRefusal& refusal) {
        return answerStatus(request, refusal.status);
    }
}

bool AFCResponder::perform(const Request& request) {
    switch (static_cast<AFCOperation>(request.header.operation)) {
    case AFCOperation::readDir: {
        std::vector<std::string> names = container_.names(request.text(0));
        phone_.hooks().listing(names);
        return answerTexts(request, names);
    }
    case AFCOperation::getFileInfo: {
        const std::string path = request.text(0);
        return answerTexts(
            request, phone_.hooks().fileInfo(QString::fromStdString(path), container_.info(path)));
    }
    case AFCOperation::getDeviceInfo:
        return answerTexts(
            request, QStringList{u"Model"_s, phone_.config().productType, u"FSTotalBytes"_s,
                                 QString::number(phone_.config().capacity), u"FSFreeBytes"_s,
                                 QString::number(phone_.freeBytes()), u"FSBlockSize"_s, u"4096"_s});
    case AFCOperation::fileOpen:
        return answerNumber(request, AFCOperation::fileOpenResult, openFile(request));
    case AFCOperation::fileTell: {
        const off_t at = ::lseek(file(request).get(), 0, SEEK_CUR);
        return answerNumber(request, AFCOperation::fileTellResult, static_cast<std::uint64_t>(at));
    }
    case AFCOperation::fileSeek:
        seek(request);
        break;
    case AFCOperation::fileClose:
        (void)file(request);
        files_.erase(request.number(0));
        break;
    case AFCOperation::fileSetSize:
        container_.setSize(file(request), request.number(1));
        break;
    case AFCOperation::fileLock:
        (void)file(request);
        break;
    case AFCOperation::truncate:
        container_.setSize(request.text(1), request.number(0));
        break;
    case AFCOperation::removePath:
        container_.remove(request.text(0));
        break;
    case AFCOperation::removePathAndContents:
        container_.removeAll(request.text(0));
        break;
    case AFCOperation::makeDir:
        container_.makeFolder(request.text(0));
        break;
    case AFCOperation::renamePath:
        container_.rename(request.text(0), request.text(0, 1));
        break;
    case AFCOperation::setFileModTime:
        container_.setModified(request.text(1), request.number(0));
        break;
    default:
        return answerStatus(request, afc::opNotSupported);
    }
    return answerStatus(request, afc::success);
}

std::uint64_t AFCResponder::openFile(const Request& request) {
    if (files_.size() >= mostFiles)
        throw AFCRefusal{noResources};
    FileHandle opened = container_.open(request.text(1), request.number(0));
    files_.emplace(++lastFile_, std::move(opened));
    return lastFile_;
}

FileHandle& AFCResponder::file(const Request& request) {
    const auto found = files_.find(request.number(0));
    if (found == files_.end())
        throw AFCRefusal{afc::invalidArg};
    return found->second;
}

void AFCResponder::seek(const Request& request) {
    constexpr std::array whences{SEEK_SET, SEEK_CUR, SEEK_END};
    const std::uint64_t whence = request.number(1);
    const auto offset = static_cast<off_t>(request.number(2));
    if (whence >= whences.size() || ::lseek(file(request).get(), offset, whences[whence]) < 0)
        throw AFCRefusal{afc::invalidArg};
}

bool AFCResponder::readFile(const Request& request) {
    const std::uint64_t limit = phone_.hooks().longestRead();
    std::uint64_t length = std::min(request.number(1), longestRead);
    if (limit > 0)
        length = std::min(length, limit);
    const FileHandle& source = file(request);
    buffer_.resize(std::max<std::size_t>(buffer_.size(), AFCHeader::size + length));
    std::size_t got = 0;
    while (got < length) {
        const ssize_t more =
            ::read(source.get(), buffer_.data() + AFCHeader::size + got, length - got);
        if (more < 0 && errno == EINTR)
            continue;
        if (more < 0)
            throw AFCRefusal{errno == EBADF ? afc::permDenied : afc::readError};
        if (more == 0)
            break;
        got += static_cast<std::size_t>(more);
    }
    if (got > 0 && phone_.hooks().garbles())
        garble(std::span(buffer_).subspan(AFCHeader::size));
    // The head goes out in one piece with the content.
    const auto head =
        AFCCodec::encodeHeader({AFCHeader::size + got, AFCHeader::size, request.header.number,
                                static_cast<std::uint64_t>(AFCOperation::data)});
    std::copy(head.begin(), head.end(), buffer_.begin());
    return slowDown(got) && phone_.answering(stream_, request.name) &&
           write(ByteView(buffer_).first(AFCHeader::size + got));
}

bool AFCResponder::writeFile(const Request& request, std::uint64_t refusal) {
    std::uint64_t status = refusal;
    const FileHandle* target = nullptr;
    const auto attempt = [&status](auto&& work) {
        try {
            if (status == afc::success)
                work();
        } catch (const AFCRefusal& refused) {
            status = refused.status;
        }
    };
    attempt([&] { target = &file(request); });
    buffer_.resize(std::max<std::size_t>(
        buffer_.size(), static_cast<std::size_t>(std::min(request.bulkLength(), writeStep))));
    // Content that is refused still has to be taken in: the next request comes after it.
    for (std::uint64_t left = request.bulkLength(); left > 0;) {
        const auto piece =
            std::span(buffer_).first(static_cast<std::size_t>(std::min(left, writeStep)));
        if (!read(piece))
            return false;
        if (phone_.hooks().garbles())
            garble(piece);
        attempt([&] { container_.write(*target, piece); });
        left -= piece.size();
        if (!slowDown(piece.size()))
            return false;
    }
    return answerStatus(request, status);
}

bool AFCResponder::slowDown(std::uint64_t bytes) {
    const double speed = phone_.hooks().megabytesPerSecond();
    if (speed <= 0)
        return true;
    return stream_.pause(std::chrono::milliseconds(
        static_cast<std::int64_t>(static_cast<double>(bytes) / speed / 1000)));
}

bool AFCResponder::answerStatus(const Request& request, std::uint64_t status) {
    return answerNumber(request, AFCOperation::status, status);
}

bool AFCResponder::answerNumber(const Request& request, AFCOperation kind, std::uint64_t number) {
    constexpr std::uint64_t length = AFCHeader::size + sizeof number;
    const auto head = AFCCodec::encodeHeader(
        {length, length, request.header.number, static_cast<std::uint64_t>(kind)});
    Bytes packet(head.begin(), head.end());
    appendLittleEndian(packet, number);
    return phone_.answering(stream_, request.name) && write(packet);
}

bool AFCResponder::answerTexts(const Request& request, const std::vector<std::string>& texts) {
    std::size_t length = AFCHeader::size;
    for (const std::string& text : texts)
        length += text.size() + 1;
    // Texts stand outside the head, as content does.
    const auto head = AFCCodec::encodeHeader({length, AFCHeader::size, request.header.number,
                                              static_cast<std::uint64_t>(AFCOperation::data)});
    Bytes packet(head.begin(), head.end());
    packet.reserve(length);
    for (const std::string& text : texts) {
        const auto* bytes = reinterpret_cast<const std::byte*>(text.c_str());
        packet.insert(packet.end(), bytes, bytes + text.size() + 1);
    }
    return phone_.answering(stream_, request.name) && write(packet);
}

bool AFCResponder::answerTexts(const Request& request, const QStringList& texts) {
    std::vector<std::string> bytes;
    for (const QString& text : texts)
        bytes.push_back(text.toStdString());
    return answerTexts(request, bytes);
}

bool AFCResponder::read(std::span<std::byte> bytes) {
    std::optional<VirtualCut> cut;
    const std::size_t now = phone_.hooks().allowed(VirtualDirection::toPhone, bytes.size(), cut);
    if (!stream_.read(bytes.first(now)))
        return false;
    return !cut || phone_.cut(stream_, *cut);
}

bool AFCResponder::write(ByteView bytes) {
    std::optional<VirtualCut> cut;
    const std::size_t now = phone_.hooks().allowed(VirtualDirection::toHost, bytes.size(), cut);
    if (!stream_.write(bytes.first(now)))
        return false;
    return !cut || phone_.cut(stream_, *cut);
}

} // namespace tessary
