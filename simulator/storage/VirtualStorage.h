#pragma once

#include <QString>

#include <cstdint>

namespace tessary {

/// One storage of a virtual phone, backed by a folder: the bytes on disk are the truth. Links and
/// special files in it do not show on the phone.
struct VirtualStorage {
    QString folder; ///< absolute; created when it is missing
    QString description = QStringLiteral("Internal shared storage");
    QString volumeIdentifier;
    bool removable = false; ///< a memory card: storage type 4 instead of 3
    bool readOnly = false;
    std::uint64_t capacity = std::uint64_t{128} << 30; ///< bytes
    /// Bytes; falls and rises with what the host sends and deletes.
    std::uint64_t free = std::uint64_t{64} << 30;
};

} // namespace tessary
