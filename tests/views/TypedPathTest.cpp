#include "WindowFixture.h"

#include <QGuiApplication>
#include <QLineEdit>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

class TypedPathTest : public WindowFixture {
protected:
    void SetUp() override {
        if (QGuiApplication::platformName() == u"offscreen")
            GTEST_SKIP() << "the completer's popup keeps the focus where there is no window system";
    }
    [[nodiscard]] QLineEdit* edit() const {
        auto* found = window_->findChild<QLineEdit*>(u"pathEdit"_s);
        return found != nullptr && found->isVisible() ? found : nullptr;
    }
    void startTyping(const QString& path) {
        press(Qt::Key_L, Qt::ControlModifier);
        ASSERT_NE(edit(), nullptr);
        ASSERT_EQ(edit()->selectedText(), window_->browser().currentPath());
        QTest::keyClicks(edit(), path);
    }
    [[nodiscard]] const QString& folder() const {
        return window_->browser().currentPath();
    }
};

TEST_F(TypedPathTest, enterGoesToFoldersAndToFilesInThem) {
    const std::tuple<const char*, const char*, QStringList> rows[] = {
        // typed, target, selected
        {"/sdcard/DCIM/Trip/", "/sdcard/DCIM/Trip", {}},
        {"../beta.txt", "/sdcard/DCIM", {u"beta.txt"_s}},
        {"Trip", "/sdcard/DCIM/Trip", {}},
        {"/", "/sdcard", {}},
    };
    for (const auto& [typed, target, selected] : rows) {
        startTyping(QString::fromLatin1(typed));
        QTest::keyClick(edit(), Qt::Key_Return);
        EXPECT_TRUE(wait([&] { return edit() == nullptr && !window_->browser().isLoading(); }));
        EXPECT_EQ(folder(), QString::fromLatin1(target)) << typed;
        EXPECT_EQ(selectedNames(), selected) << typed;
        EXPECT_TRUE(wait([&] { return table().hasFocus(); }));
    }
}

TEST_F(TypedPathTest, aWrongPathIsNamedAndCanBeMended) {
    startTyping(u"/sdcard/DCIN"_s);
    QTest::keyClick(edit(), Qt::Key_Return);
    EXPECT_TRUE(wait([&] { return banner().isVisible(); }));
    EXPECT_TRUE(banner().accessibleName().contains(u"DCIN"_s));
    EXPECT_EQ(folder(), u"/sdcard"_s);
    ASSERT_NE(edit(), nullptr);
    EXPECT_TRUE(edit()->hasFocus());
    QTest::keyClick(edit(), Qt::Key_Backspace);
    EXPECT_FALSE(banner().isVisible());
    QTest::keyClicks(edit(), u"M"_s);
    QTest::keyClick(edit(), Qt::Key_Return);
    EXPECT_TRUE(wait([&] { return folder() == u"/sdcard/DCIM"_s; }));
}

} // namespace
} // namespace tessary
