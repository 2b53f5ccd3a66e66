#include "devices/files/PhoneFileSystems.h"

#include "mtp/files/MTPFileSystem.h"
#include "support/MainLoop.h"
#include "support/MemoryFileSystem.h"

#include <atomic>
#include <thread>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

class PhoneFileSystemsTest : public MainLoop {
protected:
    /// Of a phone whose connection takes its time to close.
    std::shared_ptr<PhoneFileSystem> made() {
        const auto slow = [this](PhoneFileSystem* files) {
            endedHere_ = endedHere_ || std::this_thread::get_id() == here_;
            delete files;
            ++ended_;
        };
        return {new MemoryFileSystem, slow};
    }
    static DeviceInfo phone(const QString& place, std::uint32_t attachment = 0) {
        DeviceInfo device;
        device.udid = u"PHONE"_s;
        device.usbLocation = place;
        device.handle = attachment;
        return device;
    }

    const std::thread::id here_ = std::this_thread::get_id();
    std::atomic<bool> endedHere_ = false;
    std::atomic<int> ended_ = 0;
    PhoneFileSystems phones_{{.mtp = [this](auto&, auto&) { return made(); },
                              .adb = [](auto&, auto&) { return nullptr; },
                              .app = [this](auto&, auto&, auto&) { return made(); },
                              .media = [this](auto&, auto&) { return made(); }}};
};

TEST_F(PhoneFileSystemsTest, ofAPhoneThatWasPluggedInAnewTheOldOneEndsElsewhere) {
    const auto* first = phones_.openMedia(phone(u"1-1"_s, 7)).get();
    EXPECT_EQ(phones_.openMedia(phone(u"1-1"_s, 7)).get(), first);
    EXPECT_EQ(ended_, 0);
    (void)phones_.openMedia(phone(u"1-1"_s, 8));
    EXPECT_TRUE(eventually([&] { return ended_ == 1; }));
    EXPECT_FALSE(endedHere_);
}

/// A bus that makes whoever asks it wait for a device that hangs.
class HangingBus final : public USBBus {
public:
    std::vector<USBDeviceEntry> devices() override {
        ADD_FAILURE();
        return {};
    }
    std::unique_ptr<USBDevice> device(std::uint64_t) override {
        ADD_FAILURE();
        return nullptr;
    }
    std::unique_ptr<USBWatch> watch(std::function<void(const USBEvent&)>) override {
        ADD_FAILURE();
        return nullptr;
    }
    QStringList programsHolding(std::uint64_t) override {
        ADD_FAILURE();
        return {};
    }
};

TEST_F(PhoneFileSystemsTest, aPhoneIsOpenedWithoutALookAtTheBus) {
    HangingBus bus;
    const MTPFileSystem files(bus, identityOf(phone(u"1-1"_s)), std::make_shared<PhoneQueue>());
    EXPECT_EQ(files.canonicalPath(u"/DCIM"_s), u"/sdcard/DCIM");
}

TEST_F(PhoneFileSystemsTest, thoseOfPortsThatNobodyUsesAnyMoreAreLetGo) {
    const auto used = phones_.open(phone(u"1-1"_s));
    for (int port = 2; port < 100; ++port)
        (void)phones_.open(phone(u"1-%1"_s.arg(port)));
    EXPECT_TRUE(eventually([&] { return ended_ > 60; }));
    EXPECT_FALSE(endedHere_);
    EXPECT_EQ(phones_.open(phone(u"1-1"_s)), used);
}

} // namespace
} // namespace tessary
