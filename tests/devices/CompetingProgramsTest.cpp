#include "devices/files/CompetingPrograms.h"

#include "support/FakeProcessRunner.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

#include <unistd.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

TEST(CompetingPrograms, areKnownByTheWholeNameOfTheirExecutable) {
    FakeProcessRunner processes({ProcessResult::Outcome::exited, 0,
                                 "71 kiod6\n309 gvfsd-mtp\n4 gvfsd-mtp\n", QByteArray()});
    CompetingPrograms programs(processes);
    EXPECT_TRUE(programs.isAnyRunning());
    programs.end({}); // is nobody's
    const QStringList running = programs.running();
    EXPECT_EQ(running, (QStringList{u"gvfsd-mtp"_s, u"kiod6"_s}));
    programs.end(running);
    const auto calls = processes.calls();
    ASSERT_EQ(calls.size(), 3U);
    const QString user = QString::number(::geteuid());
    EXPECT_EQ(calls[0].mid(0, 4), (QStringList{u"/usr/bin/pgrep"_s, u"-u"_s, user, u"-x"_s}));
    EXPECT_EQ(calls[2], (QStringList{u"/usr/bin/pkill"_s, u"-TERM"_s, u"-u"_s, user, u"-x"_s,
                                     u"gvfsd-mtp|kiod6"_s}));
    // As the two programs match them: the whole name, of which the kernel keeps 15 characters.
    const struct {
        const char* name;
        bool holdsPhones;
        bool isAskedAbout;
    } rows[] = {{"gvfsd-mtp", true, true},
                {"gvfsd-gphoto2", true, true},
                {"jmtpfs", true, true},
                {"android-file-tr", true, true},
                {"kiod5", false, true},
                {"kiod6", false, true},
                {"gvfsd", false, false},
                {"my-jmtpfs", false, false},
                {"gvfsd-mtp-viewer", false, false},
                {"tessary", false, false}};
    for (const auto& row : rows) {
        const auto matches = [&](const QStringList& call) {
            return QRegularExpression(QRegularExpression::anchoredPattern(call.last()))
                .match(QString::fromLatin1(row.name))
                .hasMatch();
        };
        EXPECT_EQ(matches(calls[0]), row.holdsPhones) << row.name;
        EXPECT_EQ(matches(calls[1]), row.isAskedAbout) << row.name;
    }
}

} // namespace
} // namespace tessary
