#pragma once

#include "phones/RawHost.h"
#include "support/PluggedPhone.h"

namespace tessary {

/// One phone on a bus, and a raw host that has opened it.
class PhoneFixture : public testing::Test {
protected:
    static constexpr std::uint32_t storage = PluggedPhone::firstStorage;
    static constexpr std::uint32_t root = 0xFFFFFFFF;

    PhoneFixture() {
        plugIn({});
    }
    ~PhoneFixture() override {
        host_.reset();
        phone_.reset();
    }

    /// Another phone in the place of the one that is plugged in.
    void plugIn(VirtualAndroidConfig config) {
        host_.reset();
        phone_.reset();
        phone_ = std::make_unique<PluggedPhone>(bus_, std::move(config));
        connect();
    }
    void connect() {
        host_.reset();
        host_ = std::make_unique<RawHost>(bus_, bus_.devices().at(0).id);
    }
    [[nodiscard]] PluggedPhone& phone() {
        return *phone_;
    }
    [[nodiscard]] RawHost& host() {
        return *host_;
    }
    void behave(const std::function<void(VirtualBehaviour&)>& change) {
        phone().android.behaviour().update(change);
    }
    /// Uploads a file into the root.
    RawHost::Answer upload(std::u16string_view name, ByteView content) {
        const auto info =
            host().runOut(0x100C, {storage, root},
                          RawHost::objectInfo(name, static_cast<std::uint32_t>(content.size())));
        return info.code == 0x2001 ? host().runOut(0x100D, {}, content) : info;
    }

    VirtualUsbBus bus_;

private:
    std::unique_ptr<PluggedPhone> phone_;
    std::unique_ptr<RawHost> host_;
};

} // namespace tessary
