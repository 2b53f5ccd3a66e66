#pragma once

#include "mtp/client/MTPClient.h"
#include "mtp/protocol/MTPPacketCodec.h"
#include "support/MTPContainers.h"
#include "support/MTPFailure.h"
#include "support/MTPObjects.h"
#include "support/PluggedPhone.h"

#include <gmock/gmock.h>

namespace tessary {

/// A client with an open session on a virtual phone.
class MTPPhoneFixture : public ::testing::Test {
protected:
    static constexpr std::uint32_t storage = PluggedPhone::firstStorage;

    explicit MTPPhoneFixture(VirtualAndroidConfig config = {}) : phone_(bus_, std::move(config)) {
        client_.openSession(1);
    }

    [[nodiscard]] MTPDeviceAddress address() const {
        return {phone_.info.vendorId, phone_.info.productId, {}, {}};
    }
    void replug() {
        phone_.android.unplug();
        ASSERT_NE(phone_.android.plugInto(bus_), 0U);
        client_.closeSession();
        client_.openSession(1);
    }

    static QByteArray asArray(const Bytes& bytes) {
        return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
    }
    void put(const QString& name, const Bytes& content) const {
        phone_.write(name, asArray(content));
    }

    /// The handle of a file or folder in the root; 0 when there is none.
    static std::uint32_t find(MTPClient& client, const QString& name) {
        std::uint32_t found = 0;
        for (const std::uint32_t handle : client.getObjectHandles(storage, mtpRootHandle)) {
            // Another thread may have deleted it meanwhile.
            (void)mtpFailureOf([&] {
                if (client.getObjectInfo(handle).filename == name)
                    found = handle;
            });
            if (found != 0)
                break;
        }
        return found;
    }

    /// Both directions still work: on this client, on this session.
    void expectUsable() {
        static const Bytes content = patternOf(70'000);
        const QString name = QStringLiteral("proof%1").arg(++proofs_);
        upload(client_, storage, name, content);
        EXPECT_EQ(phone_.content(name), asArray(content));
        const std::uint32_t handle = find(client_, name);
        EXPECT_EQ(contentOf(client_, handle), content);
        client_.deleteObject(handle);
        EXPECT_FALSE(phone_.names().contains(name));
        EXPECT_EQ(phone_.android.needlessHaltClears(), 0U);
    }

    VirtualUSBBus bus_;
    PluggedPhone phone_;
    MTPClient client_{bus_, address()};

private:
    int proofs_ = 0;
};

} // namespace tessary
