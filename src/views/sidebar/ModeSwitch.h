#pragma once

#include "phone/records/DeviceInfo.h"

#include <QWidget>

#include <functional>
#include <optional>

class QPushButton;

namespace tessary {

/// How the chosen Android phone is reached, as two buttons of which one is down.
class ModeSwitch : public QWidget {
    Q_OBJECT

public:
    explicit ModeSwitch(const std::function<void(ProtocolMode)>& useMode);

    /// Hidden for what has no choice.
    void showDevice(const std::optional<DeviceInfo>& device);

private:
    QPushButton* standard_;
    QPushButton* turbo_;
};

} // namespace tessary
