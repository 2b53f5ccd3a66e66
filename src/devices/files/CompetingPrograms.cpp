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

void CompetingPrograms::end() {
    (void)processes_.run(
        QStringLiteral("/usr/bin/pkill"),
        {QStringLiteral("-TERM"), QStringLiteral("-u"), user(), QStringLiteral("-x"), suspects()},
        processLimit);
}

} // namespace tessary
