#include "WindowFixture.h"
#include "app/texts/ErrorText.h"
#include "ios/Multiplexer.h"
#include "support/PluggedIPhone.h"

#include <QElapsedTimer>
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
        sinceOpened_.start();
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

    /// How often a phone may have been asked for trust that is so once in each of these times.
    [[nodiscard]] std::size_t timesSinceOpened(std::chrono::seconds pause) const {
        return 1 +
               static_cast<std::size_t>(std::chrono::milliseconds(sinceOpened_.elapsed()) / pause);
    }

    PluggedIPhone phone_;
    Multiplexer multiplexer_;
    QElapsedTimer sinceOpened_;
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
    explicit PhotosIPhoneWindowTest(const VirtualIPhoneConfig& config = {})
        : IPhoneWindowTest(withPhotos(config)) {}
    static VirtualIPhoneConfig withPhotos(VirtualIPhoneConfig config) {
        camera_.write(u"DCIM/100APPLE/IMG_0001.JPG"_s, "a picture");
        config.mediaFolder = camera_.path();
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
    whileAsked(u"Cancel"_s, [&] { asked = question()->informativeText(); });
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
    UntrustingIPhoneWindowTest()
        : IPhoneWindowTest({.trust = VirtualTrust::asking, .isPaired = false}) {}
    [[nodiscard]] bool saysWhatToDo(const QString& advice) const {
        const auto& device = app_->deviceManager().devices();
        const auto trouble =
            device.size() == 1 ? app_->deviceManager().trouble(device[0].id()) : std::nullopt;
        return trouble && errorText(trouble->error).advice == advice && !showsApps();
    }
};

TEST_F(UntrustingIPhoneWindowTest, itsAppsAreShownOnceItTrustsThisComputer) {
    ASSERT_TRUE(wait([this] {
        return saysWhatToDo(u"Unlock the phone and answer its question: tap “Trust” or “Allow”."_s);
    }));
    EXPECT_LE(phone_.count("lockdown.Pair"), timesSinceOpened(PairingQuestions::firstPause));
    const auto* trouble = window_->findChild<QWidget*>(u"phoneTrouble"_s);
    EXPECT_TRUE(trouble->isVisible()) << "on the phone's own page";
    window_->choice().showApps();
    phone_.phone.setTrust(VirtualTrust::trusted);
    EXPECT_TRUE(wait([this] { return showsApps(); })) << "by itself";
    window_->choice().showPhone();
    EXPECT_FALSE(trouble->isVisible());
    EXPECT_LE(phone_.count("lockdown.Pair"), timesSinceOpened(PairingQuestions::firstPause));
    // A phone may be opened before its name is known.
    DeviceInfo device = app_->deviceManager().devices().front();
    const auto files = services_.files().openMedia(device);
    for (const std::optional<QString>& name : {std::optional(u"Ann's"_s), {}}) {
        device.deviceName = name;
        EXPECT_EQ(services_.files().openMedia(device), files) << "with its connection";
        EXPECT_EQ(files->displayName(), u"Ann's"_s);
    }
}

class LockedIPhoneWindowTest : public PhotosIPhoneWindowTest {
protected:
    LockedIPhoneWindowTest() : PhotosIPhoneWindowTest({.isPaired = false, .isLocked = true}) {}
    [[nodiscard]] bool knowsTrouble() const {
        const DeviceManager& manager = app_->deviceManager();
        return manager.devices().size() == 1 && manager.trouble(manager.devices()[0].id());
    }
};

TEST_F(LockedIPhoneWindowTest, itsPhotosAreShownOnceItIsUnlocked) {
    window_->choice().openMedia();
    ASSERT_TRUE(wait([this] { return window_->browser().state() == BrowserState::failed; }));
    EXPECT_TRUE(wait([this] { return knowsTrouble(); })) << "with the page asking all the time";
    EXPECT_LE(phone_.count("lockdown.Pair"), timesSinceOpened(PairingQuestions::lockedPause));
    phone_.phone.setLocked(false);
    EXPECT_TRUE(wait([this] { return shows(u"DCIM"_s); }));
    EXPECT_FALSE(window_->browser().problem());
}

/// An Android phone beside the iPhone, which goes on working whatever that does.
class TwoPhonesWindowTest : public IPhoneWindowTest {
protected:
    TwoPhonesWindowTest() {
        android_.write(u"DCIM/photo.jpg"_s, "photo");
        awaitPhones(2);
    }
    void awaitPhones(std::size_t count) {
        ASSERT_TRUE(wait([&] { return app_->deviceManager().devices().size() == count; }));
    }
    void unplug() {
        phone_.phone.unplug();
        awaitPhones(1);
    }
    void plugIn() {
        phone_.phone.plugInto(phone_.mux);
        awaitPhones(2);
    }
    [[nodiscard]] int rowOf(DevicePlatform platform) const {
        const auto& devices = app_->deviceManager().devices();
        return static_cast<int>(std::ranges::find(devices, platform, &DeviceInfo::platform) -
                                devices.begin());
    }
    void choose(DevicePlatform platform) {
        clickRow(list("deviceList"), rowOf(platform));
    }
    void openNotes() {
        choose(DevicePlatform::iOS);
        openApps();
        clickApp(u"Notes"_s);
        ASSERT_TRUE(wait([this] { return showsLetter(); }));
    }
    void expectAndroidWorks() {
        choose(DevicePlatform::android);
        window_->choice().browseFiles();
        window_->browser().navigateTo(u"/sdcard/DCIM"_s);
        EXPECT_TRUE(wait([this] {
            return !window_->browser().isLoading() && window_->browser().items().size() == 1;
        }));
        window_->browser().selection().selectAll();
        window_->browserView().actions().download->trigger();
        EXPECT_TRUE(wait([this] { return local_.read(u"photo.jpg"_s) == "photo"; }));
        EXPECT_FALSE(window_->browser().problem());
    }
    void askForApps() {
        QTest::keyClick(window_->findChild<QWidget*>(u"appListView"_s), Qt::Key_F5);
    }
    [[nodiscard]] QString spokenRowOf(DevicePlatform platform) const {
        const QModelIndex row = list("deviceList").model()->index(rowOf(platform), 0);
        return row.data(Qt::AccessibleTextRole).toString();
    }

    PluggedPhone android_{bus_, phoneConfig("ANDROID1")};
};

TEST_F(TwoPhonesWindowTest, aCancelEndsTheWaitForAMutePhonesApps) {
    phone_.faults(
        [](VirtualIPhoneFaults& faults) { faults.hang = {u"installationProxy.Browse"_s}; });
    choose(DevicePlatform::iOS);
    window_->choice().showApps();
    const auto waits = [&] {
        return shownButton(u"Cancel"_s) != nullptr && phone_.count("installationProxy.Browse") > 0;
    };
    for (const bool byKey : {false, true}) {
        SCOPED_TRACE(byKey);
        phone_.phone.log().clear();
        askForApps();
        ASSERT_TRUE(wait(waits));
        if (byKey)
            QTest::keyClick(shownButton(u"Cancel"_s), Qt::Key_Escape);
        else
            QTest::mouseClick(shownButton(u"Cancel"_s), Qt::LeftButton);
        EXPECT_TRUE(says(u"The apps were not read."_s)) << "at once";
        EXPECT_TRUE(says(u"Refresh the list to try again."_s));
    }
    expectAndroidWorks();
    phone_.faults([](VirtualIPhoneFaults& faults) { faults.hang.clear(); });
    choose(DevicePlatform::iOS);
    window_->choice().showApps();
    if (!showsApps())
        QTest::mouseClick(shownButton(u"Retry"_s), Qt::LeftButton);
    EXPECT_TRUE(wait([this] { return showsApps(); })) << "the cancelled question is not in the way";
}

TEST_F(TwoPhonesWindowTest, aPhoneThatHasForgottenThisComputerIsToBePluggedInAgain) {
    choose(DevicePlatform::iOS);
    EXPECT_TRUE(wait([this] {
        return spokenRowOf(DevicePlatform::iOS).contains(u"Battery 80 %"_s);
    })) << spokenRowOf(DevicePlatform::iOS).toStdString();
    unplug();
    phone_.faults([](VirtualIPhoneFaults& faults) {
        faults.handshakesToFail = 1000;
        faults.handshakeError = u"InvalidHostID"_s;
    });
    plugIn();
    choose(DevicePlatform::iOS);
    EXPECT_TRUE(wait(
        [this] { return says(u"Unplug the phone, plug it in again and tap “Trust” on it."_s); }));
    EXPECT_EQ(phone_.count("lockdown.Pair"), 0U) << "it would not ask again";
    expectAndroidWorks();
}

TEST_F(TwoPhonesWindowTest, whatAPulledCableLeavesIsNotInSightAndGoesWhenTheCopyGoesOn) {
    openNotes();
    phone_.faults([](VirtualIPhoneFaults& faults) { faults.megabytesPerSecond = 2; });
    const QByteArray film(6'000'000, 'f');
    filesToCopy_ = {local_.write(u"film"_s, film)};
    window_->browserView().actions().uploadFiles->trigger();
    const auto parts = [this] {
        return phone_.disk.names(phone_.inDocuments({})).filter(u".tessary-part-"_s);
    };
    ASSERT_TRUE(wait([&] { return !parts().isEmpty(); }));
    unplug();
    expectAndroidWorks();
    ASSERT_FALSE(parts().isEmpty());
    phone_.faults([](VirtualIPhoneFaults& faults) { faults = {}; });
    plugIn();
    choose(DevicePlatform::iOS);
    EXPECT_TRUE(wait([this] { return pathPart(u"Notes"_s) != nullptr && says(u"1 item"_s); }));
    EXPECT_TRUE(wait([this] { return shownButton(u"Continue Copying"_s) != nullptr; }));
    QTest::mouseClick(shownButton(u"Continue Copying"_s), Qt::LeftButton);
    EXPECT_TRUE(wait([&] { return phone_.read(u"film"_s) == film; }));
    EXPECT_TRUE(parts().isEmpty());
}

/// An iPhone that answers one request with what breaks whoever listens, or has no end.
struct Hostility {
    const char* name;
    const char* request;
    VirtualRawAnswer answer;
};

void PrintTo(const Hostility& hostility, std::ostream* stream) {
    *stream << hostility.name;
}

class HostileIPhoneWindowTest : public TwoPhonesWindowTest,
                                public testing::WithParamInterface<Hostility> {};

const QByteArray deep = "<plist>" + QByteArray("<array>").repeated(600'000);
INSTANTIATE_TEST_SUITE_P(
    Answers, HostileIPhoneWindowTest,
    testing::Values(Hostility{"deep", "lockdown.StartSession",
                              VirtualRawAnswer{QByteArray("\0\x40\x1a\x47", 4) + deep, false}},
                    Hostility{"endless", "installationProxy.Browse",
                              VirtualRawAnswer{
                                  QByteArray("\0\0\xff\xff", 4) + QByteArray(65'535, '<'), true}}),
    [](const auto& hostility) { return hostility.param.name; });

TEST_P(HostileIPhoneWindowTest, leavesThePhoneBesideItToWork) {
    phone_.faults([](VirtualIPhoneFaults& faults) {
        faults.rawAnswers = {{QString::fromLatin1(GetParam().request), GetParam().answer}};
    });
    const std::size_t asked = phone_.count(GetParam().request);
    choose(DevicePlatform::iOS);
    window_->choice().showApps();
    askForApps();
    ASSERT_TRUE(wait([&] { return phone_.count(GetParam().request) > asked; }));
    expectAndroidWorks();
}

} // namespace
} // namespace tessary
