#pragma once

#include "mtp/files/MTPConnection.h"
#include "phone/PhoneFileSystem.h"

namespace tessary {

/// Reads one file in steps, so that others get their turn in between: pieces of a large one or of a
/// range, where the phone hands out parts; else all in one step.
class MTPFileReader {
public:
    /// What one step takes, and up to where a file is read in one.
    static constexpr qint64 pieceSize = qint64{8} << 20;
    static constexpr qint64 largestWhole = qint64{32} << 20;

    MTPFileReader(const FileItem& file, ByteRange range, const ByteSink& sink,
                  std::stop_token stop);

    /// Takes the next step; false when it was the last one. The tree may be that of another session
    /// than before. `parts` becomes `none` when the phone does not do what it announced.
    [[nodiscard]] bool step(MTPTree& tree, MTPPartialReads& parts);
    /// Bytes of the range that the sink has.
    [[nodiscard]] qint64 received() const {
        return received_;
    }

private:
    void confirm(MTPTree& tree);
    [[nodiscard]] qint64 end() const;
    [[nodiscard]] bool readPiece(MTPTree& tree, MTPPartialReads parts);
    void readWhole(MTPTree& tree);
    void hand(ByteView bytes);

    const FileItem& file_;
    const ByteRange range_;
    const ByteSink& sink_;
    const std::stop_token stop_;

    std::optional<MTPObjectInfo> info_; ///< as it was at the first step
    std::uint32_t handle_ = 0;          ///< in the session of `serial_`
    std::uint64_t serial_ = 0;
    qint64 received_ = 0;
    bool isSizeWrong_ = false; ///< the phone gave less than the size that it tells, or more
};

} // namespace tessary
