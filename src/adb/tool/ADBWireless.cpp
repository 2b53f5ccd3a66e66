#include "adb/tool/ADBWireless.h"

#include "adb/protocol/ADBError.h"

#include <algorithm>

namespace tessary {

namespace {

/// A person may have to allow it on the phone.
constexpr std::chrono::seconds patience(20);

/// What adb says, at the end of what it says: before that it may tell of its server.
QString lastLine(const ProcessResult& result) {
    const QStringList lines = QString::fromUtf8(result.standardOutput + '\n' + result.standardError)
                                  .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    return lines.isEmpty() ? QString() : lines.last().trimmed();
}

/// Runs a command whose success is told by how a line begins: its exit status says little.
void run(const ADBTool& tool, const QStringList& words, const QStringList& successes,
         const std::stop_token& stop) {
    const QString& address = words.at(1);
    const auto executable = tool.find();
    if (!executable)
        throw Error(ADBError::noADB);
    ProcessRequest request;
    request.program = *executable;
    request.arguments = words;
    request.limit = patience;
    request.stop = stop;
    const ProcessResult result = tool.run(request);
    const QString said = lastLine(result);
    if (std::any_of(successes.begin(), successes.end(),
                    [&](const QString& success) { return said.startsWith(success); }))
        return;
    if (said.contains(QLatin1StringView("unknown command")))
        throw Error(ADBError::cannotPair);
    if (said.contains(QLatin1StringView("failed to authenticate")))
        throw Error(ADBError::unauthorized, {address});
    throw said.isEmpty() ? Error(ADBError::timedOut, {address})
                         : Error(ADBError::refused, {address, said});
}

} // namespace

void connectOverNetwork(const ADBTool& tool, const QString& address, const std::stop_token& stop) {
    run(tool, {QStringLiteral("connect"), address},
        {QStringLiteral("connected to"), QStringLiteral("already connected to")}, stop);
}

void pairOverNetwork(const ADBTool& tool, const QString& address, const QString& code,
                     const std::stop_token& stop) {
    run(tool, {QStringLiteral("pair"), address, code}, {QStringLiteral("Successfully paired")},
        stop);
}

} // namespace tessary
