#pragma once

#include "platform/desktop/Notifier.h"

#include <QObject>

namespace tessary {

/// The notifications of freedesktop.org, over the session bus.
class DesktopNotifier final : public QObject, public Notifier {
    Q_OBJECT

public:
    void notify(const QString& title, const QString& text,
                std::function<void()> whenClicked) override;

private Q_SLOTS:
    void actionInvoked(uint id, const QString& action);

private:
    uint lastId_ = 0; ///< of the newest message; the desktop counts from 1
    std::function<void()> whenClicked_;
};

} // namespace tessary
