#include "WindowFixture.h"
#include "support/CopyNow.h"
#include "support/ManyBytes.h"

#include <QAction>
#include <QListWidget>
#include <QPushButton>
#include <QThread>
#include <QToolButton>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// Copies that broke off, and those of earlier.
class CopyHistoryTest : public WindowFixture {
protected:
    CopyHistoryTest() : WindowFixture({{u"film.mp4"_s, film()}}) {}

    static const QByteArray& film() {
        static const QByteArray bytes = manyBytes(24'000'000);
        return bytes;
    }
    void download(const QString& name) {
        downloadNow(window_->browser(), {idOf(name)}, local_.path());
    }
    /// The cable goes in the middle of the film.
    void loseFilm() {
        setSpeed(3);
        download(u"film.mp4"_s);
        ASSERT_TRUE(
            wait([this] { return !jobs().empty() && jobs().front().doneBytes() > 8'000'000; }));
        phone_.android.unplug();
        setSpeed(0);
        ASSERT_TRUE(wait([this] { return !jobs().empty() && jobs().front().isFinished(); }));
        ASSERT_EQ(jobs().front().status, CopyJob::Status::failed);
        ASSERT_FALSE(local_.has(u"film.mp4"_s));
    }
    void setSpeed(double megabytesPerSecond) {
        phone_.fault(
            [&](VirtualFaults& faults) { faults.megabytesPerSecond = megabytesPerSecond; });
    }
    void plugIn() {
        ASSERT_NE(phone_.android.plugInto(bus_), 0U);
    }
    [[nodiscard]] const std::vector<CopyJob>& jobs() const {
        return window_->copyQueue().jobs();
    }
    [[nodiscard]] QAbstractButton* offer() const {
        return shownButton(u"Continue Copying"_s);
    }
    [[nodiscard]] bool isFilmHere() const {
        return window_->copyQueue().summary().isIdle() && local_.read(u"film.mp4"_s) == film();
    }
    /// The film goes on in its middle, as the phone sees it.
    void expectToGoOn(const std::function<void()>& work) {
        phone_.android.clearRequestLog();
        work();
        EXPECT_TRUE(wait([this] { return isFilmHere(); }));
        EXPECT_EQ(phone_.requests(MTPOperationCode::getObject), 0U);
    }
    [[nodiscard]] QDialog* history() const {
        window_->findChild<QAction*>(u"copyHistoryAction"_s)->trigger();
        return window_->findChild<QDialog*>(u"copyHistory"_s);
    }
};

TEST_F(CopyHistoryTest, whatLostItsPhoneIsOfferedOnceWhenThatIsBack) {
    loseFilm();
    EXPECT_EQ(offer(), nullptr) << "the phone is away";
    plugIn();
    ASSERT_TRUE(wait([this] { return offer() != nullptr; }));
    expectToGoOn([this] { QTest::mouseClick(offer(), Qt::LeftButton); });
    EXPECT_EQ(jobs().size(), 1U) << "it is the same copy";
    EXPECT_EQ(offer(), nullptr);
}

TEST_F(CopyHistoryTest, whoDeclinesWhileTheHistoryIsWrittenIsNotAskedAgain) {
    loseFilm();
    plugIn();
    ASSERT_TRUE(wait([this] { return offer() != nullptr; }));
    ASSERT_TRUE(QFile::remove(records_.path(u"copies.json"_s)));
    Q_EMIT window_->copyQueue().recordChanged(jobs().front().id);
    do { // until it is written, and nobody has heard of it yet
        QThread::msleep(20);
    } while (!records_.has(u"copies.json"_s));
    app_->rememberedCopies().declineOffered();
    ASSERT_TRUE(
        wait([this] { return records_.read(u"copies.json"_s).contains("\"wasOffered\":true"); }));
    QTest::qWait(50);
    EXPECT_EQ(offer(), nullptr);
}

TEST_F(CopyHistoryTest, anotherStartOfTheProgramOffersItAndWhoDeclinesIsNotAskedAgain) {
    loseFilm();
    close();
    plugIn();
    open(bus_);
    ASSERT_TRUE(wait([this] { return offer() != nullptr; }));
    for (auto* button : banner().findChildren<QToolButton*>())
        button->click();
    EXPECT_EQ(offer(), nullptr);
    ASSERT_TRUE(
        wait([this] { return records_.read(u"copies.json"_s).contains("\"wasOffered\":true"); }));
    close();
    open(bus_);
    ASSERT_TRUE(wait([this] { return isShown(u"film.mp4"_s); }));
    EXPECT_EQ(offer(), nullptr);

    // The history still knows it, and goes on in its middle.
    QDialog* dialog = history();
    auto& list = *dialog->findChild<QListWidget*>(u"historyList"_s);
    auto& retry = *dialog->findChild<QPushButton*>(u"historyRetry"_s);
    ASSERT_TRUE(wait([&] { return list.count() == 1 && retry.isEnabled(); }));
    expectToGoOn([&] { retry.click(); });
    EXPECT_TRUE(wait([&] { return list.count() == 1 && !retry.isEnabled(); }));
}

} // namespace
} // namespace tessary
