#include "platform/process/QtProcessRunner.h"

#include <QProcess>

#ifdef __linux__
#include <sys/prctl.h>
#endif
#include <csignal>
#include <unistd.h>

namespace tessary {

namespace {

using Clock = std::chrono::steady_clock;
using Outcome = ProcessResult::Outcome;

constexpr int startTimeout = 10'000;     // ms
constexpr int endedChildTimeout = 5'000; // ms; a killed child is gone long before

/// Runs in the child between fork and exec, as the next one does: only calls that are safe there.
void dieWithParent(pid_t parent) {
#ifdef __linux__
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent)
        _exit(1); // it went in the meantime
#else
    static_cast<void>(parent);
#endif
}

void takeStandardInput(int descriptor) {
    if (dup2(descriptor, STDIN_FILENO) < 0)
        _exit(1);
}

/// Why the child has to be ended before it ends by itself.
std::optional<Outcome> reasonToEnd(QProcess& process, const ProcessRequest& request,
                                   const std::stop_token& stop, Clock::time_point start) {
    if (request.stop.stop_requested() || stop.stop_requested())
        return Outcome::cancelled;
    if (request.limit && Clock::now() - start > *request.limit)
        return Outcome::timedOut;
    for (const auto channel : {QProcess::StandardOutput, QProcess::StandardError}) {
        process.setReadChannel(channel);
        if (process.bytesAvailable() > request.outputLimit)
            return Outcome::flooded;
    }
    return std::nullopt;
}

/// Waits for the end of a child that has started.
Outcome await(QProcess& process, const ProcessRequest& request, const std::stop_token& stop,
              Clock::time_point start) {
    constexpr int slice = 20; // ms
    // The exit counts, not the end of the output: a server that the child started keeps it open.
    while (!process.waitForFinished(slice) && process.state() != QProcess::NotRunning) {
        if (const auto reason = reasonToEnd(process, request, stop, start)) {
            process.kill();
            process.waitForFinished(endedChildTimeout);
            return *reason;
        }
    }
    return process.exitStatus() == QProcess::CrashExit ? Outcome::crashed : Outcome::exited;
}

} // namespace

ProcessResult QtProcessRunner::follow(const ProcessRequest& request) {
    ProcessResult result;
    if (request.stop.stop_requested() || stop_.stop_requested()) {
        result.outcome = Outcome::cancelled;
        return result;
    }
    QProcess process;
    process.setStandardInputFile(QProcess::nullDevice());
    process.setChildProcessModifier([parent = getpid(), input = request.standardInput] {
        dieWithParent(parent);
        if (input)
            takeStandardInput(*input);
    });
    if (!additional_.isEmpty()) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(additional_);
        process.setProcessEnvironment(environment);
    }
    const auto start = Clock::now();
    process.start(request.program, request.arguments);
    if (!process.waitForStarted(startTimeout))
        return result;
    result.outcome = await(process, request, stop_.get_token(), start);
    result.standardOutput = process.readAllStandardOutput();
    result.standardError = process.readAllStandardError();
    result.exitStatus = process.exitCode();
    return result;
}

} // namespace tessary
