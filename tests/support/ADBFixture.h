#pragma once

#include "adb/server/ADBServerConnection.h"
#include "phone/records/PhoneIdentity.h"
#include "platform/process/QtProcessRunner.h"
#include "simulator/adbd/ADBServer.h"
#include "simulator/faults/FaultyADBD.h"
#include "support/ManyBytes.h"
#include "support/QtPrinters.h"
#include "support/Soon.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>

namespace tessary {

using namespace std::chrono_literals;

/// The adb that tests drive.
inline QString realADB() {
    return QStringLiteral("/usr/bin/adb");
}

/// One of an Android before 7: no second version of anything; from 6 on a shell with the commands.
inline ADBDConfig oldADBD(int apiLevel) {
    return {.folder = {},
            .hasShellV2 = false,
            .hasStatV2 = false,
            .hasLsV2 = false,
            .apiLevel = apiLevel,
            .missingCommands = {"sha256sum"}};
}

/// The real adb, with a server of the test's own, and one virtual phone that it can reach.
class ADBPhone {
protected:
    explicit ADBPhone(ADBDConfig config = {}) {
        config.folder = disk_.makeFolder(QStringLiteral("phone"));
        adbd_ = std::make_unique<FaultyADBD>(std::move(config));
        adbd_->start();
        server_.start(realADB());
        server_.awaitStart();
    }

    void connectPhone() {
        server_.connect(serial());
        ASSERT_TRUE(reaches(QStringLiteral("device"))) << devices().toStdString();
    }
    [[nodiscard]] QString serial() const {
        return adbd_->address();
    }
    /// The phone by the server.
    [[nodiscard]] std::shared_ptr<ADBConnection> serverConnection() const {
        return std::make_shared<ADBServerConnection>(
            std::make_shared<ADBServerClient>(
                ADBServerAddress{.port = server_.port(), .socketPath = {}}),
            ADBPhoneSought{serial(), {}});
    }
    [[nodiscard]] PhoneIdentity identity() const {
        PhoneIdentity phone;
        phone.udid = phone.serialNumber = serial();
        phone.name = QStringLiteral("Pixel 7");
        return phone;
    }
    ProcessResult adb(const QStringList& arguments, std::chrono::milliseconds limit = 30s) {
        return runner_.run(realADB(), QStringList{QStringLiteral("-s"), serial()} + arguments,
                           limit);
    }
    ProcessResult shell(const char* line) {
        return adb({QStringLiteral("shell"), QString::fromUtf8(line)});
    }
    [[nodiscard]] QString devices() {
        return QString::fromUtf8(
            runner_.run(realADB(), {QStringLiteral("devices")}, 10s).standardOutput);
    }
    /// Waits until adb gives the phone this state.
    [[nodiscard]] bool reaches(const QString& state) {
        const QString line = serial() + QLatin1Char('\t') + state;
        return comesTrue([&] { return devices().contains(line); });
    }
    QString write(const QString& path, const QByteArray& content) const {
        return disk_.write(QStringLiteral("phone/") + path, content);
    }
    [[nodiscard]] QByteArray content(const QString& path) const {
        return disk_.read(QStringLiteral("phone/") + path);
    }

    const TemporaryFolder disk_; ///< "phone" is the phone's storage
    const TemporaryFolder keys_;
    ADBServer server_{keys_.path()};
    QtProcessRunner runner_{server_.environment()};
    std::unique_ptr<FaultyADBD> adbd_;
};

/// A test that begins with the phone connected.
class ADBFixture : public testing::Test, protected ADBPhone {
protected:
    explicit ADBFixture(ADBDConfig config = {}) : ADBPhone(std::move(config)) {}

    void SetUp() override {
        connectPhone();
    }
};

} // namespace tessary
