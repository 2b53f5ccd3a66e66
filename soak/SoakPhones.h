#pragma once

#include "Dice.h"

#include "simulator/adbd/ADBServer.h"
#include "simulator/faults/FaultyADBD.h"
#include "simulator/faults/FaultyAndroid.h"
#include "simulator/faults/FaultyIPhone.h"
#include "simulator/usb/VirtualUSBBus.h"

#include <QString>

#include <memory>

namespace tessary {

/// A virtual phone as the soak handles it. All its files lie below one folder of this disk.
class SoakPhone {
public:
    SoakPhone(QString name, QString folder) : name_(std::move(name)), folder_(std::move(folder)) {}
    virtual ~SoakPhone() = default;

    [[nodiscard]] virtual QString udid() const = 0;
    /// The app whose documents are browsed; empty for Android.
    [[nodiscard]] virtual QString app() const {
        return {};
    }
    [[nodiscard]] virtual bool isPlugged() const = 0;
    /// Nothing when it is plugged in.
    virtual void plug() = 0;
    virtual void unplug() = 0;
    /// Sets a fault at random. Returns what it is.
    [[nodiscard]] virtual QString breakDown(Dice& dice) = 0;
    /// Takes faults away, and has the phone differ from others at random in what phones may.
    virtual void heal(Dice& dice) = 0;
    /// Of what it keeps for tests.
    virtual void clearLogs() {}

    [[nodiscard]] const QString& name() const {
        return name_;
    }
    [[nodiscard]] const QString& folder() const {
        return folder_;
    }
    /// Where on this disk lies what the browser has at a path.
    [[nodiscard]] QString onDisk(const QString& path) const;

    /// Something was done to it since the round began: then anything may fail.
    bool isDisturbed = false;

private:
    const QString name_;
    const QString folder_;
};

/// Over MTP.
class SoakAndroid final : public SoakPhone {
public:
    SoakAndroid(VirtualUSBBus& bus, int number, const QString& folder);

    [[nodiscard]] QString udid() const override {
        return android_.config().serialNumber;
    }
    [[nodiscard]] bool isPlugged() const override {
        return android_.isPlugged();
    }
    void plug() override {
        android_.plugInto(bus_);
    }
    void unplug() override {
        android_.unplug();
    }
    [[nodiscard]] QString breakDown(Dice& dice) override;
    void heal(Dice& dice) override;
    void clearLogs() override {
        android_.clearRequestLog();
    }

private:
    VirtualUSBBus& bus_;
    FaultyAndroid android_;
};

/// An app of an iPhone over AFC.
class SoakIPhone final : public SoakPhone {
public:
    SoakIPhone(LoggingMux& mux, int number, const QString& folder);

    [[nodiscard]] QString udid() const override {
        return iPhone_.config().udid;
    }
    [[nodiscard]] QString app() const override {
        return QStringLiteral("com.example.notes");
    }
    [[nodiscard]] bool isPlugged() const override {
        return iPhone_.isPlugged();
    }
    void plug() override {
        iPhone_.plugInto(mux_);
    }
    void unplug() override {
        iPhone_.unplug();
    }
    [[nodiscard]] QString breakDown(Dice& dice) override;
    void heal(Dice& dice) override;
    void clearLogs() override {
        iPhone_.log().clear();
        mux_.log().clear();
    }

private:
    LoggingMux& mux_;
    FaultyIPhone iPhone_;
};

/// Over the real adb. It is not unplugged, which adb takes long to see: its connection is cut.
class SoakADBPhone final : public SoakPhone {
public:
    /// Blocks until adb reaches it; throws std::runtime_error when it does not.
    SoakADBPhone(ADBServer& server, const QString& folder);

    [[nodiscard]] QString udid() const override {
        return adbd_.address();
    }
    [[nodiscard]] bool isPlugged() const override {
        return true;
    }
    /// Waits until adb reaches it again.
    void plug() override {
        (void)server_.awaitPhone(adbd_.address());
    }
    void unplug() override {
        adbd_.cut();
    }
    [[nodiscard]] QString breakDown(Dice& dice) override;
    void heal(Dice& dice) override;
    void clearLogs() override {
        adbd_.clearLog();
    }

private:
    ADBServer& server_;
    FaultyADBD adbd_;
};

} // namespace tessary
