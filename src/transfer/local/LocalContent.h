#pragma once

#include "base/local/FileHandle.h"
#include "phone/PhoneFileSystem.h"

namespace tessary {

/// Hands out the bytes of an open file, piece by piece, and returns how many there were: fewer than
/// asked for at its end. `path` is for errors: LocalError::cannotRead. CancellationError.
qint64 readContent(const FileHandle& file, const QString& path, ByteRange range,
                   const ByteSink& sink, const std::stop_token& stop);

/// The bytes of an open file from `offset` on, drawn as a ByteSource. The disk is asked for what
/// comes next before it is drawn. Drawing throws as readContent() does.
ByteSource drawContent(FileHandle file, const QString& path, qint64 offset,
                       const std::stop_token& stop);

/// Writes all that `content` gives to where an open file stands, which is after its first `done`
/// bytes. The progress counts those, too. LocalError::cannotWrite, ::full; CancellationError.
void writeContent(const FileHandle& file, const QString& path, qint64 done,
                  const ByteSource& content, const ByteProgress& progress,
                  const std::stop_token& stop);

} // namespace tessary
