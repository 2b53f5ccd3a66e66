#include "devices/files/CompetingPrograms.h"

#include "support/FakeProcessRunner.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

#include <unistd.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using Outcome = ProcessResult::Outcome;

TEST(CompetingPrograms, areKnownByTheWholeNameOfTheirExecutable) {
    FakeProcessRunner processes;
    CompetingPrograms programs(processes);
    (void)programs.isAnyRunning();
    programs.end();
    const auto calls = processes.calls();
    ASSERT_EQ(calls.size(), 2U);
    const QString user = QString::number(::geteuid());
    EXPECT_EQ(calls[0].mid(0, 4), (QStringList{u"/usr/bin/pgrep"_s, u"-u"_s, user, u"-x"_s}));
    EXPECT_EQ(calls[1].mid(0, 5),
              (QStringList{u"/usr/bin/pkill"_s, u"-TERM"_s, u"-u"_s, user, u"-x"_s}));
    // As the two programs match them: the whole name, of which the kernel keeps 15 characters.
    const struct {
        const char* name;
        bool holdsPhones;
        bool isEnded;
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
        EXPECT_EQ(matches(calls[1]), row.isEnded) << row.name;
    }
}

} // namespace
} // namespace tessary
