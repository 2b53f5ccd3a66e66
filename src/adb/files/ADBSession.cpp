#include "adb/files/ADBSession.h"

#include "adb/protocol/ADBError.h"

#include <algorithm>
#include <array>

namespace tessary {

namespace {

/// Linux's ENOENT, ENOTDIR (below a file), ENAMETOOLONG and ELOOP (a link that leads nowhere, too).
constexpr std::array<std::uint32_t, 4> notThere{2, 20, 36, 40};

} // namespace

ADBSession::ADBSession(std::shared_ptr<ADBConnection> connection)
    : connection_(std::move(connection)) {}

void ADBSession::probe(const std::stop_token& stop) {
    if (features_)
        return;
    const QByteArrayList names = connection_->features({stop, patience});
    const auto features = ADBSyncClient::Features::of(names);
    ADBShellClient shell(*connection_, names);
    if (!features.hasNewStat) {
        bool isNumber = false;
        const int level = shell.property("ro.build.version.sdk", {stop, patience}).toInt(&isNumber);
        if (!isNumber || level < oldestLevel)
            throw Error(ADBError::tooOld, {level});
    }
    shell_.emplace(shell);
    features_ = features;
}

ADBSyncClient& ADBSession::sync(const std::stop_token& stop) {
    probe(stop);
    if (!sync_ || !sync_->isUsable()) {
        sync_.reset();
        sync_ = std::make_unique<ADBSyncClient>(connection_->open("sync:", {stop, patience}),
                                                *features_);
    }
    return *sync_;
}

ADBShellClient& ADBSession::shell(const std::stop_token& stop) {
    probe(stop);
    return *shell_;
}

void ADBSession::close() {
    sync_.reset();
    commands_.reset();
    connection_->release();
}

void ADBSession::endSync() {
    if (sync_ && !sync_->isUsable())
        sync_->end(endPatience);
    sync_.reset();
}

std::optional<ADBFacts> ADBSession::facts(const QByteArray& path, bool follows,
                                          const std::stop_token& stop) {
    return facts({{path, follows}}, stop).front();
}

std::vector<std::optional<ADBFacts>>
ADBSession::facts(const std::vector<ADBSyncClient::Question>& questions,
                  const std::stop_token& stop) {
    std::vector<std::optional<ADBFacts>> found;
    const std::vector<ADBFacts> answers = asking(stop, [&](ADBSyncClient& sync) {
        return sync.stat(questions, {stop, patience});
    });
    for (std::size_t n = 0; n < answers.size(); ++n) {
        const ADBFacts& facts = answers[n];
        if (std::find(notThere.begin(), notThere.end(), facts.error) != notThere.end())
            found.emplace_back();
        else if (facts.error != 0)
            throw Error(ADBError::statFailed, {QString::fromUtf8(questions[n].path), facts.error});
        else
            found.emplace_back(wholeSize(questions[n], facts, stop));
    }
    return found;
}

/// The first version of the records has 32 bits for a size: the rest is asked of a shell.
ADBFacts ADBSession::wholeSize(const ADBSyncClient::Question& question, ADBFacts facts,
                               const std::stop_token& stop) {
    if (!facts.isOld || !facts.isFile())
        return facts;
    QByteArrayList words{"stat", "-c", "%s", question.path};
    if (question.follows)
        words.insert(1, "-L");
    bool isNumber = false;
    const qlonglong size = run(words, patience, stop).trimmed().toLongLong(&isNumber);
    if (!isNumber || size < 0)
        throw Error(ADBError::nonsense, {QStringLiteral("a file's size")});
    facts.size = static_cast<std::uint64_t>(size);
    facts.isOld = false;
    return facts;
}

QByteArray ADBSession::lineOf(const QByteArrayList& words) {
    QByteArrayList quoted;
    for (const QByteArray& word : words)
        quoted.append(shellQuoted(word));
    return quoted.join(' ');
}

ADBCommandResult ADBSession::tryRun(const QByteArrayList& words, std::chrono::milliseconds silence,
                                    const std::stop_token& stop) {
    return tryRunLine(lineOf(words), silence, stop);
}

ADBCommandResult ADBSession::tryRunLine(const QByteArray& line, std::chrono::milliseconds silence,
                                        const std::stop_token& stop) {
    ADBShellClient& client = shell(stop);
    if (!client.isExact())
        return client.run(line, {stop, silence});
    if (!commands_ || !commands_->isUsable()) {
        commands_.reset();
        commands_ = std::make_unique<ADBShellSession>(
            *connection_, Wait{stop, std::min<std::chrono::milliseconds>(patience, silence)});
    }
    return commands_->run(line, {stop, silence});
}

QByteArray ADBSession::run(const QByteArrayList& words, std::chrono::milliseconds silence,
                           const std::stop_token& stop) {
    ADBCommandResult result = tryRun(words, silence, stop);
    throwIfFailed(words.first(), result);
    return std::move(result.output);
}

void ADBSession::throwIfFailed(const QByteArray& command, const ADBCommandResult& result) const {
    if (result.status == 0)
        return;
    constexpr qsizetype longest = 1000;
    const QByteArray& reason = shell_->isExact() ? result.errors : result.output;
    throw Error(ADBError::commandFailed, {QString::fromUtf8(command), result.status,
                                          QString::fromUtf8(reason.trimmed().right(longest))});
}

const QByteArrayList& ADBSession::hashCommand(const std::stop_token& stop) {
    if (!hashCommand_) {
        QByteArrayList found;
        for (const QByteArrayList& words :
             {QByteArrayList{"sha256sum"}, QByteArrayList{"toybox", "sha256sum"}}) {
            const ADBCommandResult result =
                tryRun(words + QByteArrayList{"/dev/null"}, patience, stop);
            // What SHA-256 makes of nothing.
            if (result.status == 0 &&
                result.output.startsWith(
                    "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855")) {
                found = words;
                break;
            }
        }
        hashCommand_ = found;
    }
    return *hashCommand_;
}

} // namespace tessary
