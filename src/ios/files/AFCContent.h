#pragma once

#include "ios/files/AFCSession.h"
#include "phone/PhoneFileSystem.h"

namespace tessary {

// The content of one file, in pieces: the phone is at work on one while the caller deals with the
// next. Called by who has the phone's turn, as one action of the session; callbacks are called on
// the caller's thread.

/// Reads a range of a file at a path below the container's root. `expected` is the size that was
/// listed: a file that still has it takes three requests when it fits into a piece. Returns the
/// number of bytes.
qint64 readContent(AFCSession& session, const QString& path, qint64 expected, ByteRange range,
                   const ByteSink& sink, const std::stop_token& stop);

/// Sends all of `content` into the session's open file. Returns the number of bytes.
qint64 sendContent(AFCSession& session, const ByteSource& content, const ByteProgress& progress,
                   const std::stop_token& stop);

} // namespace tessary
