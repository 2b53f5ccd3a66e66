#include "adb/services/ADBSyncClient.h"

#include "adb/protocol/ADBError.h"
#include "base/threads/CancellationError.h"
#include "base/threads/Deadline.h"
#include "base/values/LittleEndian.h"

#include <algorithm>

namespace tessary {

namespace {

using enum ADBSyncCommand;
using Codec = ADBSyncCodec;

constexpr std::size_t frontSize = 8; // word and length
constexpr std::uint32_t notThere = 2;

std::uint32_t word(ADBSyncCommand command) {
    return static_cast<std::uint32_t>(command);
}

void append(Bytes& bytes, const Bytes& more) {
    bytes.insert(bytes.end(), more.begin(), more.end());
}

QString shown(const QByteArray& path) {
    return QString::fromUtf8(path);
}

void requirePath(const QByteArray& path, qsizetype longest = ADBSyncClient::longestPath) {
    if (path.size() > longest)
        throw Error(ADBError::pathTooLong, {shown(path)});
}

[[noreturn]] void throwNonsense(const char* what) {
    throw Error(ADBError::nonsense, {QString::fromLatin1(what)});
}

} // namespace

ADBSyncClient::Features ADBSyncClient::Features::of(const QByteArrayList& names) {
    return {names.contains("stat_v2"), names.contains("ls_v2")};
}

ADBSyncClient::ADBSyncClient(std::unique_ptr<ADBStream> stream, Features features)
    : stream_(std::move(stream)), reader_(*stream_), features_(features) {}

void ADBSyncClient::appendStat(Bytes& bytes, const Question& question) const {
    if (features_.hasNewStat)
        return append(bytes, Codec::request(question.follows ? sta2 : lst2, question.path));
    // The old request looks at a link itself, unless the path ends in "/".
    append(bytes, Codec::request(ADBSyncCommand::stat, question.path));
    if (question.follows)
        append(bytes, Codec::request(ADBSyncCommand::stat, question.path + '/'));
}

ADBFacts ADBSyncClient::takeStat(const Question& question, const Wait& wait) {
    const auto takeOld = [&] {
        const auto facts = Codec::oldStat(reader_.take(Codec::oldStatSize, wait));
        if (!facts)
            throwNonsense("an answer to STAT");
        return *facts;
    };
    if (features_.hasNewStat) {
        const auto facts = Codec::newStat(reader_.take(Codec::newStatSize, wait));
        if (!facts)
            throwNonsense("an answer to LST2");
        return *facts;
    }
    ADBFacts itself = takeOld();
    if (!question.follows)
        return itself;
    const ADBFacts target = takeOld();
    if (target.error == 0 && target.isFolder())
        return target;
    if (itself.isLink())
        itself.error = notThere;
    return itself;
}

ADBSyncClient::Front ADBSyncClient::takeFront(const Wait& wait) {
    const ByteView front = reader_.take(frontSize, wait);
    return {ADBSyncCommand{readLittleEndian<std::uint32_t>(front, 0)},
            readLittleEndian<std::uint32_t>(front, Codec::wordSize)};
}

std::vector<ADBFacts> ADBSyncClient::stat(const std::vector<Question>& questions,
                                          const Wait& wait) {
    // So many that neither side's buffers fill up while nobody reads.
    constexpr std::size_t atOnce = 64;
    for (const Question& question : questions)
        requirePath(question.path, longestPath - 1);
    std::vector<ADBFacts> answers;
    for (std::size_t begin = 0; begin < questions.size(); begin += atOnce) {
        const std::size_t end = std::min(begin + atOnce, questions.size());
        Bytes requests;
        for (std::size_t n = begin; n < end; ++n)
            appendStat(requests, questions[n]);
        beginRequest();
        stream_->write(requests, wait);
        for (std::size_t n = begin; n < end; ++n)
            answers.push_back(takeStat(questions[n], wait));
        isSound_ = true;
    }
    return answers;
}

void ADBSyncClient::list(const QByteArray& path,
                         const std::function<void(const ADBFacts& facts, QByteArray&& name)>& entry,
                         const Wait& wait) {
    constexpr std::uint32_t longestName = 4096;
    requirePath(path);
    beginRequest();
    stream_->write(Codec::request(features_.hasNewList ? lis2 : ADBSyncCommand::list, path), wait);
    std::size_t entries = 0;
    for (;;) {
        const auto front = features_.hasNewList
                               ? Codec::newEntry(reader_.take(Codec::newEntrySize, wait))
                               : Codec::oldEntry(reader_.take(Codec::oldEntrySize, wait));
        if (!front || front->nameLength > longestName)
            throwNonsense("an entry of a listing");
        if (front->isDone)
            break;
        if (++entries > mostEntries)
            throwNonsense("a listing without an end");
        const ByteView name = reader_.take(front->nameLength, wait);
        entry(front->facts, QByteArrayView(name).toByteArray());
    }
    isSound_ = true;
}

std::uint64_t ADBSyncClient::receive(const QByteArray& path,
                                     const std::function<void(const ADBFacts& facts)>& check,
                                     const std::function<bool(ByteView)>& sink, const Wait& wait) {
    requirePath(path, longestPath - 1);
    const Question question{path, true};
    Bytes requests;
    appendStat(requests, question);
    append(requests, Codec::request(recv, path));
    beginRequest();
    stream_->write(requests, wait);
    check(takeStat(question, wait));
    std::uint64_t received = 0;
    for (;;) {
        auto [command, left] = takeFront(wait);
        if (command == fail)
            throwFailure(path, left, wait);
        if (command == done)
            break;
        if (command != data || left == 0) // without an end, maybe
            throwNonsense("a piece of a file");
        while (left > 0) {
            const ByteView piece = reader_.takeSome(left, wait);
            left -= static_cast<std::uint32_t>(piece.size());
            received += piece.size();
            if (!sink(piece))
                return received;
        }
    }
    isSound_ = true;
    return received;
}

ADBFacts ADBSyncClient::send(const QByteArray& path, std::uint32_t mode,
                             const std::function<std::size_t(std::span<std::byte>)>& source,
                             std::uint32_t modified, const std::function<void(std::uint64_t)>& sent,
                             const Wait& wait) {
    const QByteArray target = path + ',' + QByteArray::number(mode);
    requirePath(target);
    // What is left to be written: a record's front and its content go out together, and so do the
    // first and the last of a small file with all that belongs to them.
    Bytes pending = Codec::request(ADBSyncCommand::send, target);
    beginRequest();
    std::uint64_t total = 0;
    for (;;) {
        throwIfAnswered(path, wait);
        const std::size_t at = pending.size();
        pending.resize(at + frontSize + largestPiece);
        const std::size_t count = source(std::span(pending).subspan(at + frontSize, largestPiece));
        pending.resize(at + (count == 0 ? 0 : frontSize + count));
        if (count == 0)
            break;
        Bytes front;
        appendLittleEndian(front, word(data));
        appendLittleEndian(front, static_cast<std::uint32_t>(count));
        std::copy(front.begin(), front.end(), pending.begin() + static_cast<std::ptrdiff_t>(at));
        total += count;
        if (pending.size() > largestPiece) {
            writeContent(path, pending, wait);
            pending.clear();
            sent(total);
        }
    }
    append(pending, Codec::doneRecord(modified));
    const Question question{path, false};
    appendStat(pending, question);
    writeContent(path, pending, wait);
    sent(total);
    takeOkay(path, wait);
    const ADBFacts facts = takeStat(question, wait);
    isSound_ = true;
    return facts;
}

void ADBSyncClient::sendTogether(const std::vector<SmallFile>& files, std::uint32_t mode,
                                 const std::function<void(std::uint64_t)>& sent, const Wait& wait) {
    const QByteArray suffix = ',' + QByteArray::number(mode);
    for (const SmallFile& file : files)
        requirePath(file.path + suffix);
    std::size_t answered = 0;
    std::uint64_t total = 0;
    Bytes pending;
    beginRequest();
    const auto write = [&] {
        // Who has refused a file takes no other one.
        while (answered < files.size() && reader_.hasBytes())
            takeOkay(files[answered++].path, wait);
        try {
            writeOut(pending, wait);
        } catch (const Error& error) {
            if (!error.is(ADBError::brokenOff))
                throw;
            while (answered < files.size())
                takeOkay(files[answered++].path, wait);
            throw;
        }
        pending.clear();
        sent(total);
    };
    for (const SmallFile& file : files) {
        append(pending, Codec::request(ADBSyncCommand::send, file.path + suffix));
        ByteView left = std::as_bytes(std::span(file.content));
        while (!left.empty()) {
            const ByteView piece = left.first(std::min(left.size(), largestPiece));
            appendLittleEndian(pending, word(data));
            appendLittleEndian(pending, static_cast<std::uint32_t>(piece.size()));
            pending.insert(pending.end(), piece.begin(), piece.end());
            left = left.subspan(piece.size());
            total += piece.size();
        }
        append(pending, Codec::doneRecord(file.modified));
        if (pending.size() > largestPiece)
            write();
    }
    write();
    while (answered < files.size())
        takeOkay(files[answered++].path, wait);
    isSound_ = true;
}

std::vector<std::optional<QByteArray>>
ADBSyncClient::receiveTogether(const std::vector<Wanted>& files, const Wait& wait) {
    // So few that the phone takes all requests even while nobody takes its answers.
    constexpr std::size_t mostAsked = 16;
    for (const Wanted& file : files)
        requirePath(file.path, longestPath - 1);
    std::vector<std::optional<QByteArray>> contents(files.size());
    std::size_t asked = 0;
    beginRequest();
    for (std::size_t n = 0; n < files.size(); ++n) {
        if (asked <= n + mostAsked / 2) {
            Bytes requests;
            for (; asked < std::min(n + mostAsked, files.size()); ++asked)
                append(requests, Codec::request(recv, files[asked].path));
            if (!requests.empty())
                stream_->write(requests, wait);
        }
        contents[n] = takeContent(files[n], wait);
        if (!contents[n])
            return contents; // the phone ends the stream, or goes on with what nobody wants
    }
    isSound_ = true;
    return contents;
}

std::optional<QByteArray> ADBSyncClient::takeContent(const Wanted& file, const Wait& wait) {
    QByteArray content;
    for (;;) {
        auto [command, left] = takeFront(wait);
        if (command == done)
            return content.size() == file.size ? std::optional(content) : std::nullopt;
        if (command == fail || (command == data && left > file.size - content.size()))
            return std::nullopt;
        if (command != data || left == 0) // without an end, maybe
            throwNonsense("a piece of a file");
        while (left > 0) {
            const ByteView piece = reader_.takeSome(left, wait);
            left -= static_cast<std::uint32_t>(piece.size());
            content.append(QByteArrayView(piece));
        }
    }
}

void ADBSyncClient::takeOkay(const QByteArray& path, const Wait& wait) {
    const auto [command, length] = takeFront(wait);
    if (command == fail)
        throwFailure(path, length, wait);
    if (command != okay)
        throwNonsense("the end of a file");
}

void ADBSyncClient::writeOut(const Bytes& bytes, const Wait& wait) {
    ByteView left(bytes);
    try {
        stream_->writeOn(left, wait);
    } catch (...) {
        unsent_.assign(left.begin(), left.end());
        throw;
    }
}

/// In the middle of a file QUIT is no record that a phone expects: it drops the file and ends, too.
void ADBSyncClient::end(std::chrono::milliseconds limit) {
    const Deadline deadline(limit);
    const Wait wait{deadline.token(), limit};
    isSound_ = false;
    append(unsent_, Codec::request(quit, {}));
    try {
        try {
            stream_->write(unsent_, wait);
        } catch (const Error&) {
            // A phone that has ended the stream takes no more.
        }
        while (!wait.stop.stop_requested() && !reader_.isAtEnd(wait))
            (void)reader_.takeSome(ADBReader::capacity, wait);
    } catch (const Error&) {
        // Closing it has to do.
    } catch (const CancellationError&) {
        // The same once the time is over.
    }
}

/// A phone that has ended the stream may have said why.
void ADBSyncClient::writeContent(const QByteArray& path, const Bytes& bytes, const Wait& wait) {
    try {
        writeOut(bytes, wait);
    } catch (const Error& error) {
        if (error.is(ADBError::brokenOff))
            throwIfAnswered(path, wait);
        throw;
    }
}

/// A phone that cannot go on says so while content is still on its way to it.
void ADBSyncClient::throwIfAnswered(const QByteArray& path, const Wait& wait) {
    if (!reader_.hasBytes())
        return;
    const auto [command, length] = takeFront(wait);
    if (command != fail)
        throwNonsense("an answer before the end of a file");
    throwFailure(path, length, wait);
}

void ADBSyncClient::throwFailure(const QByteArray& path, std::uint32_t length, const Wait& wait) {
    constexpr std::uint32_t longestReason = 4096;
    if (length > longestReason)
        throwNonsense("a reason that is too long");
    const ByteView text = reader_.take(length, wait);
    throw Error(ADBError::syncFailed, {shown(path), QString::fromUtf8(QByteArrayView(text))});
}

} // namespace tessary
