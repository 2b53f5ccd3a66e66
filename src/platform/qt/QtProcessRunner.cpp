#include "platform/qt/QtProcessRunner.h"

#include <QProcess>

namespace tessary {

ProcessResult QtProcessRunner::run(const QString& program, const QStringList& arguments,
                                   std::chrono::milliseconds limit) {
    constexpr int endedChildTimeout = 5000; // ms; a killed child is gone long before
    const auto timeout = static_cast<int>(limit.count());
    ProcessResult result;
    QProcess process;
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(program, arguments);
    if (!process.waitForStarted(timeout))
        return result;
    const bool ended = process.waitForFinished(timeout);
    if (!ended) {
        process.kill();
        process.waitForFinished(endedChildTimeout);
    }
    result.standardOutput = process.readAllStandardOutput();
    result.standardError = process.readAllStandardError();
    result.exitStatus = process.exitCode();
    if (!ended)
        result.outcome = ProcessResult::Outcome::timedOut;
    else if (process.exitStatus() == QProcess::CrashExit)
        result.outcome = ProcessResult::Outcome::crashed;
    else
        result.outcome = ProcessResult::Outcome::exited;
    return result;
}

} // namespace tessary
