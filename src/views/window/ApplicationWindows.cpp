#include "views/window/ApplicationWindows.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>

namespace tessary {

ApplicationWindows::ApplicationWindows(QWidget& mainWindow)
    : mainWindow_(mainWindow), delegate_(*this) {
    QApplication::setQuitOnLastWindowClosed(false); // the delegate decides
    qApp->installEventFilter(this);
}

std::vector<AppWindow> ApplicationWindows::windows() const {
    std::vector<AppWindow> all;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        const Qt::WindowType type = window->windowType();
        all.push_back({window->isVisible(), type == Qt::Window, type == Qt::Tool});
    }
    return all;
}

std::optional<QRect> ApplicationWindows::firstFrame() const {
    // One that fills the screen has the height that the user wants.
    if (mainWindow_.isMaximized() || mainWindow_.isFullScreen())
        return std::nullopt;
    return mainWindow_.geometry();
}

void ApplicationWindows::setFirstFrame(const QRect& frame) {
    mainWindow_.setGeometry(frame);
}

QRect ApplicationWindows::screen() const {
    return mainWindow_.screen()->availableGeometry();
}

void bringToFront(QWidget& window) {
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

void ApplicationWindows::activate() {
    bringToFront(mainWindow_);
}

void ApplicationWindows::terminate() {
    QApplication::quit();
}

bool ApplicationWindows::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Close && watched->isWidgetType() &&
        static_cast<QWidget*>(watched)->isWindow())
        delegate_.windowWillClose();
    return QObject::eventFilter(watched, event);
}

} // namespace tessary
