#include "app/TessaryApp.h"
#include "app/views/MainWindow.h"
#include "app/views/PictureView.h"
#include "app/views/PreviewWindow.h"
#include "app/views/PropertiesDialog.h"
#include "app/views/ThumbnailStore.h"
#include "core/Background.h"
#include "core/StallWatch.h"
#include "phones/DemoMedia.h"
#include "phones/VirtualAndroid.h"
#include "platform/qt/QtProcessRunner.h"
#include "support/PluggedPhone.h"
#include "support/QtPrinters.h"

#include <QApplication>
#include <QLabel>
#include <QListView>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <QTreeView>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessary;

namespace {

constexpr int patience = 20'000;     // ms
constexpr int slowPatience = 90'000; // ms; a decoder for each, which gives way to all else

const QByteArray document = "%PDF-1.4\n1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n"
                            "2 0 obj<</Type/Pages/Kids[3 0 R 4 0 R]/Count 2>>endobj\n"
                            "3 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 200 300]>>endobj\n"
                            "4 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 300 200]>>endobj\n"
                            "trailer<</Root 1 0 R>>\n%%EOF\n";

/// A window on a virtual phone with something of every kind, used by keyboard.
class PreviewTest : public ::testing::Test {
protected:
    PreviewTest() {
        Background::restart();
        phone_.write(QStringLiteral("a picture.png"), DemoMedia::picture(320, 200, 3));
        phone_.write(QStringLiteral("b text.txt"), "first line\nsecond line\n");
        phone_.write(QStringLiteral("c document.pdf"), document);
        phone_.write(QStringLiteral("d broken.jpg"), "no picture");
        phone_.write(QStringLiteral("e data.bin"), QByteArray(5000, '\1'));
        phone_.write(QStringLiteral("f empty.txt"), "");
        phone_.write(QStringLiteral("g binary.txt"), QByteArray(5000, '\0'));
        phone_.write(QStringLiteral("Folder/Inner/deep.bin"), QByteArray(700, 'x'));
        phone_.write(QStringLiteral("Folder/top.bin"), QByteArray(300, 'x'));
        app_ = std::make_unique<TessaryApp>(bus_, files_, TessaryAppSetup{});
        window_ = std::make_unique<MainWindow>(*app_);
        window_->show();
        window_->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get(), patience));
        EXPECT_TRUE(wait([this] {
            return !browser().isLoading() && idOf(QStringLiteral("b text.txt")) != QString();
        }));
    }

    ~PreviewTest() override {
        window_.reset();
        app_.reset();
    }

    static bool wait(const std::function<bool()>& condition) {
        return QTest::qWaitFor(condition, patience);
    }
    FileBrowserViewModel& browser() {
        return window_->browser();
    }
    QString idOf(const QString& name) {
        for (const FileItem& item : browser().filteredItems())
            if (item.name == name)
                return item.id();
        return {};
    }
    void select(const QString& name) {
        browser().selectItem(idOf(name));
        // There is no window manager that would give the focus back after another window.
        EXPECT_TRUE(wait([this] {
            window_->activateWindow();
            return QGuiApplication::focusWindow() == window_->windowHandle();
        }));
        window_->browserView().currentListing().setFocus();
    }
    static void press(QWidget* on, Qt::Key key, Qt::KeyboardModifiers keys = {}) {
        QTest::keyClick(on, key, keys);
    }
    void pressInListing(Qt::Key key, Qt::KeyboardModifiers keys = {}) {
        press(&window_->browserView().currentListing(), key, keys);
    }

    template <typename Widget>
    Widget* shown(const char* name) {
        for (QWidget* top : QApplication::topLevelWidgets())
            for (Widget* found : top->findChildren<Widget*>(QString::fromLatin1(name)))
                if (found->isVisible())
                    return found;
        return nullptr;
    }
    QString textOf(const char* label) {
        const auto* found = shown<QLabel>(label);
        return found != nullptr ? found->text() : QString();
    }
    PreviewWindow* preview() {
        auto* found = window_->findChild<PreviewWindow*>();
        return found != nullptr && found->isVisible() ? found : nullptr;
    }
    void openPreview(const QString& name) {
        select(name);
        pressInListing(Qt::Key_Space);
        ASSERT_NE(preview(), nullptr);
        EXPECT_TRUE(QTest::qWaitForWindowActive(preview(), patience));
    }
    PropertiesDialog* openProperties(const QString& name) {
        select(name);
        return openProperties();
    }
    PropertiesDialog* openProperties() {
        pressInListing(Qt::Key_Return, Qt::AltModifier);
        PropertiesDialog* open = nullptr;
        for (auto* dialog : window_->findChildren<PropertiesDialog*>())
            if (dialog->isVisible())
                open = dialog;
        EXPECT_NE(open, nullptr);
        return open;
    }

    VirtualUsbBus bus_;
    PluggedPhone phone_{bus_};
    QtProcessRunner processes_;
    DeviceFileService files_{bus_, processes_};
    std::unique_ptr<TessaryApp> app_;
    std::unique_ptr<MainWindow> window_;
};

} // namespace

TEST_F(PreviewTest, arrowKeysWalkThroughEveryKindOfFile) {
    openPreview(QStringLiteral("a picture.png"));
    EXPECT_TRUE(wait([this] { return shown<PictureView>("previewPicture") != nullptr; }));
    EXPECT_EQ(shown<PictureView>("previewPicture")->image().size(), QSize(320, 200));
    EXPECT_THAT(textOf("previewCaption").toStdString(), testing::HasSubstr("320 × 200"));

    press(preview(), Qt::Key_Down);
    EXPECT_TRUE(wait([this] { return shown<QPlainTextEdit>("previewText") != nullptr; }));
    EXPECT_EQ(shown<QPlainTextEdit>("previewText")->toPlainText(),
              QStringLiteral("first line\nsecond line\n"));

    // The text has the focus now; keys walk on all the same.
    press(shown<QPlainTextEdit>("previewText"), Qt::Key_Right);
    EXPECT_TRUE(wait([this] { return textOf("previewPage") == QStringLiteral("Page 1 of 2"); }));
    press(preview(), Qt::Key_PageDown);
    EXPECT_TRUE(wait([this] { return textOf("previewPage") == QStringLiteral("Page 2 of 2"); }));
    const QImage page = shown<PictureView>("previewPicture")->image();
    EXPECT_GT(page.width(), page.height());

    press(preview(), Qt::Key_Down);
    EXPECT_TRUE(wait([this] { return textOf("previewNote").contains(QStringLiteral("damaged")); }));
    for (const char* name : {"e data.bin", "f empty.txt", "g binary.txt"}) {
        press(preview(), Qt::Key_Down);
        EXPECT_EQ(preview()->item()->name, QString::fromLatin1(name));
        EXPECT_TRUE(wait([this] {
            return shown<QWidget>("previewFacts") != nullptr &&
                   shown<QProgressBar>("previewProgress") == nullptr;
        })) << name;
    }
    press(preview(), Qt::Key_Up);
    EXPECT_EQ(preview()->item()->name, QStringLiteral("f empty.txt"));
    press(preview(), Qt::Key_Space);
    EXPECT_EQ(preview(), nullptr);

    openPreview(QStringLiteral("Folder"));
    EXPECT_THAT(textOf("previewFactsLine").toStdString(), testing::HasSubstr("Folder"));
    press(preview(), Qt::Key_Escape);
    EXPECT_EQ(preview(), nullptr);
}

TEST_F(PreviewTest, fetchingShowsProgressAndCanBeCancelled) {
    phone_.write(QStringLiteral("big.png"), QByteArray(30'000'000, 'x'));
    phone_.fault([](VirtualFaults& faults) { faults.megabytesPerSecond = 2; });
    pressInListing(Qt::Key_F5);
    ASSERT_TRUE(wait([this] { return !idOf(QStringLiteral("big.png")).isEmpty(); }));
    openPreview(QStringLiteral("big.png"));
    EXPECT_TRUE(wait([this] {
        const auto* bar = shown<QProgressBar>("previewProgress");
        return bar != nullptr && bar->maximum() > 0 && bar->value() > 0;
    }));
    QTest::mouseClick(shown<QPushButton>("previewCancel"), Qt::LeftButton);
    EXPECT_EQ(shown<QProgressBar>("previewProgress"), nullptr);
    EXPECT_EQ(textOf("previewNote"), QStringLiteral("Cancelled"));
}

TEST_F(PreviewTest, previewFollowsTheListingAndGoesWithItsFile) {
    openPreview(QStringLiteral("a picture.png"));
    browser().selectItem(idOf(QStringLiteral("b text.txt")));
    EXPECT_EQ(preview()->item()->name, QStringLiteral("b text.txt"));
    phone_.android.unplug();
    EXPECT_TRUE(wait([this] { return preview() == nullptr; }));
}

TEST_F(PreviewTest, propertiesTellTheExactFacts) {
    PropertiesDialog* dialog = openProperties(QStringLiteral("e data.bin"));
    EXPECT_EQ(textOf("propertiesTitle"), QStringLiteral("e data.bin"));
    EXPECT_THAT(textOf("propertiesSize").toStdString(), testing::HasSubstr("5,000 bytes"));
    EXPECT_EQ(textOf("propertiesKind"), QStringLiteral("File"));
    EXPECT_EQ(textOf("propertiesPath").remove(QChar(0x200B)), QStringLiteral("/sdcard/e data.bin"));
    press(dialog, Qt::Key_Escape);
    EXPECT_TRUE(wait([this] { return window_->findChild<PropertiesDialog*>() == nullptr; }));
}

TEST_F(PreviewTest, propertiesOfSeveralCountWhatIsInTheirFolders) {
    select(QStringLiteral("e data.bin"));
    browser().selectItem(idOf(QStringLiteral("Folder")), SelectionChange::toggle);
    PropertiesDialog* dialog = openProperties();
    EXPECT_EQ(textOf("propertiesTitle"), QStringLiteral("2 items"));
    EXPECT_TRUE(wait([dialog] { return !dialog->isCounting(); }));
    EXPECT_EQ(textOf("propertiesContent"), QStringLiteral("Files: 3, folders: 1"));
    EXPECT_THAT(textOf("propertiesSize").toStdString(), testing::HasSubstr("6,000 bytes"));
    EXPECT_EQ(shown<QPushButton>("propertiesStop"), nullptr);
}

TEST_F(PreviewTest, countingCanBeStoppedAndDiesWithItsDialog) {
    for (int i = 0; i < 60; ++i)
        phone_.write(QStringLiteral("Folder/Many/%1/x").arg(i), "x");
    phone_.fault([](VirtualFaults& faults) { faults.delayEach = std::chrono::milliseconds(20); });
    PropertiesDialog* dialog = openProperties(QStringLiteral("Folder"));
    EXPECT_TRUE(wait([this] {
        return textOf("propertiesContent").contains(QStringLiteral("folders: 6"));
    })) << textOf("propertiesContent").toStdString();
    QTest::mouseClick(shown<QPushButton>("propertiesStop"), Qt::LeftButton);
    EXPECT_FALSE(dialog->isCounting());
    EXPECT_THAT(textOf("propertiesSize").toStdString(), testing::StartsWith("≥"));
    EXPECT_THAT(textOf("propertiesNote").toStdString(), testing::HasSubstr("stopped"));
    dialog->close();
    // As if he had seen enough at once.
    openProperties(QStringLiteral("Folder"))->close();
}

TEST_F(PreviewTest, everyControlHasAName) {
    openPreview(QStringLiteral("c document.pdf"));
    EXPECT_TRUE(wait([this] { return !textOf("previewPage").isEmpty(); }));
    for (const auto* button : preview()->findChildren<QToolButton*>())
        EXPECT_FALSE(button->accessibleName().isEmpty());
    press(preview(), Qt::Key_Escape);
    for (const auto* button :
         openProperties(QStringLiteral("Folder"))->findChildren<QPushButton*>())
        EXPECT_FALSE(button->text().isEmpty());
}

TEST_F(PreviewTest, gridShowsThumbnailsOfWhatIsSeenAndNeverWaitsForThem) {
    constexpr int pictures = 200;
    for (int i = 0; i < pictures; ++i)
        phone_.write(QStringLiteral("Camera/%1.png").arg(i, 3, 10, QLatin1Char('0')),
                     DemoMedia::picture(64, 64, static_cast<std::uint32_t>(i)));
    phone_.write(QStringLiteral("Camera/000 broken.png"), "no picture");
    browser().setViewMode(ViewMode::grid);
    browser().navigateTo(QStringLiteral("/sdcard/Camera"));
    auto& grid = *window_->findChild<QListView*>(QStringLiteral("fileGrid"));
    auto& store = *window_->findChild<ThumbnailStore*>();
    QSignalSpy ready(&store, &ThumbnailStore::thumbnailReady);
    EXPECT_TRUE(wait([this] { return !idOf(QStringLiteral("199.png")).isEmpty(); }));
    const StallWatch watch;
    EXPECT_TRUE(QTest::qWaitFor([&] { return ready.count() >= 2; }, slowPatience));
    grid.verticalScrollBar()->setValue(grid.verticalScrollBar()->maximum());
    const QString last = idOf(QStringLiteral("199.png"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !store.find(last, 1).isNull(); }, slowPatience));
    // What was scrolled past is left out, what is seen is made.
    EXPECT_TRUE(store.find(idOf(QStringLiteral("100.png")), 1).isNull());
    EXPECT_LT(ready.count(), pictures / 2);
    EXPECT_LT(watch.longest(), 1000);
    RecordProperty("longestStallMs", std::to_string(watch.longest()));

    // A second visit finds them on the disk and leaves the phone alone.
    store.setIsVisible([](const QString&) { return false; }); // what waits is not wanted any more
    EXPECT_TRUE(QTest::qWaitFor([&] { return store.isIdle(); }, slowPatience));
    const auto asked = phone_.requests(MTPOperationCode::getObject) +
                       phone_.requests(MTPOperationCode::getPartialObject);
    ThumbnailStore another(browser(), 96);
    EXPECT_TRUE(wait([&] { return !another.find(last, 1).isNull(); }));
    EXPECT_EQ(phone_.requests(MTPOperationCode::getObject) +
                  phone_.requests(MTPOperationCode::getPartialObject),
              asked);
}

TEST_F(PreviewTest, thumbnailsWaitForTransfers) {
    for (int i = 0; i < 30; ++i)
        phone_.write(QStringLiteral("Camera/%1.png").arg(i),
                     DemoMedia::picture(64, 64, static_cast<std::uint32_t>(900 + i)));
    phone_.write(QStringLiteral("Film/film.bin"), QByteArray(6'000'000, 'x'));
    phone_.fault([](VirtualFaults& faults) { faults.megabytesPerSecond = 3; });
    pressInListing(Qt::Key_F5);
    ASSERT_TRUE(wait([this] { return !idOf(QStringLiteral("Film")).isEmpty(); }));
    const TemporaryFolder target;
    browser().downloadItems({idOf(QStringLiteral("Film"))}, target.path());
    browser().setViewMode(ViewMode::grid);
    browser().navigateTo(QStringLiteral("/sdcard/Camera"));
    auto& store = *window_->findChild<ThumbnailStore*>();
    bool hadOneTooEarly = false;
    QObject::connect(&store, &ThumbnailStore::thumbnailReady, &store, [&] {
        hadOneTooEarly = hadOneTooEarly || !window_->transfers().summary().isIdle();
    });
    QSignalSpy ready(&store, &ThumbnailStore::thumbnailReady);
    EXPECT_TRUE(QTest::qWaitFor([&] { return ready.count() >= 2; }, slowPatience));
    EXPECT_FALSE(hadOneTooEarly);
    EXPECT_TRUE(target.has(QStringLiteral("Film/film.bin")));
}
