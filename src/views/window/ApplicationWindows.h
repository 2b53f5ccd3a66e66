#pragma once

#include <QObject>
#include <QWidget>

namespace tessary {

/// Has the user see a window again, wherever it is.
void bringToFront(QWidget& window);

/// The rules of the application's windows: the main one starts at a sensible height, and closing
/// the last window ends the program, unless one has a question first. Lives on the main thread.
class ApplicationWindows : public QObject {
public:
    /// In pixels, without regard to the screen's scaling.
    static constexpr int tallestWindow = 900;
    static constexpr int sensibleHeight = 750;

    /// `mainWindow` must outlive this. Its height is seen to soon after.
    explicit ApplicationWindows(QWidget& mainWindow);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void limitHeight();
    static void quitWithoutWindows();

    QWidget& mainWindow_;
};

} // namespace tessary
