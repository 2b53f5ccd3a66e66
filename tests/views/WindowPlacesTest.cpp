#include "WindowFixture.h"

#include <QLabel>
#include <QMimeData>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

class WindowPlacesTest : public WindowFixture {
protected:
    /// Drops data on the middle of an entry of the listing.
    void dropOn(const QString& name, const QMimeData& data, Qt::KeyboardModifiers keys = {}) {
        BrowserView& view = window_->browserView();
        const QPoint spot =
            table().viewport()->mapTo(&view, table().visualRect(row(name)).center());
        if (drag(view, spot, data, keys))
            drop(view, spot, data, keys);
    }
    [[nodiscard]] const FileItem& entry(const QString& name) const {
        return *window_->browser().itemWithId(idOf(name));
    }
};

/// What is in the folder is read first; the user goes on meanwhile.
TEST_F(WindowPlacesTest, filesDroppedOnAFolderArriveWhateverIsShownByThen) {
    openFolder();
    QMimeData dropped;
    dropped.setUrls({QUrl::fromLocalFile(local_.write(u"drop.txt"_s, "dropped"))});
    dropOn(u"Trip"_s, dropped);
    window_->browser().navigateUp();
    EXPECT_TRUE(wait([this] { return phone_.content(u"DCIM/Trip/drop.txt"_s) == "dropped"; }));
}

TEST_F(WindowPlacesTest, aDragWithinThePhoneMovesAndWithCtrlCopies) {
    openFolder();
    const auto files = window_->browser().files();
    const EntryMimeData folder(files, {entry(u"Trip"_s)});
    QWidget& words = *list("favoriteList").parentWidget()->findChild<QLabel*>();
    EXPECT_TRUE(drag(words, {}, folder));
    drop(words, {}, folder);
    EXPECT_EQ(list("favoriteList").model()->rowCount(), 1) << "there was none to drop it beside";
    dropOn(u"Trip"_s, EntryMimeData(files, {entry(u"alpha.txt"_s)}), Qt::ControlModifier);
    EXPECT_TRUE(wait([this] { return phone_.content(u"DCIM/Trip/alpha.txt"_s) == "a"; }));
    EXPECT_EQ(phone_.content(u"DCIM/alpha.txt"_s), "a");
    ASSERT_TRUE(wait([this] { return window_->copyQueue().summary().isIdle(); }));
    dropOn(u"Trip"_s, EntryMimeData(files, {entry(u"beta.txt"_s)}));
    EXPECT_TRUE(wait([this] { return phone_.content(u"DCIM/Trip/beta.txt"_s) == "bb"; }));
    EXPECT_TRUE(wait([this] { return !row(u"beta.txt"_s).isValid(); }));
    EXPECT_EQ(phone_.names(u"DCIM"_s), (QStringList{u"Trip"_s, u"alpha.txt"_s}));
}

TEST_F(WindowPlacesTest, shortcutsLeadOnlyToFoldersThatAreThere) {
    const auto shortcuts = [this] {
        QStringList names;
        const QAbstractItemModel& model = *list("shortcutList").model();
        for (int i = 0; i < model.rowCount(); ++i)
            names.append(model.index(i, 0).data().toString());
        return names;
    };
    EXPECT_TRUE(wait([&] { return shortcuts() == QStringList{u"Camera & Photos"_s}; }))
        << shortcuts().join(u", "_s).toStdString();
    window_->browser().folders().forgetAll();
    openFolder();
    EXPECT_EQ(shortcuts(), QStringList{u"Camera & Photos"_s}) << "as they were known last";
    go(window_->browser().rootPath(), u"DCIM"_s);
    phone_.write(u"Music/song.mp3"_s, "la");
    press(Qt::Key_F5);
    EXPECT_TRUE(wait([&] { return shortcuts().contains(u"Music"_s); })) << "once it is there";
}

} // namespace
} // namespace tessary
