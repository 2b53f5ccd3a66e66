#include "WindowFixture.h"
#include "views/sidebar/DeviceListModel.h"

#include <QMenu>
#include <QProcess>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// Phones that are open in the desktop's file manager.
class FileManagerTest : public WindowFixture {
protected:
    FileManagerTest() {
        qputenv("XDG_RUNTIME_DIR", run_.path().toUtf8());
        qputenv("XDG_CACHE_HOME", run_.makeFolder(u"cache"_s).toUtf8());
    }
    /// Chooses from the menu of a row.
    void choose(QListView& view, int row, const QString& command) {
        QTimer::singleShot(50, window_.get(), [this, command] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            for (QAction* action : menu->actions())
                if (action->text() == command && action->isEnabled())
                    action->trigger();
            menu->close();
        });
        Q_EMIT view.customContextMenuRequested(
            view.visualRect(view.model()->index(row, 0)).center());
    }
    [[nodiscard]] bool isMarked() const {
        return list("deviceList").model()->index(0, 0).data(DeviceListModel::mountedRole).toBool();
    }
    static QByteArray printed(const QString& file) {
        QProcess cat;
        cat.start(u"cat"_s, {file});
        EXPECT_TRUE(wait([&] { return cat.state() == QProcess::NotRunning; }));
        return cat.readAllStandardOutput();
    }

    const TemporaryFolder run_;
};

TEST_F(FileManagerTest, aPhoneAndItsPlacesAreOpenedThereUntilThePhoneGoes) {
    ASSERT_TRUE(wait([this] { return list("shortcutList").isVisible(); }));
    choose(list("deviceList"), 0, u"Open in File Manager"_s);
    if (!wait([this] { return !shownFolders_.isEmpty(); }))
        GTEST_SKIP() << "this machine mounts nothing for its users";
    const QString top = shownFolders_.front();
    EXPECT_EQ(printed(top + u"/DCIM/alpha.txt"_s), "a");
    EXPECT_TRUE(isMarked());
    choose(list("shortcutList"), 0, u"Open in File Manager"_s);
    ASSERT_EQ(shownFolders_.size(), 2);
    EXPECT_EQ(shownFolders_.back(), top + u"/DCIM"_s) << "of the same mount";

    choose(list("deviceList"), 0, u"Remove from File Manager"_s);
    EXPECT_FALSE(isMarked());
    EXPECT_TRUE(wait([&] { return !QFileInfo::exists(top); }));
    choose(list("volumeList"), 0, u"Open in File Manager"_s);
    ASSERT_TRUE(wait([this] { return shownFolders_.size() == 3; }));
    phone_.android.unplug();
    EXPECT_TRUE(wait([this] { return !QFileInfo::exists(shownFolders_.back()); }));
}

TEST_F(FileManagerTest, theEndOfTheProgramTakesTheFolderAway) {
    ASSERT_TRUE(wait([this] { return list("volumeList").isVisible(); }));
    choose(list("deviceList"), 0, u"Open in File Manager"_s);
    if (!wait([this] { return !shownFolders_.isEmpty(); }))
        GTEST_SKIP() << "this machine mounts nothing for its users";
    QProcess reader;
    reader.start(u"tail"_s, {u"-f"_s, shownFolders_.front() + u"/readme.md"_s});
    ASSERT_TRUE(reader.waitForStarted());
    close();
    EXPECT_FALSE(QFileInfo::exists(shownFolders_.front()));
    reader.kill();
    EXPECT_TRUE(reader.waitForFinished());
}

} // namespace
} // namespace tessary
