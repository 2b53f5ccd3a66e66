#include "app/AppDelegate.h"
#include "support/MainLoop.h"

#include <gmock/gmock.h>

using namespace tessary;

namespace {

class FakeWindows final : public AppWindows {
public:
    [[nodiscard]] std::vector<AppWindow> windows() const override {
        return list;
    }
    [[nodiscard]] std::optional<QRect> firstFrame() const override {
        return frame;
    }
    void setFirstFrame(const QRect& to) override {
        frame = to;
    }
    [[nodiscard]] QRect screen() const override {
        return QRect(0, 0, 1920, 1080);
    }
    void activate() override {
        ++activations;
    }
    void terminate() override {
        ++terminations;
    }

    std::vector<AppWindow> list;
    std::optional<QRect> frame;
    int activations = 0;
    int terminations = 0;
};

class AppDelegateTest : public MainLoop {
protected:
    FakeWindows windows_;
    AppDelegate delegate_{windows_};
};

TEST_F(AppDelegateTest, onlyTheLastVisibleMainWindowEndsTheProgram) {
    const AppWindow main{true, true, false};
    struct Row {
        const char* name;
        std::vector<AppWindow> left;
        bool ends;
    };
    const Row rows[] = {
        {"nothing left", {}, true},
        {"another main window", {main}, false},
        {"a hidden one", {{false, true, false}}, true},
        {"a panel", {{true, true, true}}, true},
        {"a tool tip", {{true, false, false}}, true},
        {"a panel and a main window", {{true, true, true}, main}, false},
    };
    for (const Row& row : rows) {
        windows_.terminations = 0;
        windows_.list = {main}; // the one that closes is still there when it says so
        delegate_.windowWillClose();
        EXPECT_EQ(windows_.terminations, 0) << row.name;
        windows_.list = row.left;
        turnFor(5ms);
        EXPECT_EQ(windows_.terminations, row.ends ? 1 : 0) << row.name;
    }
}

TEST_F(AppDelegateTest, aWindowThatIsTooTallStartsInTheMiddleAtASensibleHeight) {
    windows_.frame = QRect(40, 20, 1000, 1000);
    delegate_.applicationDidFinishLaunching();
    EXPECT_EQ(windows_.activations, 1);
    EXPECT_EQ(windows_.frame->height(), 1000) << "before the window is there";
    turnFor(5ms);
    EXPECT_EQ(windows_.frame->size(), QSize(1000, 750));
    EXPECT_EQ(windows_.frame->center(), windows_.screen().center());

    windows_.frame = QRect(40, 20, 1000, 900);
    delegate_.applicationDidFinishLaunching();
    turnFor(5ms);
    EXPECT_EQ(*windows_.frame, QRect(40, 20, 1000, 900));

    windows_.frame.reset();
    delegate_.applicationDidFinishLaunching();
    turnFor(5ms);
    EXPECT_EQ(windows_.frame, std::nullopt);
}

} // namespace
