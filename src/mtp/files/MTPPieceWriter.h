#pragma once

#include "mtp/objects/MTPTree.h"
#include "phone/PhoneFileSystem.h"

#include <optional>
#include <vector>

namespace tessary {

/// Writes one large file in pieces, by edits in place, so that others get their turn in between and
/// what has arrived stays on the phone when the rest does not. A phone that announces edits and
/// refuses the first gets the file in one.
class MTPPieceWriter {
public:
    static constexpr qint64 pieceSize = qint64{8} << 20;
    /// Smaller files are sent in one: they keep their date everywhere.
    static constexpr qint64 smallestFile = qint64{64} << 20;
    /// After so many bytes the phone is told to take note of them.
    static constexpr qint64 checkpoint = qint64{64} << 20;

    /// A new file.
    MTPPieceWriter(const NewFile& file, const ByteSource& content, const ByteProgress& progress,
                   std::stop_token stop)
        : file_(file), content_(content), progress_(progress), stop_(std::move(stop)) {}
    /// The rest of one that is begun, behind its first `keptBytes`.
    MTPPieceWriter(const FileItem& begun, qint64 keptBytes, const NewFile& file,
                   const ByteSource& content, const ByteProgress& progress, std::stop_token stop)
        : MTPPieceWriter(file, content, progress, std::move(stop)) {
        begun_ = begun;
        offset_ = keptBytes;
        noted_ = keptBytes;
    }

    /// Takes the next step; false when it was the last one. The tree may be that of another session
    /// than before.
    [[nodiscard]] bool step(MTPTree& tree);
    /// The whole file, once step() was false.
    [[nodiscard]] const FileItem& made() const {
        return *begun_;
    }

private:
    void breakOff(MTPTree& tree) noexcept;
    void open(MTPTree& tree);
    void locate(MTPTree& tree, const MTPFound& folder);
    void sendPiece(MTPTree& tree);
    void sendWhole(MTPTree& tree);
    void finish(MTPTree& tree);
    void keep(const MTPObjectInfo& info, const MTPFound& folder);
    [[nodiscard]] QString path() const;
    [[nodiscard]] std::size_t fetch(std::span<std::byte> buffer);

    const NewFile& file_;
    const ByteSource& content_;
    const ByteProgress& progress_;
    const std::stop_token stop_;

    std::optional<FileItem> begun_; ///< as it was last seen
    std::uint32_t handle_ = 0;      ///< in the session of `serial_`
    std::uint64_t serial_ = 0;
    qint64 offset_ = 0;           ///< the phone has what lies before it
    qint64 noted_ = 0;            ///< the same, when the last edit ended
    bool isProven_ = false;       ///< the phone has taken a piece
    std::vector<std::byte> head_; ///< what was fetched until then
};

} // namespace tessary
