#include "adb/files/ADBShell.h"

#include "base/values/TessaryError.h"
#include "phone/PhoneNames.h"

#include <QTimeZone>

namespace tessary {

namespace {

/// Ends what is printed for one path. No line of a fact looks like it.
constexpr QLatin1StringView endOfPath("-----");

/// "<mode in hexadecimal> <size> <seconds since 1970> <device> <inode>"
std::optional<ADBFileFacts> factsOf(const QByteArray& line) {
    const QList<QByteArray> fields = line.trimmed().split(' ');
    if (fields.size() != 5)
        return std::nullopt;
    bool isMode = false;
    bool isSize = false;
    bool isDate = false;
    ADBFileFacts facts;
    facts.mode = fields[0].toUInt(&isMode, 16);
    facts.size = fields[1].toLongLong(&isSize);
    const qint64 seconds = fields[2].toLongLong(&isDate);
    if (!isMode || !isSize || !isDate || facts.size < 0)
        return std::nullopt;
    facts.modified = QDateTime::fromSecsSinceEpoch(seconds);
    facts.identity = QString::fromLatin1(fields[3] + ':' + fields[4]);
    return facts;
}

} // namespace

ProcessResult ADBShell::run(const QString& line,
                            std::optional<std::chrono::milliseconds> limit) const {
    ProcessResult result =
        tool_.run(tool_.request(device_, {QStringLiteral("shell"), line}, limit, stop_));
    if (isADBConnectionFailure(result))
        throw TessaryError::fileIOError(adbFailure(result));
    return result;
}

std::vector<ProcessResult> ADBShell::runEach(const QStringList& commands) const {
    constexpr qsizetype longestLine = 3000; // older phones take no more than 4096 bytes
    std::vector<ProcessResult> results;
    for (qsizetype next = 0; next < commands.size();) {
        QString line = commands[next++];
        while (next < commands.size() && line.size() < longestLine)
            line += QStringLiteral("; ") + commands[next++];
        results.push_back(run(line));
    }
    return results;
}

std::vector<std::optional<ADBFileFacts>> ADBShell::stat(const QStringList& paths) const {
    QStringList commands;
    for (const QString& path : paths)
        commands.append(QStringLiteral("stat -c '%f %s %Y %d %i' ") + phoneShellQuoted(path) +
                        QStringLiteral("; echo ") + endOfPath);
    std::vector<std::optional<ADBFileFacts>> all;
    std::optional<ADBFileFacts> current;
    for (const ProcessResult& result : runEach(commands))
        for (const QByteArray& text : result.standardOutput.split('\n')) {
            if (text.trimmed() == QByteArrayView(endOfPath))
                all.push_back(std::exchange(current, std::nullopt));
            else if (auto facts = factsOf(text))
                current = std::move(facts);
        }
    if (all.size() != static_cast<std::size_t>(paths.size()))
        throw TessaryError::fileIOError(QStringLiteral("The connection to the phone broke off."));
    return all;
}

std::optional<ADBFileFacts> ADBShell::stat(const QString& path) const {
    return stat(QStringList(path)).front();
}

void ADBShell::requireFolder(const QString& path) const {
    const auto facts = stat({path, path + QLatin1Char('/')});
    requireFolder(path, facts[0], facts[1]);
}

void ADBShell::requireFolder(const QString& path, const std::optional<ADBFileFacts>& itself,
                             const std::optional<ADBFileFacts>& target) {
    if (!itself && !target)
        throwNotOnPhone(path);
    if (!target || !target->isFolder())
        throw TessaryError::fileIOError(QStringLiteral("%1 is not a folder.").arg(path));
}

} // namespace tessary
