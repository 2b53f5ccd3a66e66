#include "WindowFixture.h"
#include "app/views/StatusBanner.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QGuiApplication>
#include <QLineEdit>
#include <QToolButton>

namespace tessary {
namespace {

class TypedPathTest : public WindowFixture {
protected:
    void SetUp() override {
        if (QGuiApplication::platformName() == u"offscreen")
            GTEST_SKIP() << "the completer's popup keeps the focus where there is no window system";
    }
    [[nodiscard]] QLineEdit* edit() const {
        auto* found = window_->findChild<QLineEdit*>(QStringLiteral("pathEdit"));
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
    const struct {
        const char* typed;
        const char* folder;
        QStringList selected;
    } rows[] = {
        {"/sdcard/DCIM/Trip/", "/sdcard/DCIM/Trip", {}},
        {"../beta.txt", "/sdcard/DCIM", {QStringLiteral("beta.txt")}},
        {"Trip", "/sdcard/DCIM/Trip", {}},
        {"/", "/sdcard", {}},
    };
    for (const auto& row : rows) {
        startTyping(QString::fromLatin1(row.typed));
        QTest::keyClick(edit(), Qt::Key_Return);
        EXPECT_TRUE(wait([&] { return edit() == nullptr && !window_->browser().isLoading(); }));
        EXPECT_EQ(folder(), QString::fromLatin1(row.folder)) << row.typed;
        EXPECT_EQ(selectedNames(), row.selected) << row.typed;
        EXPECT_TRUE(wait([&] { return table().hasFocus(); }));
    }
}

TEST_F(TypedPathTest, aWrongPathIsNamedAndCanBeMended) {
    startTyping(QStringLiteral("/sdcard/DCIN"));
    QTest::keyClick(edit(), Qt::Key_Return);
    const auto* banner = window_->findChild<StatusBanner*>(QStringLiteral("statusBanner"));
    EXPECT_TRUE(wait([&] { return banner->isVisible(); }));
    EXPECT_TRUE(banner->accessibleName().contains(QStringLiteral("DCIN")));
    EXPECT_EQ(folder(), QStringLiteral("/sdcard"));
    ASSERT_NE(edit(), nullptr);
    EXPECT_TRUE(edit()->hasFocus());
    QTest::keyClick(edit(), Qt::Key_Backspace);
    EXPECT_FALSE(banner->isVisible());
    QTest::keyClicks(edit(), QStringLiteral("M"));
    QTest::keyClick(edit(), Qt::Key_Return);
    EXPECT_TRUE(wait([&] { return folder() == QStringLiteral("/sdcard/DCIM"); }));
}

TEST_F(TypedPathTest, foldersSeenBeforeCompleteThePath) {
    openFolder();
    startTyping(QStringLiteral("/sdcard/d"));
    EXPECT_TRUE(edit()->completer()->popup()->isVisible());
    QTest::keyClick(edit()->completer()->popup(), Qt::Key_Tab);
    EXPECT_EQ(edit()->text(), QStringLiteral("/sdcard/DCIM/"));
    EXPECT_TRUE(edit()->completer()->popup()->isVisible());
    QTest::keyClick(edit()->completer()->popup(), Qt::Key_Down);
    EXPECT_EQ(edit()->text(), QStringLiteral("/sdcard/DCIM/Trip"));
    QTest::keyClick(edit()->completer()->popup(), Qt::Key_Return);
    EXPECT_TRUE(wait([&] { return folder() == QStringLiteral("/sdcard/DCIM/Trip"); }));
}

TEST_F(TypedPathTest, aClickBesideThePartsStartsAndEscapeEnds) {
    auto* crumbs = window_->findChild<QWidget*>(QStringLiteral("breadcrumbs"));
    QTest::mouseClick(crumbs, Qt::LeftButton, {}, {crumbs->width() - 5, crumbs->height() / 2});
    ASSERT_NE(edit(), nullptr);
    QTest::keyClicks(edit(), QStringLiteral("nowhere"));
    QTest::keyClick(edit(), Qt::Key_Escape);
    EXPECT_EQ(edit(), nullptr);
    EXPECT_TRUE(wait([&] { return table().hasFocus(); }));
    EXPECT_EQ(folder(), QStringLiteral("/sdcard"));
    EXPECT_TRUE(wait([&] { return crumbs->findChild<QToolButton*>()->isVisible(); }));
}

} // namespace
} // namespace tessary
