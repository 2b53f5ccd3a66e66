#pragma once

#include "base/local/FileHandle.h"
#include "platform/process/ChildChannel.h"
#include "preview/Picture.h"

#include <chrono>
#include <stop_token>

namespace tessary {

/// Decodes pictures and pages of documents in a child process that gets the open file and a pipe,
/// little memory and time, and nothing else of this computer: it can do no harm when a picture has
/// taken it over. Thread-safe and blocking: not for the main thread.
class PictureDecoder {
public:
    static constexpr std::chrono::milliseconds defaultLimit{60'000};

    /// `program` is the decoding program's path; by default the one that comes with this program.
    explicit PictureDecoder(QString program = installedHelper(QStringLiteral("tessary-decode")),
                            std::chrono::milliseconds limit = defaultLimit);

    static constexpr qint64 longestFile = 400'000'000; ///< bytes

    /// PictureError for what cannot be decoded within the limits (PictureTimeoutError for the limit
    /// of time), CancellationError once `stop` asks for it.
    [[nodiscard]] Picture decode(const PictureRequest& request, const std::stop_token& stop) const;

    /// The same for the bytes of a file.
    [[nodiscard]] Picture decode(const QByteArray& bytes, int maxSide,
                                 const std::stop_token& stop) const;

    /// The same for an open file, from its beginning.
    [[nodiscard]] Picture decode(const FileHandle& file, int maxSide, int page,
                                 const std::stop_token& stop) const;

private:
    QString program_;
    std::chrono::milliseconds limit_;
};

} // namespace tessary
