#include "simulator/wire/AFCCodec.h"

#include "base/values/LittleEndian.h"

#include <algorithm>
#include <cstring>

namespace tessary {

namespace {

constexpr char magic[] = "CFA6LPAA";

struct NameRow {
    AFCOperation operation;
    const char* name;
};

constexpr std::array names{
    NameRow{AFCOperation::readDir, "readDir"},
    NameRow{AFCOperation::truncate, "truncate"},
    NameRow{AFCOperation::removePath, "removePath"},
    NameRow{AFCOperation::makeDir, "makeDir"},
    NameRow{AFCOperation::getFileInfo, "getFileInfo"},
    NameRow{AFCOperation::getDeviceInfo, "getDeviceInfo"},
    NameRow{AFCOperation::fileOpen, "fileOpen"},
    NameRow{AFCOperation::fileRead, "fileRead"},
    NameRow{AFCOperation::fileWrite, "fileWrite"},
    NameRow{AFCOperation::fileSeek, "fileSeek"},
    NameRow{AFCOperation::fileTell, "fileTell"},
    NameRow{AFCOperation::fileClose, "fileClose"},
    NameRow{AFCOperation::fileSetSize, "fileSetSize"},
    NameRow{AFCOperation::renamePath, "renamePath"},
    NameRow{AFCOperation::fileLock, "fileLock"},
    NameRow{AFCOperation::setFileModTime, "setFileModTime"},
    NameRow{AFCOperation::removePathAndContents, "removePathAndContents"},
};

} // namespace

std::optional<AFCHeader> AFCCodec::decodeHeader(ByteView bytes) {
    if (bytes.size() < AFCHeader::size || std::memcmp(bytes.data(), magic, 8) != 0)
        return std::nullopt;
    AFCHeader header;
    header.packetLength = readLittleEndian<std::uint64_t>(bytes, 8);
    header.headLength = readLittleEndian<std::uint64_t>(bytes, 16);
    header.number = readLittleEndian<std::uint64_t>(bytes, 24);
    header.operation = readLittleEndian<std::uint64_t>(bytes, 32);
    if (header.headLength < AFCHeader::size || header.packetLength < header.headLength)
        return std::nullopt;
    return header;
}

std::array<std::byte, AFCHeader::size> AFCCodec::encodeHeader(const AFCHeader& header) {
    Bytes bytes;
    bytes.reserve(AFCHeader::size);
    for (const char* each = magic; *each != '\0'; ++each)
        bytes.push_back(static_cast<std::byte>(*each));
    appendLittleEndian(bytes, header.packetLength);
    appendLittleEndian(bytes, header.headLength);
    appendLittleEndian(bytes, header.number);
    appendLittleEndian(bytes, header.operation);
    std::array<std::byte, AFCHeader::size> encoded{};
    std::copy(bytes.begin(), bytes.end(), encoded.begin());
    return encoded;
}

QString AFCCodec::requestName(std::uint64_t operation) {
    const auto row = std::find_if(names.begin(), names.end(), [operation](const NameRow& each) {
        return static_cast<std::uint64_t>(each.operation) == operation;
    });
    return QStringLiteral("afc.") +
           (row != names.end() ? QString::fromLatin1(row->name) : QString::number(operation));
}

} // namespace tessary
