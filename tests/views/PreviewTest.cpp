#include "WindowFixture.h"
#include "simulator/content/DemoMedia.h"
#include "support/CopyNow.h"
#include "support/StallWatch.h"
#include "views/dialogs/PictureView.h"
#include "views/dialogs/PreviewWindow.h"
#include "views/dialogs/PropertiesDialog.h"
#include "views/listing/ThumbnailStore.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolButton>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

constexpr int slowPatience = 90'000; // ms; a decoder for each, which gives way to all else

const QByteArray document = "%PDF-1.4\n1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n"
                            "2 0 obj<</Type/Pages/Kids[3 0 R 4 0 R]/Count 2>>endobj\n"
                            "3 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 200 300]>>endobj\n"
                            "4 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 300 200]>>endobj\n"
                            "trailer<</Root 1 0 R>>\n%%EOF\n";

/// A window on a phone with something of every kind.
class PreviewTest : public WindowFixture {
protected:
    PreviewTest()
        : WindowFixture({{u"a film.mov"_s, DemoMedia::film()},
                         {u"a picture.png"_s, DemoMedia::picture(320, 200, 3)},
                         {u"b text.txt"_s, "first line\nsecond line\n"},
                         {u"c document.pdf"_s, document},
                         {u"d broken.jpg"_s, "no picture"},
                         {u"e data.bin"_s, QByteArray(5000, '\1')},
                         {u"f empty.txt"_s, ""},
                         {u"g binary.txt"_s, QByteArray(5000, '\0')},
                         {u"Folder/Inner/deep.bin"_s, QByteArray(700, 'x')},
                         {u"Folder/top.bin"_s, QByteArray(300, 'x')}}) {}

    FileBrowserViewModel& browser() {
        return window_->browser();
    }
    static bool wait(const std::function<bool()>& condition) {
        return QTest::qWaitFor(condition, slowPatience);
    }
    static void pressOn(QWidget* widget, Qt::Key key) {
        QTest::keyClick(widget, key);
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
        click(name);
        press(Qt::Key_Space);
        ASSERT_NE(preview(), nullptr);
        EXPECT_TRUE(QTest::qWaitForWindowActive(preview(), windowPatience));
    }
    PropertiesDialog* openProperties() {
        press(Qt::Key_Return, Qt::AltModifier);
        PropertiesDialog* open = nullptr;
        for (auto* dialog : window_->findChildren<PropertiesDialog*>())
            if (dialog->isVisible())
                open = dialog;
        EXPECT_NE(open, nullptr);
        return open;
    }
};

TEST_F(PreviewTest, arrowKeysWalkThroughEveryKindOfFile) {
    openPreview(u"a film.mov"_s);
    const auto isPicture = [this](const QSize& size) {
        const auto* view = shown<PictureView>("previewPicture");
        return view != nullptr && view->image().size() == size;
    };
    EXPECT_TRUE(wait([&] { return isPicture({320, 240}); }));
    pressOn(preview(), Qt::Key_Down);
    EXPECT_TRUE(wait([&] { return isPicture({320, 200}); }));
    EXPECT_THAT(textOf("previewCaption").toStdString(), testing::HasSubstr("320 × 200"));

    pressOn(preview(), Qt::Key_Down);
    EXPECT_TRUE(wait([this] { return shown<QPlainTextEdit>("previewText") != nullptr; }));
    EXPECT_EQ(shown<QPlainTextEdit>("previewText")->toPlainText(), u"first line\nsecond line\n"_s);

    // The text has the focus now; keys walk on all the same.
    pressOn(shown<QPlainTextEdit>("previewText"), Qt::Key_Right);
    EXPECT_TRUE(wait([this] { return textOf("previewPage") == u"Page 1 of 2"_s; }));
    for (const auto* button : preview()->findChildren<QToolButton*>())
        EXPECT_FALSE(button->accessibleName().isEmpty());
    pressOn(preview(), Qt::Key_PageDown);
    EXPECT_TRUE(wait([this] { return textOf("previewPage") == u"Page 2 of 2"_s; }));
    const QImage page = shown<PictureView>("previewPicture")->image();
    EXPECT_GT(page.width(), page.height());

    pressOn(preview(), Qt::Key_Down);
    EXPECT_TRUE(wait([this] { return textOf("previewNote").contains(u"damaged"_s); }));
    for (const char* name : {"e data.bin", "f empty.txt", "g binary.txt"}) {
        pressOn(preview(), Qt::Key_Down);
        EXPECT_EQ(preview()->item()->name, QString::fromLatin1(name));
        EXPECT_TRUE(wait([this] {
            return shown<QWidget>("previewFacts") != nullptr &&
                   shown<QProgressBar>("previewProgress") == nullptr;
        })) << name;
    }
    pressOn(preview(), Qt::Key_Up);
    EXPECT_EQ(preview()->item()->name, u"f empty.txt"_s);
    pressOn(preview(), Qt::Key_Space);
    EXPECT_EQ(preview(), nullptr);

    openPreview(u"Folder"_s);
    EXPECT_TRUE(wait([this] { return textOf("previewFactsLine").contains(u"Folder"_s); }));
    pressOn(preview(), Qt::Key_Escape);
    EXPECT_EQ(preview(), nullptr);
}

TEST_F(PreviewTest, propertiesTellTheExactFactsAndCountWhatIsInFolders) {
    click(u"e data.bin"_s);
    PropertiesDialog* dialog = openProperties();
    EXPECT_EQ(textOf("propertiesTitle"), u"e data.bin"_s);
    EXPECT_THAT(textOf("propertiesSize").toStdString(), testing::HasSubstr("5,000 bytes"));
    EXPECT_EQ(textOf("propertiesPath"), u"/sdcard/e data.bin"_s);
    pressOn(dialog, Qt::Key_Escape);
    EXPECT_TRUE(wait([this] { return window_->findChild<PropertiesDialog*>() == nullptr; }));

    click(u"Folder"_s, Qt::ControlModifier);
    dialog = openProperties();
    EXPECT_EQ(textOf("propertiesTitle"), u"2 items"_s);
    EXPECT_TRUE(wait([dialog] { return !dialog->isCounting(); }));
    EXPECT_EQ(textOf("propertiesContent"), u"Files: 3, folders: 1"_s);
    EXPECT_THAT(textOf("propertiesSize").toStdString(), testing::HasSubstr("6,000 bytes"));
    EXPECT_EQ(shown<QPushButton>("propertiesStop"), nullptr);
}

TEST_F(PreviewTest, gridShowsThumbnailsOfWhatIsSeenAndNeverWaitsForThem) {
    constexpr int pictures = 200;
    for (int i = 0; i < pictures; ++i)
        phone_.write(u"Camera/%1.png"_s.arg(i, 3, 10, QLatin1Char('0')),
                     DemoMedia::picture(64, 64, static_cast<std::uint32_t>(i)));
    phone_.write(u"Camera/000 broken.png"_s, "no picture");
    press(Qt::Key_F5);
    ASSERT_TRUE(wait([this] { return !idOf(u"Camera"_s).isEmpty(); }));
    browser().setViewMode(ViewMode::grid);
    browser().navigateTo(u"/sdcard/Camera"_s);
    auto& grid = *window_->findChild<QListView*>(u"fileGrid"_s);
    auto& store = *window_->findChild<QListView*>(u"fileGrid"_s)->findChild<ThumbnailStore*>();
    QSignalSpy ready(&store, &ThumbnailStore::thumbnailReady);
    EXPECT_TRUE(wait([this] { return !idOf(u"199.png"_s).isEmpty(); }));
    const StallWatch watch;
    EXPECT_TRUE(wait([&] { return ready.count() >= 2; }));
    grid.verticalScrollBar()->setValue(grid.verticalScrollBar()->maximum());
    const QString last = idOf(u"199.png"_s);
    EXPECT_TRUE(wait([&] { return !store.find(last, 1).isNull(); }));
    // What was scrolled past is left out, what is seen is made.
    EXPECT_TRUE(store.find(idOf(u"100.png"_s), 1).isNull());
    EXPECT_LT(ready.count(), pictures / 2);
    EXPECT_LT(watch.longest(), 1000);

    // A second visit finds them on the disk and leaves the phone alone.
    store.setIsVisible([](const QString&) { return false; }); // what waits is not wanted any more
    EXPECT_TRUE(wait([&] { return store.isIdle(); }));
    const auto requests = [this] {
        return phone_.requests(MTPOperationCode::getObject) +
               phone_.requests(MTPOperationCode::getPartialObject);
    };
    const auto asked = requests();
    ThumbnailStore another(browser(), 96);
    EXPECT_TRUE(wait([&] { return !another.find(last, 1).isNull(); }));
    EXPECT_EQ(requests(), asked);
}

TEST_F(PreviewTest, thumbnailsWaitForTransfers) {
    for (int i = 0; i < 30; ++i)
        phone_.write(u"Camera/%1.png"_s.arg(i),
                     DemoMedia::picture(64, 64, static_cast<std::uint32_t>(900 + i)));
    phone_.write(u"Film/film.bin"_s, QByteArray(6'000'000, 'x'));
    phone_.fault([](VirtualFaults& faults) { faults.megabytesPerSecond = 3; });
    press(Qt::Key_F5);
    ASSERT_TRUE(wait([this] { return !idOf(u"Film"_s).isEmpty(); }));
    const TemporaryFolder target;
    downloadNow(browser(), {idOf(u"Film"_s)}, target.path());
    browser().setViewMode(ViewMode::grid);
    browser().navigateTo(u"/sdcard/Camera"_s);
    auto& store = *window_->findChild<QListView*>(u"fileGrid"_s)->findChild<ThumbnailStore*>();
    bool hadOneTooEarly = false;
    QObject::connect(&store, &ThumbnailStore::thumbnailReady, &store, [&] {
        hadOneTooEarly = hadOneTooEarly || !window_->copyQueue().summary().isIdle();
    });
    QSignalSpy ready(&store, &ThumbnailStore::thumbnailReady);
    EXPECT_TRUE(wait([&] { return !store.isIdle(); })); // they are asked for, and wait
    Q_EMIT browser().connectionChanged();
    EXPECT_TRUE(wait([&] { return ready.count() >= 2; })) << "they are asked for again";
    EXPECT_FALSE(hadOneTooEarly);
    EXPECT_TRUE(target.has(u"Film/film.bin"_s));
}

} // namespace
} // namespace tessary
