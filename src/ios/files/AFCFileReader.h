#pragma once

#include "ios/files/AFCPieces.h"
#include "phone/PhoneFileSystem.h"

#include <functional>
#include <stop_token>

namespace tessary {

/// Reads a range of one file, in pieces: the phone is at work on one while the caller deals with
/// the next. Between two of them the file can be closed, for others to use the phone. A file that
/// still has the size that was listed takes three requests when it fits into a piece.
class AFCFileReader {
public:
    /// `path` is below the container's root. All but `stop` outlive it.
    AFCFileReader(AFCSession& session, QString path, const FileItem& file, ByteRange range,
                  const ByteSink& sink, std::stop_token stop);

    /// Reads on, by who has the phone's turn: one piece at least, and until `isDue` says that the
    /// turn is to go to others. False when that was all. PhoneError::changed when the file is
    /// another one than was listed once others have had a turn.
    [[nodiscard]] bool step(const std::function<bool()>& isDue);
    /// The number of bytes that were handed on.
    [[nodiscard]] qint64 received() const {
        return received_;
    }

private:
    /// What is left of the range, and how much of it is worth asking for at a time.
    class Wanted {
    public:
        Wanted(ByteRange range, qint64 expected);

        /// Bytes to ask for now, beside those that are on their way; 0 for none.
        [[nodiscard]] std::size_t next() const;
        void asked(std::size_t bytes) {
            onTheWay_ += static_cast<qint64>(bytes);
        }
        void took(std::size_t asked, std::size_t count, std::chrono::steady_clock::duration time);

    private:
        qint64 left_;
        qint64 announced_; ///< negative once there is more than was announced
        qint64 onTheWay_ = 0;
        bool isOver_ = false;
        PieceSize size_;
    };

    [[nodiscard]] AFCPieces open();
    void receive(const AFCPieces& pieces, const std::function<bool()>& isDue);
    [[nodiscard]] AFCFlight askFor(const std::shared_ptr<AFCPiece>& piece, std::size_t size);

    AFCSession& session_;
    const QString path_;
    const FileItem& file_;
    const qint64 offset_;
    const ByteSink& sink_;
    const std::stop_token stop_;
    Wanted wanted_;
    qint64 received_ = 0;
    bool isBegun_ = false;
};

} // namespace tessary
