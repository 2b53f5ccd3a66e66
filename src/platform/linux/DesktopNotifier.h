#pragma once

#include "platform/Notifier.h"

namespace tessary {

/// The notifications of freedesktop.org, over the session bus.
class DesktopNotifier final : public Notifier {
public:
    void notify(const QString& title, const QString& text) override;
};

} // namespace tessary
