#include "transfer/OnDemandMount.h"

#include "devices/files/AndroidFileAccess.h"
#include "support/FileServiceFixture.h"

#include <QProcess>

#include <array>
#include <future>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// Other programs read what was promised, as a desktop's file manager does.
class OnDemandMountTest : public FileServiceFixture {
protected:
    OnDemandMountTest() {
        promises_.reportFailuresTo([this](const FileItem& item, const std::exception&) {
            if (!wasReported_.exchange(true))
                reported_.set_value(item.name);
        });
    }

    void SetUp() override {
        phone().write(u"film.mp4"_s, film_);
        paths_ = promise({item("/film.mp4")});
        if (paths_.isEmpty())
            GTEST_SKIP() << "this machine mounts nothing for its users";
    }
    /// Local paths, in the order of the entries; none where nothing can be mounted.
    QStringList promise(std::vector<FileItem> items) {
        return promises_.promise(std::make_shared<AndroidFileAccess>(*service_, phone().info),
                                 items);
    }
    static void start(QProcess& program, const QString& name, const QStringList& arguments) {
        program.start(name, arguments);
        ASSERT_TRUE(program.waitForStarted());
    }
    static bool succeeds(const QString& name, const QStringList& arguments) {
        QProcess program;
        start(program, name, arguments);
        return program.waitForFinished(60'000) && program.exitCode() == 0;
    }

    /// A file of three million bytes takes half a minute from now on.
    void beSlow() {
        phone().fault([](VirtualFaults& faults) { faults.megabytesPerSecond = 0.1; });
    }

    const QByteArray film_ = manyBytes(3'000'000);
    QStringList paths_; ///< of the film
    OnDemandMount promises_;
    std::atomic<bool> wasReported_ = false;
    std::promise<QString> reported_;
};

TEST_F(OnDemandMountTest, filesAndFoldersArriveAsTheyAreReadAndNotBefore) {
    phone().write(u"DCIM/Trip/film.mp4"_s, film_);
    phone().write(u"DCIM/Trip/Days/Zoë\u2019s 1.txt"_s, "one");
    phone().write(u"DCIM/Trip/empty"_s, {});
    const QStringList paths = promise({item("/DCIM/Trip/film.mp4"), item("/DCIM/Trip")});
    EXPECT_EQ(phone().requests(MTPOperationCode::getObject), 0U);
    ASSERT_TRUE(succeeds(u"cp"_s, QStringList{u"-r"_s} + paths + QStringList{local_.path()}));
    EXPECT_EQ(local_.read(u"film.mp4"_s), film_);
    EXPECT_EQ(local_.read(u"Trip/film.mp4"_s), film_);
    EXPECT_EQ(local_.read(u"Trip/Days/Zoë\u2019s 1.txt"_s), "one");
    EXPECT_EQ(local_.read(u"Trip/empty"_s), QByteArray());
    EXPECT_TRUE(QFile::permissions(local_.path(u"film.mp4"_s)) & QFile::WriteOwner);
    EXPECT_FALSE(promises_.isBeingRead());
    EXPECT_FALSE(succeeds(u"rm"_s, {u"-rf"_s, paths[0]})); // dragging out moves nothing away
}

TEST_F(OnDemandMountTest, brokenCopyIsAnErrorForItsReaderAndIsReported) {
    beSlow();
    QProcess copy;
    start(copy, u"cat"_s, paths_);
    ASSERT_TRUE(copy.waitForReadyRead(30'000));
    phone().android.unplug();
    ASSERT_TRUE(copy.waitForFinished(60'000));
    EXPECT_NE(copy.exitCode(), 0);
    auto reported = reported_.get_future();
    ASSERT_EQ(reported.wait_for(30s), std::future_status::ready);
    EXPECT_EQ(reported.get(), u"film.mp4"_s);
    // Nor does one who stops short of the end take what there is for the whole.
    EXPECT_FALSE(succeeds(u"tail"_s, {u"-c"_s, u"10"_s, paths_[0]}));
}

TEST_F(OnDemandMountTest, readersGetWhatIsThereAndNeedNotWaitForTheRest) {
    beSlow();
    QProcess killed;
    start(killed, u"cat"_s, paths_);
    ASSERT_TRUE(killed.waitForReadyRead(30'000));
    EXPECT_TRUE(film_.startsWith(killed.readAllStandardOutput()));
    EXPECT_TRUE(promises_.isBeingRead());
    killed.kill();
    EXPECT_TRUE(killed.waitForFinished(10'000));

    QProcess left;
    start(left, u"cat"_s, paths_);
    promises_.stop();
    EXPECT_TRUE(left.waitForFinished(30'000));
    EXPECT_NE(left.exitCode(), 0);
    EXPECT_FALSE(QFileInfo::exists(paths_[0]));
}

TEST_F(OnDemandMountTest, manyReadersAreServedAtOnceAndMayGo) {
    constexpr int readers = 50;
    for (int n = 0; n < readers; ++n)
        phone().write(u"DCIM/Many/%1"_s.arg(n), film_.left(20'000));
    const QString folder = promise({item("/DCIM/Many")}).value(0);
    const QString script = u"cd '%1' && ls | xargs -P %2 -n 1 cat > '%3'"_s;
    ASSERT_TRUE(
        succeeds(u"sh"_s, {u"-c"_s, script.arg(folder).arg(readers).arg(local_.path(u"all"_s))}));
    EXPECT_EQ(local_.read(u"all"_s).size(), readers * 20'000);

    beSlow();
    std::array<QProcess, readers> programs;
    for (int n = 0; n < readers; ++n)
        start(programs.at(static_cast<std::size_t>(n)), u"cat"_s, {u"%1/%2"_s.arg(folder).arg(n)});
    for (QProcess& program : programs)
        program.kill();
    for (QProcess& program : programs)
        EXPECT_TRUE(program.waitForFinished(10'000));
}

} // namespace
} // namespace tessary
