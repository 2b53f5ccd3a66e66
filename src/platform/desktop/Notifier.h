#pragma once

#include <QString>

#include <functional>

namespace tessary {

/// Shows short messages of the desktop, outside the window.
class Notifier {
public:
    virtual ~Notifier() = default;

    /// Returns at once and never fails: where the desktop shows no messages, nothing happens. Both
    /// texts are plain. `whenClicked` is called when the user clicks the message, unless a newer
    /// one was shown. Main thread.
    virtual void notify(const QString& title, const QString& text,
                        std::function<void()> whenClicked) = 0;
};

} // namespace tessary
