#include "platform/sandbox/Sandbox.h"
#include "platform/process/QtProcessRunner.h"
#include "support/Application.h"
#include "support/TemporaryFolder.h"

#include <QFile>
#include <QLocalServer>
#include <gmock/gmock.h>

#include <csignal>
#include <string_view>

using namespace Qt::StringLiterals;
using namespace tessary;
using namespace std::chrono_literals;
using testing::AnyOf;
using testing::StartsWith;

namespace {

class SandboxTest : public Application, public testing::Test {
protected:
    SandboxTest() {
        folder_.write(u"kept"_s, "kept");
        folder_.write(u"secret"_s, "secret");
        folder_.write(u"readable/file"_s, "font");
        QFile::link(folder_.path(u"secret"_s), folder_.path(u"readable/link"_s));
        server_.listen(folder_.path(u"socket"_s));
    }

    ProcessResult run(const QString& rules, const QString& action) {
        return QtProcessRunner().run(QStringLiteral(TESSARY_SANDBOX_PROBE),
                                     {rules, action, folder_.path()}, 60s);
    }
    /// "done", or the name of the error.
    std::string outcome(const QString& rules, const QString& action) {
        return run(rules, action).standardOutput.trimmed().toStdString();
    }

    TemporaryFolder folder_;
    QLocalServer server_;
};

} // namespace

TEST_F(SandboxTest, onlyWhatWasHandedInCanBeUsed) {
    const bool canRead = hasFileWall();
    const auto reading = canRead ? "done" : "EPERM";
    const auto refused = AnyOf("EPERM", "EACCES");
    const struct {
        const char* rules;
        const char* action;
        testing::Matcher<std::string> outcome;
    } rows[] = {
        {"plain", "thread", "done"},
        {"plain", "take 16 MB", "done"},
        {"plain", "take 512 MB", "ENOMEM"},
        {"plain", "read kept", "done"},
        {"plain", "ignore pipe", "done"},
        {"plain", "read lost", "EBADF"},
        {"plain", "reopen kept", refused},
        {"plain", "open readable", refused},
        {"reading", "open readable", reading},
        {"reading", "list readable", reading},
        {"reading", "leave readable", refused},
        {"reading", "follow link", refused},
        {"reading", "write readable", refused},
        {"reading", "open secret", refused},
        {"reading", "list root", refused},
        {"reading", "make file", refused},
        {"reading", "remove", refused},
        {"reading", "rename", refused},
        {"reading", "link", refused},
        {"plain", "make memory file", refused},
        {"plain", "connect daemon", refused},
        {"plain", "connect TCP", refused},
        {"streams", "connect daemon", "done"},
        {"streams", "connect TCP", "ECONNREFUSED"}, // of a port where nobody listens
        {"streams", "UDP", refused},
        {"streams", "netlink", refused},
        {"streams", "listen", refused},
        {"streams", "open secret", refused},
        {"plain", "fork", refused},
        {"plain", "vfork", refused},
        {"plain", "clone3", "ENOSYS"},
        {"streams", "execute", refused},
        {"plain", "execute kept", refused},
        {"plain", "map code", refused},
        {"plain", "make code", refused},
        {"streams", "signal parent", refused},
        {"plain", "signal parent's thread", refused},
        {"plain", "trace parent", refused},
        {"plain", "get privileges back", refused},
    };
    for (const auto& row : rows) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
        if (std::string_view(row.action) == "take 512 MB")
            continue; // sanitizers need address space without end: there is no limit then
#endif
        EXPECT_THAT(outcome(QString::fromLatin1(row.rules), QString::fromLatin1(row.action)),
                    row.outcome)
            << row.rules << ", " << row.action;
    }
    EXPECT_EQ(folder_.names(), (QStringList{u"kept"_s, u"readable"_s, u"secret"_s, u"socket"_s}));
    EXPECT_EQ(folder_.read(u"secret"_s), "secret");
}

TEST_F(SandboxTest, kernelEndsItAtItsLimitsOfTime) {
    const struct {
        const char* action;
        std::chrono::milliseconds limit;
    } rows[] = {{"compute", 1s}, {"oversleep", 2s}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.action);
        const auto start = std::chrono::steady_clock::now();
        const ProcessResult result = run(u"plain"_s, QString::fromLatin1(row.action));
        const auto passed = std::chrono::steady_clock::now() - start;
        EXPECT_EQ(result.outcome, ProcessResult::Outcome::crashed);
        EXPECT_GE(passed, row.limit * 9 / 10);
    }
}

TEST_F(SandboxTest, secondThreadWouldStayOutsideSoItIsRefused) {
    EXPECT_THAT(outcome(u"late"_s, u"read kept"_s), StartsWith("outside: threads run already"));
}
