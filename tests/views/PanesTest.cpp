#include "WindowFixture.h"

#include "views/listing/TranslatedFileModel.h"
#include "views/window/LocalPane.h"

#include <QClipboard>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPointer>

#include <algorithm>
#include <stdexcept>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// A folder of this computer beside the phone's, and a second window.
class PanesTest : public WindowFixture {
protected:
    PanesTest() {
        QGuiApplication::clipboard()->clear();
        local_.write(u"here/local.txt"_s, "local");
        defaults_->setValue(LocalPane::folderKey, local_.path(u"here"_s));
    }
    /// Presses F3, and waits for the folder of this computer.
    void split() {
        press(Qt::Key_F3);
        ASSERT_TRUE(wait([this] { return pane() != nullptr && isHere(u"local.txt"_s); }));
    }
    [[nodiscard]] LocalPane* pane() const {
        return window_->findChild<LocalPane*>(u"localPane"_s);
    }
    [[nodiscard]] bool isHere(const QString& name) const {
        const auto& items = pane()->browser().items();
        return std::ranges::any_of(items, [&](const FileItem& item) { return item.name == name; });
    }
    void selectHere(const QString& name) const {
        pane()->browser().selection().select(local_.path(u"here/"_s + name));
        pane()->view().currentListing().setFocus();
    }
    [[nodiscard]] QMenu& menu(const QString& title) const {
        for (const QAction* action : window_->menuBar()->actions())
            if (QString(action->text()).remove(u'&') == title)
                return *action->menu();
        throw std::runtime_error("no such menu");
    }
};

TEST_F(PanesTest, filesGoFromSideToSideByTheClipboard) {
    openFolder();
    split();
    EXPECT_TRUE(pane()->isAncestorOf(QApplication::focusWidget()));
    selectHere(u"local.txt"_s);
    press(Qt::Key_C, Qt::ControlModifier);
    table().setFocus();
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(wait([this] { return phone_.content(u"DCIM/local.txt"_s) == "local"; }));

    click(u"Trip"_s);
    press(Qt::Key_C, Qt::ControlModifier);
    pane()->view().setFocus();
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(wait([this] { return local_.read(u"here/Trip/one.txt"_s) == "one"; }));
    EXPECT_TRUE(wait([this] { return isHere(u"Trip"_s); })) << "it is shown at once";
    click(u"alpha.txt"_s);
    press(Qt::Key_X, Qt::ControlModifier);
    pane()->view().setFocus();
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(wait([this] { return isHere(u"alpha.txt"_s) && !row(u"alpha.txt"_s).isValid(); }))
        << "both sides show a move";

    press(Qt::Key_F3);
    EXPECT_FALSE(pane()->isVisible());
    EXPECT_TRUE(table().hasFocus());
}

TEST_F(PanesTest, keysAndMenusBelongToTheSideInUse) {
    openFolder();
    split();
    const auto parent = [this](const BrowserView& view) {
        return menu(u"Go"_s).actions().contains(view.actions().up);
    };
    EXPECT_TRUE(parent(pane()->view()) && !parent(window_->browserView()));
    EXPECT_TRUE(window_->browserView().actions().up->shortcuts().isEmpty()) << "no key means both";
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(pane()->browser().selection().ids().size(), 1);
    EXPECT_TRUE(selectedNames().isEmpty());

    click(u"alpha.txt"_s);
    EXPECT_TRUE(parent(window_->browserView()) && !parent(pane()->view()));
    press(Qt::Key_Up, Qt::AltModifier);
    EXPECT_TRUE(wait([this] { return isShown(u"readme.md"_s); })) << "of the phone";
}

/// What is deleted here can be had back, and is asked about in other words.
TEST_F(PanesTest, filesOfThisComputerGoToItsTrash) {
    local_.write(u"data/there"_s, "");
    qputenv("XDG_DATA_HOME", QFile::encodeName(local_.path(u"data"_s)));
    split();
    selectHere(u"local.txt"_s);
    QString said;
    whileAsked(u"Delete"_s, [&] { said = question()->informativeText(); });
    press(Qt::Key_Delete);
    EXPECT_TRUE(wait([this] { return !local_.has(u"here/local.txt"_s); }));
    EXPECT_EQ(local_.read(u"data/Trash/files/local.txt"_s), "local");
    EXPECT_EQ(said, u"It will be moved to the trash."_s);
    EXPECT_TRUE(wait([this] { return !isHere(u"local.txt"_s); }));
    qunsetenv("XDG_DATA_HOME");
}

TEST_F(PanesTest, aPathThatIsTypedMayLieOutsideOfTheHome) {
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", QFile::encodeName(local_.path(u"here"_s)));
    local_.write(u"other/deep/far.txt"_s, "far");
    ASSERT_TRUE(QFile::link(local_.path(u"other"_s), local_.path(u"here/link"_s)));
    split();
    const std::tuple<QString, QString, QStringList> rows[] = {
        // typed, folder, selected
        {local_.path(u"other"_s), u"other"_s, {}},
        {local_.path(u"here/link/deep/far.txt"_s), u"other/deep"_s, {u"far.txt"_s}},
        {local_.path(u"here"_s), u"here"_s, {}},
        {local_.path(u"none"_s), u"here"_s, {}},
    };
    FileBrowserViewModel& browser = pane()->browser();
    for (const auto& [typed, folder, selected] : rows) {
        browser.goToTyped(typed, [](bool) {});
        EXPECT_TRUE(wait([&] {
            return browser.currentPath() == local_.path(folder) &&
                   browser.selection().entries().size() ==
                       static_cast<std::size_t>(selected.size());
        })) << typed.toStdString();
    }
    EXPECT_TRUE(wait([&] {
        return browser.problem() && browser.problem()->what == BrowserProblem::What::noSuchPath;
    }));
    qputenv("HOME", home);
}

TEST_F(PanesTest, aSecondWindowBeginsWhereTheFirstIsAndGoesAlone) {
    openFolder();
    press(Qt::Key_N, Qt::ControlModifier);
    MainWindow* second = nullptr;
    ASSERT_TRUE(wait([&] {
        for (QWidget* each : QApplication::topLevelWidgets())
            if (auto* window = qobject_cast<MainWindow*>(each); window && window != window_.get())
                second = window;
        return second != nullptr && !second->browser().isLoading();
    }));
    EXPECT_EQ(second->browser().currentPath(), u"/sdcard/DCIM"_s);
    second->browser().navigateTo(u"/sdcard/DCIM/Trip"_s);
    EXPECT_TRUE(wait([&] { return second->browser().items().size() == 1; }));
    EXPECT_EQ(window_->browser().currentPath(), u"/sdcard/DCIM"_s) << "a place of its own";

    // What one has put on the clipboard stays there when the other closes.
    click(u"alpha.txt"_s);
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_TRUE(row(u"alpha.txt"_s).data(TranslatedFileModel::isCutRole).toBool());
    EXPECT_FALSE(row(u"beta.txt"_s).data(TranslatedFileModel::isCutRole).toBool());
    const QPointer<MainWindow> other(second);
    second->close();
    EXPECT_TRUE(wait([&] { return other.isNull(); }));
    go(u"/sdcard/DCIM/Trip"_s, u"one.txt"_s);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(wait([this] { return phone_.content(u"DCIM/Trip/alpha.txt"_s) == "a"; }));
    phone_.write(u"new.txt"_s, "new");
    phone_.android.unplug();
    EXPECT_TRUE(wait([this] { return window_->browser().state() == BrowserState::deviceLost; }))
        << "the first still hears of phones";
}

} // namespace
} // namespace tessary
