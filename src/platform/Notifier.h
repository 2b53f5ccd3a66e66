#pragma once

#include <QString>

namespace tessary {

/// Shows short messages of the desktop, outside the window.
class Notifier {
public:
    virtual ~Notifier() = default;

    /// Returns at once and never fails: where the desktop shows no messages, nothing happens. Both
    /// texts are plain. Main thread.
    virtual void notify(const QString& title, const QString& text) = 0;
};

} // namespace tessary
