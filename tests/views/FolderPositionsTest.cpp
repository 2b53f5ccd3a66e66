#include "WindowFixture.h"

#include <QScrollBar>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

QMap<QString, QByteArray> manyFiles() {
    QMap<QString, QByteArray> files;
    for (int i = 0; i < 200; ++i)
        for (const char* folder : {"Many", "More"})
            files.insert(
                u"%1/file %2.txt"_s.arg(QLatin1StringView(folder)).arg(i, 3, 10, QLatin1Char('0')),
                "x");
    return files;
}

/// Where a listing stands when the user comes back to it.
class FolderPositionsTest : public WindowFixture {
protected:
    FolderPositionsTest() : WindowFixture(manyFiles()) {}

    [[nodiscard]] QScrollBar& scrolling() const {
        return *window_->browserView().currentListing().verticalScrollBar();
    }
    /// Where the listing stands then.
    int scrollAndSelect() {
        scrolling().setValue(1500);
        window_->browser().selection().select(window_->browser().rows().item(70).id());
        QCoreApplication::processEvents();
        return scrolling().value();
    }
};

TEST_F(FolderPositionsTest, backAndForwardLeadToWhatWasLeft) {
    for (const ViewMode mode : {ViewMode::list, ViewMode::grid}) {
        SCOPED_TRACE(mode == ViewMode::list ? "list" : "grid");
        window_->browser().setViewMode(mode);
        go(u"/sdcard/Many"_s, u"file 000.txt"_s);
        EXPECT_EQ(scrolling().value(), 0) << "a new folder begins at its top";
        const int left = scrollAndSelect();
        ASSERT_GT(left, 900);

        go(u"/sdcard/More"_s, u"file 000.txt"_s);
        EXPECT_EQ(scrolling().value(), 0) << "the position of one folder is not another's";
        EXPECT_TRUE(selectedNames().isEmpty());
        scrolling().setValue(400);

        press(Qt::Key_Left, Qt::AltModifier);
        EXPECT_TRUE(wait([&] { return scrolling().value() == left; })) << scrolling().value();
        EXPECT_EQ(window_->browser().currentPath(), u"/sdcard/Many"_s);
        EXPECT_EQ(selectedNames(), QStringList(u"file 070.txt"_s));

        press(Qt::Key_Right, Qt::AltModifier);
        EXPECT_TRUE(wait([&] { return scrolling().value() == 400; })) << scrolling().value();
        EXPECT_TRUE(selectedNames().isEmpty());

        go(u"/sdcard/Many"_s, u"file 000.txt"_s);
        EXPECT_EQ(scrolling().value(), 0) << "visited anew it is a new entry of the history";
    }
}

TEST_F(FolderPositionsTest, anotherPhoneAndBackLeadsToWhatWasLeft) {
    go(u"/sdcard/Many"_s, u"file 000.txt"_s);
    go(u"/sdcard/More"_s, u"file 000.txt"_s);
    const int left = scrollAndSelect();
    PluggedPhone other(bus_, phoneConfig("OTHER", "1-2"));
    other.write(u"here.txt"_s, "here");
    chooseOtherPhone();
    ASSERT_TRUE(wait([this] { return isShown(u"here.txt"_s); }));
    EXPECT_FALSE(window_->browser().canGoBack()) << "a history of its own";

    chooseOtherPhone();
    ASSERT_TRUE(wait([this] { return isShown(u"file 000.txt"_s); }));
    EXPECT_EQ(window_->browser().currentPath(), u"/sdcard/More"_s);
    EXPECT_TRUE(wait([&] { return scrolling().value() == left; })) << scrolling().value();
    EXPECT_EQ(selectedNames(), QStringList(u"file 070.txt"_s));
    window_->browser().goBack();
    EXPECT_TRUE(wait([this] { return window_->browser().currentPath() == u"/sdcard/Many"_s; }));
    close();
}

} // namespace
} // namespace tessary
