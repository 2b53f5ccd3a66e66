// The real program, killed right after each single change that a sync makes to either folder. Each
// run of this test takes every ninth; TESSARY_EVERY_WRITE=1 in the environment: all of them.

#include "support/ADBFixture.h"
#include "support/OwnHome.h"
#include "support/PluggedIPhone.h"
#include "support/ProgramRun.h"
#include "support/StrangeDisk.h"
#include "sync/SyncFolders.h"

#include <QProcess>
#include <gmock/gmock.h>

#include <atomic>
#include <csignal>
#include <cstdio>
#include <optional>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::IsEmpty;

/// Both folders on one disk, mounted in the phone's storage, that kills a program at a change. A
/// part of fixtures that have the phone.
class KillingDisk : protected SyncFolders {
protected:
    [[nodiscard]] virtual QString storage() const = 0;

    [[nodiscard]] QString phoneFolder() override {
        return storage() + u"/Sync/there"_s;
    }
    [[nodiscard]] QString localFolder() const override {
        return storage() + u"/Sync/here"_s;
    }
    [[nodiscard]] bool mount() {
        QDir().mkpath(storage() + u"/Sync"_s);
        disk_.emplace(StrangeDisk::Options{.at = storage() + u"/Sync"_s, .changed = [this] {
                                               if (++changes_ == killAt_)
                                                   ::kill(victim_, SIGKILL);
                                           }});
        return disk_->isMounted();
    }
    void unmount() {
        disk_.reset();
    }

    std::atomic<pid_t> victim_ = 0;
    std::atomic<int> changes_ = 0;
    std::atomic<int> killAt_ = 0; ///< the change, counted from 1; 0: never

private:
    std::optional<StrangeDisk> disk_;
};

/// The program on a phone that lies in its own process: it dies with it, as if the cable came out.
class KilledByMTP : public testing::Test, protected KillingDisk {
protected:
    KilledByMTP() {
        // The phone's own files are made once.
        EXPECT_EQ(ProgramRun(QStringLiteral(TESSARY_CLI),
                             {u"--demo-folder"_s, home_.disk.path(u"phones"_s), u"devices"_s},
                             home_.environment)
                      .status,
                  0);
    }
    QString storage() const override {
        return home_.disk.path(u"phones/pixel"_s);
    }
    [[nodiscard]] QStringList arguments() const {
        return {u"--demo-folder"_s, home_.disk.path(u"phones"_s), u"sync"_s, u"DEMO0001"_s,
                localFolder(),      u"/sdcard/Sync/there"_s};
    }
    [[nodiscard]] QProcessEnvironment environment() const {
        return home_.environment;
    }

    OwnHome home_;
};

/// The program on a phone behind an adb server that outlives it.
class KilledByADB : public ADBFixture, protected KillingDisk {
protected:
    QString storage() const override {
        return ADBFixture::disk_.path(u"phone"_s);
    }
    [[nodiscard]] QStringList arguments() const {
        return {u"--protocol"_s, u"adb"_s,      u"sync"_s,
                serial(),        localFolder(), u"/sdcard/Sync/there"_s};
    }
    [[nodiscard]] QProcessEnvironment environment() const {
        QProcessEnvironment all = home_.environment;
        all.insert(server_.environment());
        return all;
    }

    OwnHome home_;
};

/// The program on an iPhone that outlives it.
class KilledByAFC : public testing::Test, protected KillingDisk {
protected:
    QString storage() const override {
        return iphone_.disk.path(u"notes/Documents"_s);
    }
    [[nodiscard]] QStringList arguments() const {
        return {u"sync"_s,      u"--app"_s,    PluggedIPhone::bundleId,
                iphone_.udid(), localFolder(), u"/Sync/there"_s};
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

    void SetUp() override {
        Way::SetUp();
        if (!this->mount())
            GTEST_SKIP() << "this machine mounts nothing for its users";
    }
    void TearDown() override {
        this->unmount();
        Way::TearDown();
    }

    /// One run of the program, killed right after the n-th change (counted from 1) to the folders
    /// unless that is 0. Whether it lived to the end.
    bool run(int killAt = 0) {
        QProcess program;
        program.setProcessEnvironment(this->environment());
        // It waits with its work until the disk knows whom to kill.
        program.setProgram(u"/bin/sh"_s);
        program.setArguments(
            QStringList{u"-c"_s, u"read go; exec \"$0\" \"$@\""_s, QStringLiteral(TESSARY_CLI)} +
            this->arguments() + QStringList{u"--mode"_s, u"both"_s, u"--yes-all"_s});
        program.start();
        EXPECT_TRUE(program.waitForStarted());
        this->victim_ = static_cast<pid_t>(program.processId());
        this->changes_ = 0;
        this->killAt_ = killAt;
        program.write("\n");
        program.closeWriteChannel();
        constexpr int patience = 60'000; // ms
        EXPECT_TRUE(program.waitForFinished(patience));
        this->killAt_ = 0;
        const bool lived = program.exitStatus() == QProcess::NormalExit;
        if (lived) {
            EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
        }
        return lived;
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
    constexpr int some = 9;
    const int step = qEnvironmentVariableIsSet("TESSARY_EVERY_WRITE") ? 1 : some;
    int killed = 0;
    for (int change = 1;; change += step) {
        SCOPED_TRACE(change);
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
        const bool lived = this->run(change);
        killed += lived ? 0 : 1;
        (void)this->run();
        EXPECT_TRUE(this->hereFiles() == this->phoneFiles());
        this->expectAll({large("3"), large("4"), large("up"), large("down"), "mine", "theirs",
                         "small here0", "small here3", "small there0", "small there3"});
        EXPECT_FALSE(this->hereFiles().contains(u"gone"_s));
        EXPECT_FALSE(this->hereFiles().contains(u"gone there"_s));
        EXPECT_THAT(this->parts(), IsEmpty());
        if (lived || this->HasFailure())
            break;
    }
    std::printf("killed %d times, every %d of the changes\n", killed, step);
    EXPECT_GT(killed * step, 50);
}

} // namespace
} // namespace tessary
