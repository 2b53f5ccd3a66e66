#pragma once

#include "phone/PhoneFileSystem.h"

#include <array>
#include <functional>

namespace tessary {

/// What fills a storage, as far as its files tell. A value.
struct StorageUse {
    enum class Kind { photos, videos, music, apps, other };

    std::array<qint64, 5> bytes{}; ///< by Kind
    bool isWhole = false;          ///< all of it was looked at

    [[nodiscard]] qint64 of(Kind kind) const {
        return bytes[static_cast<std::size_t>(kind)];
    }
};

/// Adds up the files below the root of a storage, folder by folder, and tells after each how much
/// it is by then. In spare turns: whoever wants the phone gets it, in the middle of a folder, too,
/// which is then begun anew, or left out when that happens again and again. What cannot be read is
/// left out. Blocking; throws what ends everything else on the phone, and CancellationError.
StorageUse measureUse(PhoneFileSystem& files, const QString& root,
                      const std::function<void(const StorageUse&)>& progress,
                      const std::stop_token& stop);

} // namespace tessary
