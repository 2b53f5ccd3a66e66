#include "WindowFixture.h"

#include <QClipboard>
#include <QDir>
#include <QListWidget>
#include <QMimeData>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// Entries that are cut, copied and pasted, by keyboard, within a phone, between two of them and
/// with other programs; and the commands that do the same by a question.
class ClipboardTest : public WindowFixture {
protected:
    ClipboardTest() {
        QGuiApplication::clipboard()->clear();
    }
    void paste() {
        window_->browserView().currentListing().setFocus();
        press(Qt::Key_V, Qt::ControlModifier);
    }
    /// Answers the next dialog for a folder of the phone: `keys` in its list, then its button.
    void chooseFolder(const std::vector<Qt::Key>& keys) {
        QTimer::singleShot(50, window_.get(), [this, keys] {
            QWidget* dialog = QApplication::activeModalWidget();
            if (dialog == nullptr || dialog->objectName() != u"folderChooser") {
                chooseFolder(keys);
                return;
            }
            auto* folders = dialog->findChild<QListWidget*>(u"folderChooserList"_s);
            EXPECT_EQ(dialog->focusWidget(), folders);
            // Each folder is read before its next key.
            const auto isRead = [&] { return folders->count() > 0; };
            for (const Qt::Key key : keys) {
                EXPECT_TRUE(wait(isRead));
                QTest::keyClick(folders, key);
            }
            EXPECT_TRUE(wait(isRead));
            QTest::keyClick(dialog, Qt::Key_Return);
        });
    }
    static QMimeData* urls(const QStringList& paths) {
        auto* data = new QMimeData;
        QList<QUrl> list;
        for (const QString& path : paths)
            list.append(QUrl::fromLocalFile(path));
        data->setUrls(list);
        return data;
    }
};

TEST_F(ClipboardTest, cutMovesAndCopyCopiesWithinThePhone) {
    openFolder();
    click(u"alpha.txt"_s);
    press(Qt::Key_X, Qt::ControlModifier);
    go(u"/sdcard/DCIM/Trip"_s, u"one.txt"_s);
    paste();
    EXPECT_TRUE(wait([this] { return isShown(u"alpha.txt"_s); }));
    EXPECT_EQ(phone_.names(u"DCIM"_s), (QStringList{u"Trip"_s, u"beta.txt"_s}));
    EXPECT_EQ(phone_.content(u"DCIM/Trip/alpha.txt"_s), "a");
    paste();
    QTest::qWait(200);
    EXPECT_FALSE(window_->browser().problem()) << "what was moved is not on the clipboard any more";

    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(wait([this] { return phone_.content(u"DCIM/alpha.txt"_s) == "a"; }));

    ASSERT_TRUE(wait([this] { return !row(u"alpha.txt"_s).isValid(); }));
    click(u"one.txt"_s);
    press(Qt::Key_C, Qt::ControlModifier);
    paste();
    EXPECT_TRUE(wait([this] { return isShown(u"one (2).txt"_s); })) << "beside itself";
    EXPECT_EQ(phone_.content(u"DCIM/Trip/one (2).txt"_s), "one");
    go(u"/sdcard"_s, u"readme.md"_s);
    paste();
    EXPECT_TRUE(wait([this] { return phone_.content(u"one.txt"_s) == "one"; }))
        << "as often as the user likes";
}

/// A download as well, rather than what was done on the phone before it.
TEST_F(ClipboardTest, aCopyIsTakenBackWhileItRunsAndOnceItIsThere) {
    qputenv("XDG_DATA_HOME", QFile::encodeName(local_.makeFolder(u"data"_s)));
    openFolder();
    phone_.fault([](VirtualFaults& faults) { faults.megabytesPerSecond = 0.1; });
    QGuiApplication::clipboard()->setMimeData(
        urls({local_.write(u"film"_s, QByteArray(3'000'000, 'f'))}));
    paste();
    const auto isAll = [this](CopyJob::Status status) {
        const auto& jobs = window_->copyQueue().jobs();
        return !jobs.empty() && jobs.back().status == status && jobs.back().progress.totalFiles > 0;
    };
    ASSERT_TRUE(wait([&] { return isAll(CopyJob::Status::running); }));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(wait([&] { return isAll(CopyJob::Status::cancelled); }));
    phone_.fault([](VirtualFaults& faults) { faults.megabytesPerSecond = 0; });

    click(u"Trip"_s);
    press(Qt::Key_C, Qt::ControlModifier);
    go(u"/sdcard"_s, u"readme.md"_s);
    paste();
    ASSERT_TRUE(wait([this] { return isShown(u"Trip"_s); }));
    go(u"/sdcard/DCIM"_s, u"beta.txt"_s);
    click(u"beta.txt"_s);
    press(Qt::Key_D, Qt::ControlModifier);
    ASSERT_TRUE(wait([&] { return local_.has(u"beta.txt"_s) && isAll(CopyJob::Status::done); }));
    QString said;
    whileAsked(u"Delete"_s, [&] { said = question()->informativeText(); });
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(wait([this] { return local_.has(u"data/Trash/files/beta.txt"_s); }));
    EXPECT_TRUE(said.contains(local_.path())) << said.toStdString();

    ASSERT_TRUE(wait([this] { return !window_->browser().isEditing(); }));
    activate();
    whileAsked(u"Delete"_s, [&] {
        EXPECT_TRUE(wait([] { return question()->text().contains(u"“Trip” and the item in it"); }));
    });
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(wait([this] { return !phone_.names().contains(u"Trip"_s); }));
    EXPECT_EQ(phone_.names(u"DCIM"_s), (QStringList{u"Trip"_s, u"alpha.txt"_s, u"beta.txt"_s}));
    qunsetenv("XDG_DATA_HOME");
}

TEST_F(ClipboardTest, aFolderThatIsBeingFilledIsNotCalledEmpty) {
    ASSERT_TRUE(QDir(phone_.disk.path()).mkpath(u"0/DCIM/New"_s));
    openFolder();
    window_->browser().navigateTo(u"/sdcard/DCIM/New"_s);
    ASSERT_TRUE(wait([&] { return says(u"This folder is empty"_s); }));
    phone_.fault([](VirtualFaults& faults) { faults.megabytesPerSecond = 0.1; });
    QGuiApplication::clipboard()->setMimeData(
        urls({local_.write(u"film"_s, QByteArray(3'000'000, 'f'))}));
    paste();
    EXPECT_TRUE(wait([&] { return says(u"Files are being copied into this folder…"_s); }));
    window_->copyQueue().cancelAll();
    EXPECT_TRUE(wait([&] { return says(u"This folder is empty"_s); }));
}

TEST_F(ClipboardTest, entriesGoFromPhoneToPhone) {
    openFolder();
    click(u"alpha.txt"_s);
    click(u"Trip"_s, Qt::ControlModifier);
    press(Qt::Key_X, Qt::ControlModifier);
    PluggedPhone other(bus_, phoneConfig("OTHER", "1-2"));
    other.write(u"here.txt"_s, "here");
    chooseOtherPhone();
    ASSERT_TRUE(wait([this] { return isShown(u"here.txt"_s); }));
    window_->choice().browseFiles();
    activate();
    paste();
    EXPECT_TRUE(wait([&] { return other.content(u"Trip/one.txt"_s) == "one"; }));
    EXPECT_TRUE(wait([&] { return other.content(u"alpha.txt"_s) == "a"; }));
    EXPECT_TRUE(wait([this] { return phone_.names(u"DCIM"_s) == QStringList{u"beta.txt"_s}; }))
        << "they were cut";
    chooseOtherPhone();
    EXPECT_TRUE(wait([this] { return isShown(u"beta.txt"_s); })) << "in the folder that was left";
    EXPECT_FALSE(row(u"alpha.txt"_s).isValid());
    close();
}

TEST_F(ClipboardTest, filesThatOtherProgramsCutAreMoved) {
    QClipboard& clipboard = *QGuiApplication::clipboard();
    openFolder();
    const std::tuple<const char*, const char*, const char*, bool> rows[] = {
        // name, format, mark, moves
        {"kde.txt", "application/x-kde-cutselection", "1", true},
        {"kde-copy.txt", "application/x-kde-cutselection", "0", false},
        {"gnome.txt", "x-special/gnome-copied-files", "cut\n", true},
        {"gnome-copy.txt", "x-special/gnome-copied-files", "copy\n", false},
        {"plain.txt", "", "", false},
    };
    for (const auto& [name, format, mark, moves] : rows) {
        SCOPED_TRACE(name);
        const QString file = local_.write(QString::fromUtf8(name), "from here");
        QMimeData* data = urls({file});
        if (*format != 0)
            data->setData(QString::fromUtf8(format), mark);
        clipboard.setMimeData(data);
        paste();
        EXPECT_TRUE(wait([&, n = QString::fromUtf8(name)] {
            return phone_.content(u"DCIM/"_s + n) == "from here" &&
                   window_->copyQueue().summary().isIdle();
        }));
        EXPECT_EQ(QFile::exists(file), !moves);
        EXPECT_EQ(clipboard.mimeData()->hasUrls(), !moves);
    }
}

TEST_F(ClipboardTest, whatWasCutStaysCutUntilItIsOnItsWay) {
    QClipboard& clipboard = *QGuiApplication::clipboard();
    openFolder();
    QMimeData* data = urls({local_.write(u"alpha.txt"_s, "another")});
    data->setData(u"x-special/gnome-copied-files"_s, "cut\n");
    clipboard.setMimeData(data);
    bool wasAsked = false;
    whileAsked(u"Cancel"_s, [&] { wasAsked = true; });
    paste();
    EXPECT_TRUE(wait([&] { return wasAsked && question() == nullptr; }));
    EXPECT_TRUE(clipboard.mimeData()->hasUrls());
    EXPECT_EQ(phone_.content(u"DCIM/alpha.txt"_s), "a");
}

TEST_F(ClipboardTest, moveToAndCopyToAskForAFolderOfThePhone) {
    (void)phone_.disk.makeFolder(u"0/Music/Live"_s);
    openFolder();
    click(u"alpha.txt"_s);
    // Up to the storage, down to "Music", in there to "Live".
    chooseFolder({Qt::Key_Left, Qt::Key_End, Qt::Key_Right, Qt::Key_Down});
    press(Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(wait([this] { return phone_.content(u"Music/Live/alpha.txt"_s) == "a"; }));
    EXPECT_TRUE(wait([this] { return !row(u"alpha.txt"_s).isValid(); }));

    click(u"beta.txt"_s);
    chooseFolder({Qt::Key_Left}); // into the storage itself, not back to where one came from
    press(Qt::Key_K, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(wait([this] { return phone_.content(u"beta.txt"_s) == "bb"; }));
    EXPECT_EQ(phone_.content(u"DCIM/beta.txt"_s), "bb");
}

/// Nobody could paste it once its window is closed.
TEST_F(ClipboardTest, whatIsCopiedGoesWithTheWindow) {
    openFolder();
    click(u"alpha.txt"_s);
    press(Qt::Key_C, Qt::ControlModifier);
    const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
    ASSERT_EQ(copied->urls().size(), 1);
    EXPECT_EQ(copied->data(u"x-special/gnome-copied-files"_s),
              "copy\n" + copied->urls().front().toEncoded());
    close();
    EXPECT_FALSE(QGuiApplication::clipboard()->mimeData()->hasUrls());
}

} // namespace
} // namespace tessary
