#include "WindowFixture.h"

#include "app/LanguageManager.h"

#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QProgressDialog>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// The window by keyboard, as users of other file managers expect it.
class KeysTest : public WindowFixture {
protected:
    [[nodiscard]] QWidget* focus() const {
        return QApplication::focusWidget();
    }
};

TEST_F(KeysTest, beginInTheFilesAndComeBackFromTheSidebar) {
    EXPECT_EQ(focus(), &table()) << "of the first phone";
    QListView& places = list("shortcutList");
    EXPECT_TRUE(wait([&] { // its place is found once what is above it has come
        clickRow(places, 0);
        return window_->browser().currentPath() == u"/sdcard/DCIM"_s;
    }));
    EXPECT_TRUE(window_->browserView().isAncestorOf(focus()));
}

TEST_F(KeysTest, theFirstArrowSelectsTheFirstEntryAndEscapeNothing) {
    openFolder();
    press(Qt::Key_Escape);
    EXPECT_TRUE(selectedNames().isEmpty());
    press(Qt::Key_Down);
    EXPECT_EQ(selectedNames(), QStringList(u"Trip"_s));
    press(Qt::Key_Down);
    EXPECT_EQ(selectedNames(), QStringList(u"alpha.txt"_s));
    press(Qt::Key_Escape);
    EXPECT_TRUE(selectedNames().isEmpty());
    press(Qt::Key_Down);
    EXPECT_EQ(selectedNames(), QStringList(u"alpha.txt"_s)) << "the keyboard was there";
}

TEST_F(KeysTest, backspaceLeadsUpFromPagesWithoutFiles) {
    (void)phone_.disk.makeFolder(u"0/DCIM/Void"_s);
    window_->browser().folders().forgetAll();
    window_->browser().navigateTo(u"/sdcard/DCIM/Void"_s);
    ASSERT_TRUE(wait(
        [this] { return !window_->browser().isLoading() && window_->browser().items().empty(); }));
    press(Qt::Key_Backspace);
    ASSERT_TRUE(wait([this] { return isShown(u"alpha.txt"_s); })) << "from an empty folder";

    window_->browser().navigateTo(u"/sdcard/Nowhere"_s);
    ASSERT_TRUE(wait([this] { return window_->browser().state() == BrowserState::folderGone; }));
    press(Qt::Key_Backspace);
    EXPECT_TRUE(wait([this] { return isShown(u"readme.md"_s); })) << "from an error's page";
    press(Qt::Key_Down);
    EXPECT_FALSE(selectedNames().isEmpty()) << "the keys are the listing's again";
}

TEST_F(KeysTest, newFolderIsMadeAndNamedInPlace) {
    press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(wait([this] {
        return table().isAncestorOf(QApplication::focusWidget()) &&
               qobject_cast<QLineEdit*>(QApplication::focusWidget()) != nullptr;
    }));
    auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(editor, nullptr);
    EXPECT_TRUE(wait([editor] { return editor->selectedText() == u"New Folder"_s; }));
    QTest::keyClicks(editor, u"Letters"_s);
    QTest::keyClick(editor, Qt::Key_Return);
    EXPECT_TRUE(wait([this] { return isShown(u"Letters"_s); }));
    EXPECT_TRUE(phone_.names().contains(u"Letters"_s));
}

TEST_F(KeysTest, noKeyMeansTwoThings) {
    QHash<QKeySequence, QString> meanings;
    for (const QAction* action : window_->findChildren<QAction*>())
        for (const QKeySequence& key : action->shortcuts()) {
            EXPECT_FALSE(meanings.contains(key))
                << key.toString().toStdString() << ": " << meanings[key].toStdString() << ", "
                << action->text().toStdString();
            meanings.insert(key, action->text());
        }
    EXPECT_GT(meanings.size(), 30);
}

TEST_F(KeysTest, aFileOpensWithTheDesktopsProgram) {
    openFolder();
    doubleClick(u"alpha.txt"_s);
    ASSERT_TRUE(wait([this] { return opened_.size() == 1; })) << "by a double click";
    QFile file(opened_.front());
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "a");
    click(u"beta.txt"_s);
    press(Qt::Key_Return);
    EXPECT_TRUE(wait([this] { return opened_.size() == 2; })) << "by Return";
    EXPECT_EQ(QFileInfo(opened_.back()).fileName(), u"beta.txt"_s);
    EXPECT_FALSE(window_->browser().problem());
    opensFiles_ = false;
    press(Qt::Key_Return);
    ASSERT_TRUE(wait([this] { return window_->browser().problem().has_value(); }));
    EXPECT_EQ(window_->browser().problem()->what, BrowserProblem::What::open);
    EXPECT_EQ(window_->browser().problem()->name, u"beta.txt"_s);
}

TEST_F(KeysTest, withoutAMountAFileOpensHoweverLongItTakes) {
    app_->dragMount().stop();
    openFolder();
    phone_.write(u"DCIM/film.mp4"_s, QByteArray(250'000, 'f'));
    phone_.write(u"DCIM/long.mp4"_s, QByteArray(2'000'000, 'l'));
    window_->browser().reload();
    ASSERT_TRUE(wait([this] { return isShown(u"long.mp4"_s); }));
    phone_.fault([](VirtualFaults& faults) { faults.megabytesPerSecond = 0.1; }); // 2.5 s, and 20
    const auto progress = [this] { return window_->findChild<QProgressDialog*>(); };
    click(u"film.mp4"_s);
    press(Qt::Key_Return);
    EXPECT_TRUE(wait([&] { return progress() != nullptr && progress()->isVisible(); }));
    ASSERT_TRUE(wait([this] { return opened_.size() == 1; }));
    EXPECT_TRUE(wait([&] { return progress() == nullptr; }));
    EXPECT_FALSE(window_->browser().problem());

    click(u"long.mp4"_s);
    press(Qt::Key_Return);
    ASSERT_TRUE(wait([&] { return progress() != nullptr && progress()->isVisible(); }));
    QTest::keyClick(progress(), Qt::Key_Escape);
    EXPECT_TRUE(wait([&] { return progress() == nullptr; }));
    EXPECT_EQ(opened_.size(), 1);
    EXPECT_FALSE(window_->browser().problem());
}

TEST_F(KeysTest, openWithOffersTheDesktopsProgramsAndStartsThem) {
    const QString out = local_.path(u"opened"_s);
    const QString script =
        local_.write(u"bin/view"_s, "#!/bin/sh\ncat \"$1\" > '" + out.toUtf8() + ".new' && mv '" +
                                        out.toUtf8() + ".new' '" + out.toUtf8() + "'\n");
    ASSERT_TRUE(QFile::setPermissions(script, QFile::ReadOwner | QFile::ExeOwner));
    local_.write(
        u"data/applications/view.desktop"_s,
        "[Desktop Entry]\nType=Application\nName=Test Viewer\nMimeType=text/plain;\nExec=" +
            script.toUtf8() + " %f\n");
    qputenv("XDG_DATA_HOME", QFile::encodeName(local_.path(u"data"_s)));
    openFolder();
    click(u"beta.txt"_s);
    QTimer::singleShot(100, window_.get(), [] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        auto* programs = menu->findChild<QMenu*>(u"openWith"_s);
        ASSERT_NE(programs, nullptr);
        menu->setActiveAction(programs->menuAction());
        QTest::keyClick(menu, Qt::Key_Right);
        QAction* found = nullptr;
        EXPECT_TRUE(wait([&] {
            for (QAction* action : programs->actions())
                if (action->text() == u"Test Viewer")
                    found = action;
            return found != nullptr;
        }));
        programs->setActiveAction(found);
        QTest::keyClick(programs, Qt::Key_Return);
        menu->close();
    });
    const QPoint spot = table().visualRect(row(u"beta.txt"_s)).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, spot, table().viewport()->mapToGlobal(spot));
    QApplication::sendEvent(table().viewport(), &event);
    EXPECT_TRUE(wait([&] { return local_.read(u"opened"_s) == "bb"; }));
    qunsetenv("XDG_DATA_HOME");
}

TEST_F(KeysTest, theMenusOpenByTheirLettersAndByF10) {
    const auto opens = [this] {
        const bool hasOpened = wait([] { return QApplication::activePopupWidget() != nullptr; });
        if (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
        return hasOpened;
    };
    press(Qt::Key_F, Qt::AltModifier);
    EXPECT_TRUE(opens());
    activate();
    press(Qt::Key_F10);
    EXPECT_NE(window_->menuBar()->activeAction(), nullptr);
}

TEST_F(KeysTest, theMenusHaveLettersInEveryLanguage) {
    for (const AppLanguage language : allAppLanguages) {
        LanguageManager::shared().setSelectedLanguage(language);
        QCoreApplication::processEvents();
        QString letters;
        for (const QAction* menu : window_->menuBar()->actions()) {
            const QString& title = menu->text();
            const qsizetype mark = title.indexOf(u'&');
            ASSERT_GE(mark, 0) << title.toStdString();
            EXPECT_FALSE(letters.contains(title[mark + 1].toUpper())) << title.toStdString();
            letters.append(title[mark + 1].toUpper());
        }
    }
    LanguageManager::shared().setSelectedLanguage(AppLanguage::system);
}

} // namespace
} // namespace tessary
