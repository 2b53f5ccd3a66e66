#pragma once

#include "adb/protocol/ADBSyncCodec.h"
#include "adb/services/ADBReader.h"
#include "adb/services/ADBStream.h"

#include <QByteArray>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tessary {

/// One stream to a phone's sync service, for many requests one after another. Paths are the phone's
/// bytes. Used by one thread at a time. A request that failed may have ended the stream:
/// isUsable().
class ADBSyncClient {
public:
    struct Features {
        bool hasNewStat = false;
        bool hasNewList = false;

        [[nodiscard]] static Features of(const QByteArrayList& names);
    };

    /// The longest path that phones take.
    static constexpr qsizetype longestPath = 1024;
    /// A file's content travels in pieces of at most so many bytes.
    static constexpr std::size_t largestPiece = 64 * 1024;

    ADBSyncClient(std::unique_ptr<ADBStream> stream, Features features);

    /// Between two requests: whether the stream can take another one.
    [[nodiscard]] bool isUsable() const {
        return isSound_ && !reader_.hasBytes();
    }
    /// Whether nothing has come back for the last request.
    [[nodiscard]] bool isUnanswered() const {
        return reader_.received() == receivedBefore_;
    }
    [[nodiscard]] const Features& features() const {
        return features_;
    }

    struct Question {
        QByteArray path;
        bool follows = false; ///< a link at the end of the path
    };
    /// What is at each path, in one round trip. What is not there has an error of ENOENT. Old
    /// phones look through a link only to a folder: what any other link leads to is ENOENT there.
    [[nodiscard]] std::vector<ADBFacts> stat(const std::vector<Question>& questions,
                                             const Wait& wait);

    /// Hands the entries of a folder to `entry` in the phone's order, with "." and "..", links not
    /// followed. A folder that cannot be read has none. Names are hostile. Returns only when the
    /// phone has said that this was all; more than mostEntries are ADBError::nonsense.
    void list(const QByteArray& path,
              const std::function<void(const ADBFacts& facts, QByteArray&& name)>& entry,
              const Wait& wait);

    /// Looks at a path through links, and then hands a file's content to `sink` until `sink` says
    /// that it is enough (false; the stream is of no more use then). `check` sees the facts before
    /// any content is taken. Returns the number of bytes handed over.
    std::uint64_t receive(const QByteArray& path,
                          const std::function<void(const ADBFacts& facts)>& check,
                          const std::function<bool(ByteView)>& sink, const Wait& wait);

    /// Makes a file, or replaces one, with what `source` fills buffers with until it returns 0, and
    /// says what is at the path then. `sent` is told the bytes handed over so far.
    ADBFacts send(const QByteArray& path, std::uint32_t mode,
                  const std::function<std::size_t(std::span<std::byte>)>& source,
                  std::uint32_t modified, const std::function<void(std::uint64_t)>& sent,
                  const Wait& wait);

    /// No phone's folder has so many: one that goes on beyond that never ends.
    static constexpr std::size_t mostEntries = 1'000'000;

    struct SmallFile {
        QByteArray path;
        QByteArray content;
        std::uint32_t modified = 0; ///< seconds since 1970-01-01 UTC
    };
    /// Makes files without waiting for the phone in between: at most `mostTogether` of them, whose
    /// answers fit into any buffer on the way. Of what the phone refuses nothing is left, and the
    /// others may or may not be there.
    void sendTogether(const std::vector<SmallFile>& files, std::uint32_t mode,
                      const std::function<void(std::uint64_t)>& sent, const Wait& wait);

    static constexpr std::size_t mostTogether = 64;

    struct Wanted {
        QByteArray path;
        qint64 size = 0; ///< bytes
    };
    /// The whole contents of files, several of which are asked for at a time. Ends at the first one
    /// that is refused, or has another size than the one that is wanted: it and those after it have
    /// no value.
    [[nodiscard]] std::vector<std::optional<QByteArray>>
    receiveTogether(const std::vector<Wanted>& files, const Wait& wait);

    /// Gives up a request in the middle, and waits, for at most `limit`, until the phone has taken
    /// all that it was sent and has ended the stream: nothing of it changes the phone from then on.
    /// Of a file that was not sent whole nothing stays. Of no more use afterwards.
    void end(std::chrono::milliseconds limit);

private:
    void beginRequest() {
        isSound_ = false;
        receivedBefore_ = reader_.received();
    }
    /// What every answer begins with.
    struct Front {
        ADBSyncCommand command;
        std::uint32_t length;
    };
    [[nodiscard]] Front takeFront(const Wait& wait);
    void appendStat(Bytes& bytes, const Question& question) const;
    [[nodiscard]] ADBFacts takeStat(const Question& question, const Wait& wait);
    void writeOut(const Bytes& bytes, const Wait& wait);
    void writeContent(const QByteArray& path, const Bytes& bytes, const Wait& wait);
    [[noreturn]] void throwFailure(const QByteArray& path, std::uint32_t length, const Wait& wait);
    void throwIfAnswered(const QByteArray& path, const Wait& wait);
    [[nodiscard]] std::optional<QByteArray> takeContent(const Wanted& file, const Wait& wait);
    void takeOkay(const QByteArray& path, const Wait& wait);

    const std::unique_ptr<ADBStream> stream_;
    ADBReader reader_;
    const Features features_;
    bool isSound_ = true;              ///< no request was left in the middle
    Bytes unsent_;                     ///< of a record that was stopped in the middle
    std::uint64_t receivedBefore_ = 0; ///< bytes, when the last request began
};

} // namespace tessary
