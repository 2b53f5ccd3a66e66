#include "views/window/ApplicationWindows.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>

#include <algorithm>

namespace tessary {

void bringToFront(QWidget& window) {
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

ApplicationWindows::ApplicationWindows(QWidget& mainWindow) : mainWindow_(mainWindow) {
    QApplication::setQuitOnLastWindowClosed(false); // quitWithoutWindows() decides
    qApp->installEventFilter(this);
    QMetaObject::invokeMethod(this, &ApplicationWindows::limitHeight, Qt::QueuedConnection);
}

void ApplicationWindows::limitHeight() {
    const QRect frame = mainWindow_.geometry();
    // One that fills the screen has the height that the user wants.
    if (mainWindow_.isMaximized() || mainWindow_.isFullScreen() || frame.height() <= tallestWindow)
        return;
    QRect sensible(frame.topLeft(), QSize(frame.width(), sensibleHeight));
    sensible.moveCenter(mainWindow_.screen()->availableGeometry().center());
    mainWindow_.setGeometry(sensible);
}

/// A menu, a tool tip or a question alone keeps nothing going.
void ApplicationWindows::quitWithoutWindows() {
    const auto all = QApplication::topLevelWidgets();
    if (std::ranges::none_of(all, [](const QWidget* window) {
            return window->isVisible() && window->windowType() == Qt::Window;
        }))
        QApplication::quit();
}

bool ApplicationWindows::eventFilter(QObject* watched, QEvent* event) {
    // The check comes when the window is gone.
    if (event->type() == QEvent::Close && watched->isWidgetType() &&
        static_cast<QWidget*>(watched)->isWindow())
        QMetaObject::invokeMethod(this, &ApplicationWindows::quitWithoutWindows,
                                  Qt::QueuedConnection);
    return QObject::eventFilter(watched, event);
}

} // namespace tessary
