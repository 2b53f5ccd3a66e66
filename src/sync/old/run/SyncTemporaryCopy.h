#pragma once

#include "sync/old/run/SyncLocalFolder.h"

#include <QString>

namespace tessary {

/// A temporary file of the local folder; removed unless it was put in place.
class SyncTemporaryCopy {
public:
    SyncTemporaryCopy(SyncLocalFolder& folder, const QString& relativePath)
        : folder_(folder), path_(folder.temporaryPathFor(relativePath)) {}
    ~SyncTemporaryCopy() {
        folder_.discard(path_);
    }
    SyncTemporaryCopy(const SyncTemporaryCopy&) = delete;
    SyncTemporaryCopy& operator=(const SyncTemporaryCopy&) = delete;

    [[nodiscard]] const QString& path() const {
        return path_;
    }

private:
    SyncLocalFolder& folder_;
    const QString path_;
};

} // namespace tessary
