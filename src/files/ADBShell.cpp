#include "files/ADBShell.h"

#include "core/TessaryError.h"

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

void throwNotOnPhone(const QString& path) {
    throw TessaryError::fileIOError(
        QStringLiteral("There is no %1 on the phone. It may have been deleted or renamed: refresh "
                       "the folder.")
            .arg(path));
}

ProcessResult ADBShell::run(const QString& line,
                            std::optional<std::chrono::milliseconds> limit) const {
    ProcessResult result =
        tool_.run(tool_.request(device_, {QStringLiteral("shell"), line}, limit, stop_));
    if (isAdbConnectionFailure(result))
        throw TessaryError::fileIOError(adbFailure(result));
    return result;
}

std::vector<std::optional<ADBFileFacts>> ADBShell::stat(const QStringList& paths) const {
    constexpr qsizetype longestLine = 3000; // older phones take no more than 4096 bytes
    std::vector<std::optional<ADBFileFacts>> all;
    for (qsizetype next = 0; next < paths.size();) {
        QString line;
        qsizetype asked = 0;
        while (next < paths.size() && (asked == 0 || line.size() < longestLine)) {
            line += QStringLiteral("stat -c '%f %s %Y %d %i' ") + phoneShellQuoted(paths[next++]) +
                    QStringLiteral("; echo ") + endOfPath + QStringLiteral("; ");
            ++asked;
        }
        line.chop(2);
        const ProcessResult result = run(line);
        std::optional<ADBFileFacts> current;
        for (const QByteArray& text : result.standardOutput.split('\n')) {
            if (text.trimmed() == QByteArrayView(endOfPath)) {
                all.push_back(std::exchange(current, std::nullopt));
                --asked;
            } else if (auto facts = factsOf(text)) {
                current = std::move(facts);
            }
        }
        if (asked != 0)
            throw TessaryError::fileIOError(
                QStringLiteral("The connection to the phone broke off."));
    }
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
