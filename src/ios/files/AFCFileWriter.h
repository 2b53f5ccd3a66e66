#pragma once

#include "ios/files/AFCPieces.h"
#include "phone/PhoneFileSystem.h"

#include <functional>
#include <optional>
#include <stop_token>

namespace tessary {

/// Writes one file, in pieces: the next one is fetched while the phone takes one. Between two of
/// them the file can be closed, for others to use the phone. What has arrived stays when the rest
/// does not, where that is wished.
class AFCFileWriter {
public:
    /// A new file at a path below the container's root, or what comes behind the first `keptBytes`
    /// of one that is there. All but `stop` outlive it.
    AFCFileWriter(AFCSession& session, QString path, const NewFile& file,
                  std::optional<qint64> keptBytes, const ByteSource& content,
                  const ByteProgress& progress, std::stop_token stop);

    /// Writes on, by who has the phone's turn: one piece at least, and until `isDue` says that the
    /// turn is to go to others. False when that was all. PhoneError::changed when the file is
    /// shorter than it was.
    [[nodiscard]] bool step(const std::function<bool()>& isDue);
    /// The whole file, once step() was false.
    [[nodiscard]] const FileItem& made() const {
        return *made_;
    }
    /// Cleans up after a failure. Nobody waits for it.
    void abandon() {
        session_.abandon(unfinished_);
    }

private:
    [[nodiscard]] AFCPieces open();
    [[nodiscard]] bool send(const AFCPieces& pieces, const std::function<bool()>& isDue);
    [[nodiscard]] AFCFlight give(const std::shared_ptr<AFCPiece>& piece);
    void land(const AFCFlight& flight);
    void finish();

    AFCSession& session_;
    const QString path_;
    const NewFile& file_;
    const ByteSource& content_;
    const ByteProgress& progress_;
    const std::stop_token stop_;
    const AFCSession::Unfinished unfinished_; ///< null where what is there stays
    bool isThere_;                            ///< and only to be gone on with
    qint64 offset_;                           ///< the phone has what lies before it
    PieceSize size_;
    std::optional<FileItem> made_;
};

} // namespace tessary
