#include "WindowFixture.h"

#include <QDropEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QProcess>
#include <QToolButton>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// Another program's window, as far as a drag can tell: takes files.
class Desktop : public QWidget {
public:
    Desktop() {
        setAcceptDrops(true);
    }
    QStringList dropped;

protected:
    void dragEnterEvent(QDragEnterEvent* event) override {
        if (event->mimeData()->hasUrls())
            event->acceptProposedAction();
    }
    void dropEvent(QDropEvent* event) override {
        for (const QUrl& url : event->mimeData()->urls())
            dropped.append(url.toLocalFile());
        event->acceptProposedAction();
    }
};

/// The display's own mouse and keyboard: what they do goes the whole way through the window system.
class RealInputTest : public WindowFixture {
protected:
    void SetUp() override {
        if (QGuiApplication::platformName() != u"xcb")
            GTEST_SKIP() << "there is no window system";
        openFolder();
        activate();
    }

    /// Whether a program ends well; the window lives meanwhile.
    static bool run(const QString& program, const QStringList& arguments) {
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedChannels);
        process.start(program, arguments);
        EXPECT_TRUE(wait([&] { return process.state() == QProcess::NotRunning; })) << "in time";
        return process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    }
    static QStringList moveTo(const QPoint& place) {
        return {u"mousemove"_s, QString::number(place.x()), QString::number(place.y())};
    }
    [[nodiscard]] static QPoint middleOf(const QAbstractItemView& view, const QModelIndex& index) {
        return view.viewport()->mapToGlobal(view.visualRect(index).center());
    }
    /// On the name: what is beside it does not take hold of the entry.
    [[nodiscard]] QPoint placeOf(const QString& name) const {
        const QRect cell = table().visualRect(row(name));
        return table().viewport()->mapToGlobal(QPoint(cell.left() + 40, cell.center().y()));
    }
    /// A hand that looks: it goes on once the window has seen what it did.
    static void drag(const QPoint& from, const QPoint& to) {
        struct Deed {
            QStringList command;
            QPoint place;
            bool isLast = false;
        };
        std::vector<Deed> deeds{{moveTo(from), from}, {{u"mousedown"_s, u"1"_s}, from}};
        constexpr int steps = 8;
        for (int step = 1; step <= steps; ++step) {
            const QPoint place = from + (to - from) * step / steps;
            deeds.push_back({moveTo(place), place});
        }
        deeds.push_back({{u"mouseup"_s, u"1"_s}, to, true});
        auto next = deeds.cbegin();
        int looks = 0;
        QTimer hand; // a drag has a loop of its own
        const auto isSeen = [](const Deed& deed) {
            return QCursor::pos() == deed.place &&
                   (!deed.isLast || QGuiApplication::mouseButtons() == Qt::NoButton);
        };
        QObject::connect(&hand, &QTimer::timeout, [&] {
            // The pointer is there a little before the window is told.
            if ((next != deeds.cbegin() && !isSeen(*std::prev(next))) || ++looks < 3)
                return;
            looks = 0;
            if (next == deeds.cend())
                hand.stop();
            else
                QProcess::startDetached(u"xdotool"_s, (next++)->command);
        });
        hand.start(15);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !hand.isActive(); }, 4 * windowPatience));
    }
};

TEST_F(RealInputTest, aDragOntoThePathOrAPlaceMovesTheEntryThere) {
    auto* path = window_->findChild<QWidget*>(u"breadcrumbs"_s);
    const QToolButton* root = nullptr;
    for (const QToolButton* part : path->findChildren<QToolButton*>())
        if (part->isVisible() && part->property("path").toString() == window_->browser().rootPath())
            root = part;
    ASSERT_NE(root, nullptr);
    drag(placeOf(u"alpha.txt"_s), placeOf(u"beta.txt"_s)); // no folder: nothing happens
    drag(placeOf(u"alpha.txt"_s), root->mapToGlobal(root->rect().center()));
    EXPECT_TRUE(wait([this] { return phone_.content(u"alpha.txt"_s) == "a"; })) << "on the path";
    ASSERT_TRUE(wait([this] { return !row(u"alpha.txt"_s).isValid(); }));
    QListView& volumes = list("volumeList");
    ASSERT_TRUE(
        wait([&] { return volumes.model()->rowCount() > 0 && row(u"beta.txt"_s).isValid(); }));
    // The places move while those of the phone's folders appear.
    const auto volume = [&] { return middleOf(volumes, volumes.model()->index(0, 0)); };
    QPoint place = volume();
    for (QPoint last; last != place; place = volume()) {
        last = place;
        QTest::qWait(700);
    }
    drag(placeOf(u"beta.txt"_s), place);
    EXPECT_TRUE(wait([this] { return phone_.content(u"beta.txt"_s) == "bb"; })) << "on a storage";
    // Nowhere is a file taken that is on no target.
    drag(placeOf(u"Trip"_s), window_->menuBar()->mapToGlobal(QPoint(400, 10)));
    EXPECT_TRUE(row(u"Trip"_s).isValid());
    EXPECT_FALSE(window_->browser().isEditing());
}

TEST_F(RealInputTest, whatIsDraggedToAnotherWindowArrives) {
    Desktop desktop;
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    desktop.setGeometry(screen.right() - 200, 0, 200, 200);
    window_->resize(screen.width() - 250, 700);
    desktop.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&desktop));
    click(u"alpha.txt"_s);
    click(u"beta.txt"_s, Qt::ControlModifier);

    drag(placeOf(u"beta.txt"_s), desktop.geometry().center());
    ASSERT_TRUE(wait([&] { return desktop.dropped.size() == 2; }));
    EXPECT_TRUE(run(u"cp"_s, desktop.dropped + QStringList{local_.path()}));
    EXPECT_EQ(local_.read(u"alpha.txt"_s), "a");
    EXPECT_EQ(local_.read(u"beta.txt"_s), "bb");
    EXPECT_EQ(phone_.content(u"DCIM/alpha.txt"_s), "a") << "a copy leaves the phone as it is";
}

TEST_F(RealInputTest, theMousesSideButtonsWalkAndItsWheelZooms) {
    const auto at = [this](const QStringList& what) {
        EXPECT_TRUE(run(
            u"xdotool"_s,
            moveTo(table().viewport()->mapToGlobal(table().viewport()->rect().center())) + what));
    };
    at({u"click"_s, u"8"_s});
    EXPECT_TRUE(wait([this] { return isShown(u"readme.md"_s); }));
    at({u"click"_s, u"9"_s});
    EXPECT_TRUE(wait([this] { return isShown(u"alpha.txt"_s); }));
    const int side = table().iconSize().width();
    at({u"keydown"_s, u"ctrl"_s, u"click"_s, u"--repeat"_s, u"3"_s, u"4"_s, u"keyup"_s, u"ctrl"_s});
    EXPECT_TRUE(wait([&] { return table().iconSize().width() > side * 3 / 2; }));
    EXPECT_TRUE(run(u"xdotool"_s, {u"key"_s, u"ctrl+0"_s}));
    EXPECT_TRUE(wait([&] { return table().iconSize().width() == side; }));
}

} // namespace
} // namespace tessary
