#pragma once

#include "adb/direct/ADBDirectConnection.h"
#include "adb/direct/ADBTCPTransport.h"
#include "adb/direct/ADBUSBTransport.h"
#include "adb/files/ADBFileSystem.h"
#include "adb/keys/ADBAuthManager.h"
#include "adb/protocol/ADBError.h"
#include "adb/server/ADBServerConnection.h"
#include "platform/keys/FileKeyStore.h"
#include "simulator/adbd/ADBDCable.h"
#include "support/ADBFixture.h"
#include "support/CodeOf.h"
#include "support/FileBytes.h"

#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <memory>

namespace tessary {

/// How a phone's adbd is reached.
enum class ADBWay { server, network, cable };

inline const auto allADBWays = testing::Values(ADBWay::server, ADBWay::network, ADBWay::cable);

inline void PrintTo(ADBWay way, std::ostream* out) {
    *out << (way == ADBWay::server ? "server" : way == ADBWay::network ? "network" : "cable");
}

/// One virtual phone and its files, by each of the ways to it.
class ADBFilesFixture : public testing::TestWithParam<ADBWay>, protected ADBPhone {
protected:
    explicit ADBFilesFixture(ADBDConfig config = {}) : ADBPhone(std::move(config)) {}

    void SetUp() override {
        if (GetParam() == ADBWay::server)
            connectPhone();
        cable_.plugInto(bus_, QStringLiteral("1-1"));
        connection_ = connect();
        files_ = std::make_unique<ADBFileSystem>(identity(), queue_, connection_);
    }
    void TearDown() override {
        EXPECT_THAT(adbd_->violations(), testing::IsEmpty());
    }
    void breakPhone(const std::function<void(ADBDFaults&)>& change) {
        adbd_->faults().update(change);
    }
    /// Waits until the phone can be asked again after its link was lost.
    [[nodiscard]] bool comesBack() {
        if (GetParam() == ADBWay::server)
            return reaches(QStringLiteral("device"));
        if (GetParam() == ADBWay::cable) {
            cable_.unplug();
            cable_.plugInto(bus_, QStringLiteral("1-1"));
        }
        return true;
    }
    [[nodiscard]] std::shared_ptr<ADBConnection>
    connect(std::chrono::milliseconds trustPatience = 2s) {
        if (GetParam() == ADBWay::server)
            return serverConnection();
        const auto transport = [this](const Wait& wait) -> std::unique_ptr<ADBTransport> {
            if (GetParam() == ADBWay::network)
                return std::make_unique<ADBTCPTransport>(QStringLiteral("127.0.0.1"), adbd_->port(),
                                                         wait);
            return std::make_unique<ADBUSBTransport>(bus_, QStringLiteral("1-1"), QString());
        };
        return std::make_shared<ADBDirectConnection>(
            transport,
            std::make_shared<ADBAuthManager>(std::make_unique<FileKeyStore>(keys_.path()),
                                             QStringLiteral("ann"), QStringLiteral("desk")),
            std::function<QStringList()>(), trustPatience);
    }

    [[nodiscard]] FileItem item(const QString& path) {
        return require(*files_, path, {});
    }
    [[nodiscard]] QByteArray readAll(const FileItem& file, ByteRange range = {}) {
        return readBytes(*files_, file, range);
    }
    FileItem write(const QString& folder, const QString& name, const QByteArray& bytes,
                   const Call& call = {}, const ByteProgress& progress = {}) {
        return files_->write({folder, name, bytes.size(), std::nullopt}, sourceOf(bytes), progress,
                             call);
    }
    using ADBPhone::write;
    static QStringList namesIn(const Listing& listing) {
        QStringList names = namesOf(listing.items);
        names.sort();
        return names;
    }
    [[nodiscard]] QStringList listed(const QString& folder) {
        return namesIn(listAll(*files_, folder, {}));
    }

    VirtualUSBBus bus_;
    ADBDCable cable_{*adbd_, QStringLiteral("VIRTUAL")};
    std::shared_ptr<ADBConnection> connection_;
    std::shared_ptr<PhoneQueue> queue_ = std::make_shared<PhoneQueue>();
    std::unique_ptr<ADBFileSystem> files_;
};

} // namespace tessary
