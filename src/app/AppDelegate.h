#pragma once

#include <QObject>
#include <QRect>

#include <optional>
#include <vector>

namespace tessary {

/// One window of the application, as far as the delegate's rules look at it.
struct AppWindow {
    bool isVisible = false;
    bool canBecomeMain = false; ///< not a menu, a tool tip or a question
    bool isPanel = false;
};

/// The application's windows, and the program that they are in.
class AppWindows {
public:
    virtual ~AppWindows() = default;

    [[nodiscard]] virtual std::vector<AppWindow> windows() const = 0;
    /// Where the first window stands; no value when there is none.
    [[nodiscard]] virtual std::optional<QRect> firstFrame() const = 0;
    virtual void setFirstFrame(const QRect& frame) = 0;
    /// The part of the screen that windows may cover.
    [[nodiscard]] virtual QRect screen() const = 0;
    /// Brings the main window to the front, from the task bar if need be.
    virtual void activate() = 0;
    /// Ends the program; a window that has a question first may prevent that.
    virtual void terminate() = 0;
};

/// The rules of the application's windows: the first one starts at a sensible height, and closing
/// the last main window ends the program. Lives on the main thread.
class AppDelegate : public QObject {
public:
    /// In pixels, without regard to the screen's scaling.
    static constexpr int tallestWindow = 900;
    static constexpr int sensibleHeight = 750;

    /// `windows` must outlive the delegate.
    explicit AppDelegate(AppWindows& windows) : windows_(windows) {}

    /// Once the first window is made.
    void applicationDidFinishLaunching();

    /// Whenever a window is about to close. The check comes after that, when it is gone.
    void windowWillClose();

    /// The program was started again.
    void reopen() {
        windows_.activate();
    }

private:
    void checkFirstHeight();
    void terminateWithoutMainWindow();

    AppWindows& windows_;
};

/// `frame` when it is no taller than it should be, else one of a sensible height in the middle of
/// the screen. Pure.
[[nodiscard]] QRect sensibleFrame(const QRect& frame, const QRect& screen);

} // namespace tessary
