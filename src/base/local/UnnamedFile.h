#pragma once

#include "base/local/FileHandle.h"
#include "base/values/Bytes.h"

#include <QString>

namespace tessary {

/// A file without a name in this user's cache: it goes with the program however that ends. One
/// thread writes; any may read what is written. Throws LocalError::cannotWrite, ::noRoomOnTheWay,
/// and what PrivateFolder throws.
class UnnamedFile {
public:
    /// In the cache's folder of this name.
    explicit UnnamedFile(const QString& folder);

    /// Writes all of it at the end.
    void append(ByteView bytes);
    /// What lies at `offset`; less than asked for only at the end.
    [[nodiscard]] std::size_t readAt(qint64 offset, std::span<std::byte> into) const;

private:
    [[noreturn]] void fail(int reason) const;

    QString folder_; ///< absolute
    FileHandle file_;
};

} // namespace tessary
