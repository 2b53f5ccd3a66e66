#include "WindowFixture.h"
#include "app/texts/ErrorText.h"
#include "ios/Multiplexer.h"
#include "support/PluggedIPhone.h"

#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// A window with an iPhone and no other phone.
class IPhoneWindowTest : public AppWindowFixture {
protected:
    explicit IPhoneWindowTest(const VirtualIPhoneConfig& config = {}) : phone_(config) {
        phone_.write(u"letter.txt"_s, "dear");
        open(DeviceSources(bus_, &multiplexer_));
    }
    ~IPhoneWindowTest() override {
        close();
    }

    [[nodiscard]] QListView& appList() const {
        return list("appList");
    }
    [[nodiscard]] bool showsApps() const {
        return appList().isVisible() && appList().model()->rowCount() > 1;
    }
    /// From the phone's own page to its apps.
    void openApps() const {
        auto* apps = window_->findChild<QPushButton*>(u"showApps"_s);
        ASSERT_TRUE(wait([&] { return apps->isVisible(); }));
        QTest::mouseClick(apps, Qt::LeftButton);
        ASSERT_TRUE(wait([this] { return showsApps(); }));
    }
    /// An app, or the photos beside them.
    void clickApp(const QString& name) const {
        for (int row = 0; row < appList().model()->rowCount(); ++row)
            if (appList().model()->index(row, 0).data().toString() == name)
                clickRow(appList(), row);
    }
    [[nodiscard]] QToolButton* pathPart(const QString& name) const {
        for (auto* part :
             window_->findChild<QWidget*>(u"breadcrumbs"_s)->findChildren<QToolButton*>())
            if (part->isVisible() && part->text() == name)
                return part;
        return nullptr;
    }
    [[nodiscard]] bool showsLetter() const {
        const auto& items = window_->browser().items();
        return !window_->browser().isLoading() && items.size() == 1 &&
               items.front().name == u"letter.txt"_s;
    }

    PluggedIPhone phone_;
    SystemMultiplexer multiplexer_;
};

TEST_F(IPhoneWindowTest, appIsChosenAndItsDocumentsAreCopied) {
    openApps();
    auto& search = *window_->findChild<QLineEdit*>(u"appSearch"_s);
    QTest::keyClicks(&search, u"zzz"_s);
    EXPECT_TRUE(wait([this] { return !appList().isVisible(); }));
    QTest::keyClick(&search, Qt::Key_Escape);
    ASSERT_TRUE(wait([this] { return showsApps(); }));
    clickApp(u"Notes"_s);
    ASSERT_TRUE(wait([this] { return showsLetter(); }));

    window_->browser().selection().selectAll();
    window_->browserView().actions().download->trigger();
    EXPECT_TRUE(wait([this] { return local_.read(u"letter.txt"_s) == "dear"; }));

    window_->browser().selection().clear();
    window_->browserView().actions().favorite->trigger();
    window_->browserView().actions().apps->trigger();
    EXPECT_TRUE(wait([this] { return showsApps(); }));
    clickRow(list("favoriteList"), 0);
    EXPECT_TRUE(wait([this] { return showsLetter() && !appList().isVisible(); }));
}

TEST_F(IPhoneWindowTest, theWayBackToTheAppsIsUp) {
    auto& listing = window_->browserView();
    const struct {
        const char* name;
        std::function<void()> go;
    } ways[] = {
        {"Up", [&] { listing.actions().up->trigger(); }},
        {"Backspace", [&] { QTest::keyClick(&listing.currentListing(), Qt::Key_Backspace); }},
        {"the path", [&] { QTest::mouseClick(pathPart(u"Apps"_s), Qt::LeftButton); }},
        {"the sidebar", [&] { clickRow(list("volumeList"), 1); }},
    };
    openApps();
    for (const auto& way : ways) {
        SCOPED_TRACE(way.name);
        clickApp(u"Notes"_s);
        ASSERT_TRUE(wait([this] { return showsLetter() && !appList().isVisible(); }));
        for (const QString& part : {u"Apps"_s, u"Notes"_s, u"Documents"_s})
            EXPECT_NE(pathPart(part), nullptr) << part.toStdString();
        way.go();
        EXPECT_TRUE(wait([this] { return showsApps(); }));
    }
    QTest::keyClick(&appList(), Qt::Key_Backspace);
    EXPECT_TRUE(window_->choice().isAtPhone()) << "above the apps";
}

class PhotosIPhoneWindowTest : public IPhoneWindowTest {
protected:
    PhotosIPhoneWindowTest() : IPhoneWindowTest(wishes(camera_)) {}
    static VirtualIPhoneConfig wishes(const TemporaryFolder& camera) {
        camera.write(u"DCIM/100APPLE/IMG_0001.JPG"_s, "a picture");
        VirtualIPhoneConfig config;
        config.mediaFolder = camera.path();
        return config;
    }
    [[nodiscard]] bool shows(const QString& name) const {
        const auto& items = window_->browser().items();
        return !window_->browser().isLoading() && !appList().isVisible() && !items.empty() &&
               items.front().name == name;
    }
    static inline const TemporaryFolder camera_;
};

TEST_F(PhotosIPhoneWindowTest, theyAreAVolumeBesideTheApps) {
    ASSERT_TRUE(wait([this] { return list("volumeList").model()->rowCount() == 2; }));
    clickRow(list("volumeList"), 0);
    ASSERT_TRUE(wait([this] { return shows(u"DCIM"_s); }));
    EXPECT_NE(pathPart(u"Photos && Videos"_s), nullptr);
    EXPECT_EQ(list("volumeList").currentIndex().row(), 0);
    window_->browser().navigateTo(u"/DCIM/100APPLE"_s);
    ASSERT_TRUE(wait([this] { return shows(u"IMG_0001.JPG"_s); }));
    window_->browser().selection().selectAll();
    window_->browserView().actions().download->trigger();
    EXPECT_TRUE(wait([this] { return local_.read(u"IMG_0001.JPG"_s) == "a picture"; }));
    // What is deleted here is gone in another way than on the phone.
    QString asked;
    QTimer::singleShot(50, window_.get(), [&asked] {
        auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(question, nullptr);
        asked = question->informativeText();
        question->reject();
    });
    window_->browserView().actions().remove->trigger();
    EXPECT_TRUE(asked.contains(u"Recently Deleted"_s)) << asked.toStdString();
    clickRow(list("volumeList"), 1);
    ASSERT_TRUE(wait([this] { return showsApps(); }));
    clickApp(u"Photos & Videos"_s);
    EXPECT_TRUE(wait([this] { return shows(u"DCIM"_s); }));
}

/// The page of an iPhone that cannot be read yet.
class UntrustingIPhoneWindowTest : public IPhoneWindowTest {
protected:
    UntrustingIPhoneWindowTest() : IPhoneWindowTest(wishes()) {}
    static VirtualIPhoneConfig wishes() {
        VirtualIPhoneConfig config;
        config.isPaired = false;
        config.trust = VirtualTrust::asking;
        return config;
    }
    [[nodiscard]] bool saysWhatToDo(const QString& advice) const {
        const auto& device = app_->deviceManager().devices();
        const auto trouble =
            device.size() == 1 ? app_->deviceManager().trouble(device[0].id()) : std::nullopt;
        return trouble && errorText(trouble->error).advice == advice && !showsApps();
    }
    /// Shown by itself, within the time that a person would take for "at once".
    [[nodiscard]] bool showsAppsSoon() const {
        return QTest::qWaitFor([this] { return showsApps(); }, 2000);
    }
};

TEST_F(UntrustingIPhoneWindowTest, itsAppsAreShownOnceItTrustsThisComputer) {
    ASSERT_TRUE(wait([this] {
        return saysWhatToDo(u"Unlock the phone and answer its question: tap “Trust” or “Allow”."_s);
    }));
    EXPECT_EQ(phone_.count("lockdown.Pair"), 1U);
    const auto* trouble = window_->findChild<QWidget*>(u"phoneTrouble"_s);
    EXPECT_TRUE(trouble->isVisible()) << "on the phone's own page";
    window_->choice().showApps();
    phone_.phone.setTrust(VirtualTrust::trusted);
    EXPECT_TRUE(showsAppsSoon());
    window_->choice().showPhone();
    EXPECT_FALSE(trouble->isVisible());
    EXPECT_EQ(phone_.count("lockdown.Pair"), 1U);
}

} // namespace
} // namespace tessary
