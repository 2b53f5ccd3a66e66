#include "views/phone/PhonePage.h"
#include "WindowFixture.h"
#include "browser/storage/StorageUses.h"
#include "views/phone/UseBar.h"
#include "views/phone/VolumeCard.h"

#include <QPushButton>
#include <QToolButton>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// A phone's own page, which the fixture has left for the files.
class PhonePageTest : public WindowFixture {
protected:
    PhonePageTest() {
        EXPECT_TRUE(wait([this] { return page().findChild<UseBar*>() != nullptr; }));
    }

    [[nodiscard]] PhonePage& page() const {
        return *window_->findChild<PhonePage*>();
    }
    [[nodiscard]] QPushButton& button(const char* name) const {
        return *page().findChild<QPushButton*>(QString::fromLatin1(name));
    }
    [[nodiscard]] QString used() const {
        return page().findChild<UseBar*>()->accessibleDescription();
    }
};

TEST_F(PhonePageTest, theWaysToThePageAndBackAreThoseOfFolders) {
    const struct {
        const char* name;
        std::function<void()> go;
    } ways[] = {
        {"Backspace", [this] { press(Qt::Key_Backspace); }},
        {"Alt+Up", [this] { press(Qt::Key_Up, Qt::AltModifier); }},
        {"Alt+Left", [this] { press(Qt::Key_Left, Qt::AltModifier); }},
        {"a click on the phone", [this] { clickRow(list("deviceList"), 0); }},
    };
    for (const auto& way : ways) {
        SCOPED_TRACE(way.name);
        go(u"/sdcard"_s, u"DCIM"_s);
        table().setFocus();
        way.go();
        ASSERT_TRUE(wait([this] { return page().isVisible(); }));
        EXPECT_TRUE(page().isAncestorOf(QApplication::focusWidget())) << "the keys go along";
        EXPECT_FALSE(list("volumeList").currentIndex().isValid());
        press(Qt::Key_Return);
        ASSERT_TRUE(wait([this] { return table().isVisible() && isShown(u"DCIM"_s); }));
        EXPECT_TRUE(table().hasFocus());
    }
    openFolder();
    clickRow(list("deviceList"), 0);
    press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(wait([this] { return table().isVisible() && isShown(u"alpha.txt"_s); }));
    EXPECT_FALSE(row(u"New Folder"_s).isValid()) << "nothing is done behind the page";
    press(Qt::Key_Right, Qt::AltModifier);
    EXPECT_TRUE(page().isVisible());
    QTest::mouseClick(&page().findChild<VolumeCard*>()->heading(), Qt::LeftButton);
    EXPECT_TRUE(wait([this] { return table().isVisible() && isShown(u"DCIM"_s); })) << "a volume";
}

TEST_F(PhonePageTest, whatFillsThePhoneIsAddedUpWhileSomebodyLooks) {
    const auto& uses = *page().findChild<StorageUses*>();
    PluggedPhone other(bus_, phoneConfig("OTHER", "1-2")); // nobody has looked at it yet
    other.write(u"DCIM/IMG_1.JPG"_s, QByteArray(300'000, 'x'));
    const auto& devices = app_->deviceManager().devices();
    ASSERT_TRUE(wait([&] {
        return devices.size() == 2 && !devices[0].volumes.empty() && !devices[1].volumes.empty();
    }));
    other.fault([](VirtualFaults& faults) { faults.delayEach = std::chrono::seconds(1); });
    chooseOtherPhone();
    EXPECT_TRUE(uses.isLooking());
    window_->choice().browseFiles();
    EXPECT_FALSE(uses.isLooking()) << "nobody looks any more";
    other.fault([](VirtualFaults& faults) { faults.delayEach = {}; });
    window_->browser().showPhone();
    EXPECT_TRUE(wait([&] { return !uses.isLooking(); }));
    EXPECT_THAT(used().toStdString(), testing::HasSubstr("Photos 300 kB"));
    window_->choice().browseFiles();
    window_->browser().showPhone();
    EXPECT_FALSE(uses.isLooking()) << "all of it is known, and nothing has changed";
    close();
}

TEST_F(PhonePageTest, aLockedPhoneSaysInPlaceWhatToDo) {
    window_->browser().showPhone();
    const auto* trouble = page().findChild<QWidget*>(u"phoneTrouble"_s);
    EXPECT_FALSE(trouble->isVisible());
    phone_.android.setLocked(true);
    app_->deviceManager().refreshDeviceList(true);
    EXPECT_TRUE(wait([&] { return trouble->isVisible() && !button("browseFiles").isEnabled(); }));
    EXPECT_TRUE(page().isVisible());
    phone_.android.setLocked(false);
    app_->deviceManager().refreshDeviceList(true);
    EXPECT_TRUE(wait([&] { return !trouble->isVisible() && button("browseFiles").isEnabled(); }));
}

TEST_F(PhonePageTest, itsOwnPairsAreSyncedAndNoOther) {
    EXPECT_FALSE(button("syncNow").isEnabled());
    SyncPair own;
    own.deviceUDID = window_->browser().activeDevice()->udid;
    own.appBundleID = SyncPair::deviceStorage;
    own.remoteFolderPath = u"/sdcard/DCIM"_s;
    own.localFolderPath = local_.makeFolder(u"kept"_s);
    own.lastSyncedAt = QDateTime::currentDateTime(); // else it is shown first
    SyncPair other = own;
    other.id = QUuid::createUuid();
    other.deviceUDID = u"another phone"_s;
    for (const SyncPair& pair : {own, other})
        app_->syncManager().addSyncPair(pair);
    window_->browser().showPhone();
    QTest::mouseClick(&button("syncNow"), Qt::LeftButton);
    EXPECT_TRUE(app_->syncManager().isRunningOrWaiting(own.id));
    EXPECT_FALSE(app_->syncManager().isRunningOrWaiting(other.id));
    EXPECT_TRUE(wait([this] { return local_.read(u"kept/alpha.txt"_s) == "a"; }));
    EXPECT_TRUE(wait([this] { return !app_->syncManager().isRunning(); }));
}

} // namespace
} // namespace tessary
