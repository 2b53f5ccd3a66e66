#include "WindowFixture.h"
#include "ios/Multiplexer.h"
#include "support/PluggedIPhone.h"

#include <QDir>
#include <QPushButton>
#include <QThread>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using State = ImportViewModel::State;

/// A window with an iPhone whose camera was used.
class ImportWindowTest : public AppWindowFixture {
protected:
    ImportWindowTest() : iphone_(media(camera_)) {
        defaults_->setValue(u"importFolder"_s, local_.path(u"pictures"_s));
        open({bus_, &multiplexer_});
        EXPECT_TRUE(wait([this] { return app_->deviceManager().devices().size() == 1; }));
    }
    ~ImportWindowTest() override {
        close();
    }
    static VirtualIPhoneConfig media(const TemporaryFolder& camera) {
        // The newest is shown first.
        int age = 0;
        for (const char* name : {"IMG_0001.HEIC", "IMG_0001.MOV", "IMG_0002.JPG", "IMG_0003.MOV"}) {
            QFile file(camera.write(u"DCIM/100APPLE/"_s + QString::fromLatin1(name), name));
            EXPECT_TRUE(file.open(QIODevice::ReadWrite) &&
                        file.setFileTime(today().addSecs(-++age), QFile::FileModificationTime));
        }
        return {.mediaFolder = camera.path()};
    }

    static QDateTime today() {
        return {QDate::currentDate(), QTime(12, 0)};
    }
    /// Opens the page, as the sidebar's button does.
    void look() {
        auto& action = *window_->findChild<QAction*>(u"importAction"_s);
        ASSERT_TRUE(wait([&] { return action.isEnabled(); }));
        action.trigger();
        ASSERT_TRUE(wait([this] { return state() == State::choosing; }));
    }
    [[nodiscard]] State state() const {
        return window_->import().state();
    }
    template <typename Widget>
    [[nodiscard]] Widget& find(const QString& name) const {
        return *window_->findChild<Widget*>(name);
    }
    void press(const QString& name) const {
        QTest::mouseClick(&find<QPushButton>(name), Qt::LeftButton);
    }
    [[nodiscard]] QStringList rows() const {
        QStringList texts;
        const auto& model = *list("photoList").model();
        for (int row = 0; row < model.rowCount(); ++row)
            texts << model.index(row, 0).data().toString();
        return texts;
    }
    /// Presses the page's button for it, and answers the question.
    void deleteFromThePhone() {
        whileAsked(u"Delete"_s);
        QTest::mouseClick(shownButton(u"Delete from the Phone…"_s), Qt::LeftButton);
    }
    /// What has been imported, by name.
    [[nodiscard]] QStringList here() const {
        const QString year = QDate::currentDate().toString(u"yyyy/yyyy-MM-dd"_s);
        return local_.has(u"pictures"_s) ? local_.names(u"pictures/"_s + year) : QStringList();
    }

    TemporaryFolder camera_;
    PluggedIPhone iphone_;
    Multiplexer multiplexer_;
};

TEST_F(ImportWindowTest, whatIsChosenIsFetchedAndThenGoesFromThePhoneWhenAsked) {
    look();
    auto& photos = list("photoList");
    EXPECT_TRUE(photos.isVisible());
    EXPECT_EQ(rows(),
              (QStringList{u"Today"_s, u"IMG_0001.HEIC"_s, u"IMG_0002.JPG"_s, u"IMG_0003.MOV"_s}));
    EXPECT_EQ(window_->import().chosenCount(), 3);
    clickRow(photos, 0); // the day
    EXPECT_EQ(window_->import().chosenCount(), 0);
    EXPECT_FALSE(find<QPushButton>(u"importProceed"_s).isEnabled());
    clickRow(photos, 0);
    clickRow(photos, 3);
    EXPECT_EQ(window_->import().chosenCount(), 2);
    photos.setFocus();
    photos.setCurrentIndex(photos.model()->index(3, 0));
    QTest::keyClick(&photos, Qt::Key_Space);
    EXPECT_EQ(window_->import().chosenCount(), 3);
    clickRow(photos, 3);

    press(u"importProceed"_s);
    ASSERT_TRUE(wait([this] { return state() == State::copied; }));
    EXPECT_EQ(here(), (QStringList{u"IMG_0001.HEIC"_s, u"IMG_0001.MOV"_s, u"IMG_0002.JPG"_s}));
    EXPECT_EQ(window_->import().arrivedCount(), 2);

    deleteFromThePhone();
    ASSERT_TRUE(wait([this] { return state() == State::removed; }));
    EXPECT_EQ(camera_.names(u"DCIM/100APPLE"_s), QStringList(u"IMG_0003.MOV"_s));

    press(u"importProceed"_s);
    ASSERT_TRUE(wait([this] { return state() == State::choosing; }));
    EXPECT_EQ(rows().last(), u"IMG_0003.MOV"_s);
    press(u"importLeave"_s);
    EXPECT_TRUE(wait([this] { return window_->choice().isAtPhone(); })) << "where one came from";
}

TEST_F(ImportWindowTest, aCancelledImportSaysWhatIsOnTheDisk) {
    look();
    press(u"importProceed"_s);
    QThread::msleep(200); // it was prepared, and nobody has heard of it yet
    press(u"importLeave"_s);
    ASSERT_TRUE(wait([this] { return state() != State::copying; }));
    EXPECT_EQ(state(), State::choosing);
    EXPECT_TRUE(window_->copyQueue().jobs().empty());

    iphone_.faults(
        [](VirtualIPhoneFaults& faults) { faults.delayEach = std::chrono::milliseconds(50); });
    press(u"importProceed"_s);
    ASSERT_TRUE(wait([this] { return here().contains(u"IMG_0003.MOV"_s); })) << "the oldest";
    press(u"importLeave"_s);
    ASSERT_TRUE(wait([this] { return state() == State::copied; }));
    EXPECT_EQ(window_->import().arrivedCount(), here().size());
    EXPECT_FALSE(here().contains(u"IMG_0001.MOV"_s));

    // What is fetched once more and gone here is here when it has come.
    ASSERT_TRUE(QDir(local_.path(u"pictures"_s)).removeRecursively());
    press(u"importProceed"_s);
    ImportViewModel& import = window_->import();
    import.setShowsFetched(true);
    for (const Photo& photo : import.photos())
        import.choose({photo.id()}, true);
    press(u"importProceed"_s);
    ASSERT_TRUE(wait([&] { return import.job() != nullptr; }));
    press(u"importLeave"_s);
    ASSERT_TRUE(wait([this] { return state() == State::copied; }));
    EXPECT_EQ(import.arrivedCount(), here().size());
    EXPECT_LT(here().size(), 3);

    window_->copyQueue().goOn(import.job()->id);
    EXPECT_EQ(state(), State::copying) << "it is not over any more";
    ASSERT_TRUE(wait([this] { return state() == State::copied; }));
    EXPECT_EQ(import.arrivedCount(), 3);
}

TEST_F(ImportWindowTest, aRemovalGoesOnWhenItsPageIsLeftAndSaysHowItEnded) {
    look();
    press(u"importProceed"_s);
    ASSERT_TRUE(wait([this] { return state() == State::copied; }));
    iphone_.faults([](VirtualIPhoneFaults& faults) {
        faults.delayEach = std::chrono::milliseconds(200); // it is under way when the page is left
    });
    deleteFromThePhone();
    ASSERT_EQ(state(), State::removing);
    clickRow(list("deviceList"), 0);
    EXPECT_FALSE(find<QWidget>(u"importView"_s).isVisible());
    EXPECT_TRUE(window_->import().isRemoving()); // quitting asks
    ASSERT_TRUE(wait([this] { return banner().isVisible(); }));
    EXPECT_EQ(banner().accessibleName(), u"3 photos and videos deleted from the phone"_s);
    EXPECT_EQ(camera_.names(u"DCIM/100APPLE"_s), QStringList());
    EXPECT_FALSE(window_->import().isRemoving());
}

} // namespace
} // namespace tessary
