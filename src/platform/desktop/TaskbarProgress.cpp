#include "platform/desktop/TaskbarProgress.h"

#include "platform/desktop/SessionBus.h"

#include <QDBusMessage>
#include <QVariantMap>

#include <algorithm>
#include <cmath>

namespace tessary {

TaskbarProgress::~TaskbarProgress() {
    show(std::nullopt);
}

void TaskbarProgress::show(std::optional<double> fraction) {
    constexpr double whole = 100;
    std::optional<int> percents;
    if (fraction)
        percents = static_cast<int>(std::floor(std::clamp(*fraction, 0.0, 1.0) * whole));
    if (percents == shown_)
        return;
    shown_ = percents;
    auto bus = sessionBus();
    if (!bus)
        return;
    // Docks know the program by the name of its desktop file.
    QDBusMessage update = QDBusMessage::createSignal(
        QStringLiteral("/com/velmora/tessary"), QStringLiteral("com.canonical.Unity.LauncherEntry"),
        QStringLiteral("Update"));
    update << QStringLiteral("application://tessary.desktop")
           << QVariantMap{{QStringLiteral("progress"), percents.value_or(0) / whole},
                          {QStringLiteral("progress-visible"), percents.has_value()}};
    bus->send(update);
}

} // namespace tessary
