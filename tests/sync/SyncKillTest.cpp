// The real program, killed in the middle of a sync as often as the folders change.

#include "support/ADBFixture.h"
#include "support/OwnHome.h"
#include "support/PluggedIPhone.h"
#include "sync/SyncFolders.h"

#include <QProcess>
#include <gmock/gmock.h>

#include <csignal>
#include <cstdio>
#include <set>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::IsEmpty;

/// The program on a phone that lies in its own process: it dies with it, as if the cable came out.
class KilledByMTP : public testing::Test, protected SyncFolders {
protected:
    KilledByMTP() {
        // The phone's own files are made once.
        QProcess program;
        program.setProcessEnvironment(home_.environment);
        program.start(QStringLiteral(TESSARY_CLI),
                      {u"--demo-folder"_s, home_.disk.path(u"phones"_s), u"devices"_s});
        EXPECT_TRUE(program.waitForFinished(60'000));
    }
    QString phoneFolder() override {
        return home_.disk.path(u"phones/pixel/Sync"_s);
    }
    [[nodiscard]] QStringList arguments() const {
        return {u"--demo-folder"_s, home_.disk.path(u"phones"_s),
                u"sync"_s,          u"DEMO0001"_s,
                localFolder(),      u"/sdcard/Sync"_s};
    }
    [[nodiscard]] QProcessEnvironment environment() const {
        return home_.environment;
    }

    OwnHome home_;
};

/// The program on a phone behind an adb server that outlives it.
class KilledByADB : public ADBFixture, protected SyncFolders {
protected:
    QString phoneFolder() override {
        return disk_.path(u"phone/Sync"_s);
    }
    [[nodiscard]] QStringList arguments() const {
        return {u"--protocol"_s, u"adb"_s, u"sync"_s, serial(), localFolder(), u"/sdcard/Sync"_s};
    }
    [[nodiscard]] QProcessEnvironment environment() const {
        QProcessEnvironment all = home_.environment;
        all.insert(server_.environment());
        return all;
    }

    OwnHome home_;
};

/// The program on an iPhone that outlives it.
class KilledByAFC : public testing::Test, protected SyncFolders {
protected:
    QString phoneFolder() override {
        return iphone_.disk.path(iphone_.inDocuments(u"Sync"_s));
    }
    [[nodiscard]] QStringList arguments() const {
        return {u"sync"_s,      u"--app"_s,    PluggedIPhone::bundleId,
                iphone_.udid(), localFolder(), u"/Sync"_s};
    }
    [[nodiscard]] QProcessEnvironment environment() const {
        return home_.environment;
    }

    PluggedIPhone iphone_; // says in the environment where it is
    OwnHome home_;
};

template <typename Way>
class SyncKillTest : public Way {
protected:
    using Files = typename Way::Files;

    /// One run of the program. It is killed once the folders have changed so often, when that is
    /// not negative; whether it lived until then.
    bool run(int changesUntilKill = -1) {
        QProcess program;
        program.setProcessEnvironment(this->environment());
        program.start(QStringLiteral(TESSARY_CLI),
                      this->arguments() + QStringList{u"--mode"_s, u"both"_s, u"--yes-all"_s});
        EXPECT_TRUE(program.waitForStarted());
        constexpr int patience = 60'000; // ms
        if (changesUntilKill < 0) {
            EXPECT_TRUE(program.waitForFinished(patience));
            EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
            return true;
        }
        std::set<QString> before = entries();
        for (int changes = 0; changes <= changesUntilKill;) {
            if (program.waitForFinished(0) || program.state() == QProcess::NotRunning)
                return false;
            std::set<QString> now = entries();
            changes += now != before ? 1 : 0;
            before = std::move(now);
        }
        ::kill(static_cast<pid_t>(program.processId()), SIGKILL);
        EXPECT_TRUE(program.waitForFinished(patience));
        return true;
    }
    /// Names and sizes of all that is in both folders, files of ours too.
    std::set<QString> entries() {
        std::set<QString> found;
        for (const QString& folder : {this->localFolder(), this->phoneFolder()})
            for (QDirIterator walk(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                                   QDirIterator::Subdirectories);
                 walk.hasNext();) {
                const QString path = walk.next();
                found.insert(path + u' ' + QString::number(walk.fileInfo().size()));
            }
        return found;
    }
    void expectAll(const std::vector<QByteArray>& contents) {
        for (const QByteArray& content : contents)
            EXPECT_TRUE(this->holds(content)) << content.right(12).constData();
    }
};

using Ways = testing::Types<KilledByMTP, KilledByADB, KilledByAFC>;
TYPED_TEST_SUITE(SyncKillTest, Ways, );

TYPED_TEST(SyncKillTest, nothingIsLostWheneverTheProgramIsKilled) {
    const auto large = [](const char* end) { return QByteArray(400'000, 'x') + end; };
    int killed = 0;
    for (int changes = 0;; ++changes) {
        SCOPED_TRACE(changes);
        this->clear();
        this->here(u"edited"_s, large("1"));
        this->here(u"edited there"_s, large("2"));
        this->here(u"gone"_s, "gone");
        this->here(u"gone there"_s, "gone there");
        (void)this->run();
        this->here(u"edited"_s, large("3"), 50);
        this->onPhone(u"edited there"_s, large("4"), 50);
        this->removeHere(u"gone"_s);
        this->removeOnPhone(u"gone there"_s);
        this->here(u"d/up"_s, large("up"));
        this->onPhone(u"e/down"_s, large("down"));
        for (int n = 0; n < 4; ++n) { // these may go together
            this->here(u"d/small %1"_s.arg(n), "small here" + QByteArray::number(n));
            this->onPhone(u"e/small %1"_s.arg(n), "small there" + QByteArray::number(n));
        }
        this->here(u"both"_s, "mine");
        this->onPhone(u"both"_s, "theirs");
        const bool wasKilled = this->run(changes);
        killed += wasKilled ? 1 : 0;
        (void)this->run();
        EXPECT_TRUE(this->hereFiles() == this->phoneFiles());
        this->expectAll({large("3"), large("4"), large("up"), large("down"), "mine", "theirs",
                         "small here0", "small here3", "small there0", "small there3"});
        EXPECT_FALSE(this->hereFiles().contains(u"gone"_s));
        EXPECT_FALSE(this->hereFiles().contains(u"gone there"_s));
        EXPECT_THAT(this->parts(), IsEmpty());
        if (!wasKilled || this->HasFailure())
            break;
    }
    std::printf("killed %d times\n", killed);
    EXPECT_GT(killed, 0);
}

} // namespace
} // namespace tessary
