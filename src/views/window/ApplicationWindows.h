#pragma once

#include "app/AppDelegate.h"

#include <QWidget>

namespace tessary {

/// Has the user see a window again, wherever it is.
void bringToFront(QWidget& window);

/// The windows of this application, with `mainWindow` as the first of them. Tells the delegate when
/// one closes.
class ApplicationWindows : public QObject, public AppWindows {
public:
    /// `mainWindow` must outlive this.
    explicit ApplicationWindows(QWidget& mainWindow);

    [[nodiscard]] AppDelegate& delegate() {
        return delegate_;
    }

    [[nodiscard]] std::vector<AppWindow> windows() const override;
    [[nodiscard]] std::optional<QRect> firstFrame() const override;
    void setFirstFrame(const QRect& frame) override;
    [[nodiscard]] QRect screen() const override;
    void activate() override;
    void terminate() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& mainWindow_;
    AppDelegate delegate_;
};

} // namespace tessary
