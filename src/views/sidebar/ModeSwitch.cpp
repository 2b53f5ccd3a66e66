#include "views/sidebar/ModeSwitch.h"

#include "app/LanguageManager.h"
#include "app/texts/DisplayNames.h"
#include "views/common/Layouts.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPushButton>
#include <QStyleOptionButton>

namespace tessary {

namespace {

/// One half of the switch. The pressed look alone is hardly seen on a dark ground.
class ModeButton final : public QPushButton {
protected:
    void initStyleOption(QStyleOptionButton* option) const override {
        QPushButton::initStyleOption(option);
        if (!isChecked() || !isEnabled())
            return;
        const QColor accent = palette().color(QPalette::Highlight);
        option->palette.setColor(QPalette::Button, accent);
        option->palette.setColor(QPalette::Window, accent);
        option->palette.setColor(QPalette::ButtonText, palette().color(QPalette::HighlightedText));
        option->state &= ~(QStyle::State_On | QStyle::State_Sunken); // which would darken it again
    }
};

QPushButton* modeButton(ProtocolMode mode, const char* toolTip) {
    auto* button = new ModeButton;
    button->setCheckable(true);
    // They share what room the sidebar has.
    button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    button->setFont(scaled(button->font(), 0.88));
    keepTranslated(button, [button, mode, toolTip] {
        button->setText(mode == ProtocolMode::mtp ? QStringLiteral("MTP")
                                                  : QStringLiteral("Turbo (ADB)"));
        button->setAccessibleName(displayName(mode));
        button->setToolTip(ModeSwitch::tr(toolTip));
    });
    return button;
}

} // namespace

ModeSwitch::ModeSwitch(const std::function<void(ProtocolMode)>& useMode)
    : standard_(
          modeButton(ProtocolMode::mtp, QT_TR_NOOP("Works with every phone, nothing to set up."))),
      turbo_(modeButton(ProtocolMode::adbTurbo,
                        QT_TR_NOOP("Faster and sees more. Needs USB debugging on the phone."))) {
    auto* group = new QButtonGroup(this);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(12, 4, 12, 4);
    row->setSpacing(0);
    for (auto [button, mode] :
         {std::pair{standard_, ProtocolMode::mtp}, std::pair{turbo_, ProtocolMode::adbTurbo}}) {
        group->addButton(button);
        row->addWidget(button, 1);
        connect(button, &QPushButton::clicked, this, [useMode, mode = mode] { useMode(mode); });
    }
    hide();
}

void ModeSwitch::showDevice(const std::optional<DeviceInfo>& device) {
    const bool hasChoice = device && device->platform == DevicePlatform::android;
    setVisible(hasChoice);
    if (!hasChoice)
        return;
    (device->protocolMode == ProtocolMode::adbTurbo ? turbo_ : standard_)->setChecked(true);
    // A phone on the network is reached by adb alone.
    standard_->setEnabled(device->connectionType == ConnectionType::usb);
}

} // namespace tessary
