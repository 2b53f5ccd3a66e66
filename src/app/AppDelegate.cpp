#include "app/AppDelegate.h"

#include <algorithm>

namespace tessary {

void AppDelegate::applicationDidFinishLaunching() {
    windows_.activate();
    QMetaObject::invokeMethod(
        this, [this] { checkFirstHeight(); }, Qt::QueuedConnection);
}

void AppDelegate::checkFirstHeight() {
    const auto frame = windows_.firstFrame();
    if (!frame)
        return;
    const QRect sensible = sensibleFrame(*frame, windows_.screen());
    if (sensible != *frame)
        windows_.setFirstFrame(sensible);
}

void AppDelegate::windowWillClose() {
    QMetaObject::invokeMethod(
        this, [this] { terminateWithoutMainWindow(); }, Qt::QueuedConnection);
}

void AppDelegate::terminateWithoutMainWindow() {
    const bool hasMain = std::ranges::any_of(windows_.windows(), [](const AppWindow& window) {
        return window.isVisible && window.canBecomeMain && !window.isPanel;
    });
    if (!hasMain)
        windows_.terminate();
}

QRect sensibleFrame(const QRect& frame, const QRect& screen) {
    if (frame.height() <= AppDelegate::tallestWindow)
        return frame;
    QRect sensible(frame.topLeft(), QSize(frame.width(), AppDelegate::sensibleHeight));
    sensible.moveCenter(screen.center());
    return sensible;
}

} // namespace tessary
