#pragma once

#include <QProcess>
#include <QProcessEnvironment>

namespace tessary {

/// A program that has run to its end.
struct ProgramRun {
    int status = -1; ///< less than 0: it did not end by itself, or not in time
    QByteArray out;
    QByteArray error;

    ProgramRun(const QString& program, const QStringList& arguments,
               const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment()) {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(program, arguments);
        constexpr int patience = 60'000; // ms
        if (!process.waitForFinished(patience))
            return;
        status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
        out = process.readAllStandardOutput();
        error = process.readAllStandardError();
    }
};

} // namespace tessary
