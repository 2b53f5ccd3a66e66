#include "devices/files/CompetingPrograms.h"

#include <QString>
#include <QStringList>

#include <unistd.h>

#include <chrono>

namespace tessary {

namespace {

using namespace std::chrono_literals;

constexpr auto processLimit = 5s;

// By the name of the executable, whole: a word on some other program's command line must never
// count. The kernel keeps 15 characters of it.

/// Those that run only while they have a phone.
QString holders() {
    return QStringLiteral("gvfsd-mtp|gvfsd-gphoto2|simple-mtpfs|jmtpfs|go-mtpfs|mtpfs|"
                          "aft-mtp-mount|android-file-tr");
}

/// Those and the ones that run anyway, and may have one.
QString suspects() {
    return holders() + QStringLiteral("|kiod[56]");
}

/// Whose programs are meant: this user's alone, also where he may end those of others.
QString user() {
    return QString::number(::geteuid());
}

} // namespace

bool CompetingPrograms::isAnyRunning() {
    return processes_
        .run(QStringLiteral("/usr/bin/pgrep"),
             {QStringLiteral("-u"), user(), QStringLiteral("-x"), holders()}, processLimit)
        .succeeded();
}

QStringList CompetingPrograms::running() {
    const auto found = processes_.run(
        QStringLiteral("/usr/bin/pgrep"),
        {QStringLiteral("-l"), QStringLiteral("-u"), user(), QStringLiteral("-x"), suspects()},
        processLimit);
    QStringList names;
    for (const QByteArray& line : found.standardOutput.split('\n'))
        if (const auto space = line.indexOf(' '); space > 0) // behind the process's number
            names << QString::fromLatin1(line.mid(space + 1));
    names.sort();
    names.removeDuplicates();
    return names;
}

void CompetingPrograms::end(const QStringList& names) {
    if (names.isEmpty())
        return;
    (void)processes_.run(QStringLiteral("/usr/bin/pkill"),
                         {QStringLiteral("-TERM"), QStringLiteral("-u"), user(),
                          QStringLiteral("-x"), names.join(QLatin1Char('|'))},
                         processLimit);
}

} // namespace tessary
