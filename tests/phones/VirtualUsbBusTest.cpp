#include "phones/VirtualUsbBus.h"

#include "phones/PhoneFixture.h"

#include <condition_variable>
#include <thread>

namespace tessary {
namespace {

using namespace std::chrono_literals;

/// Collects the events of a watch.
class EventList {
public:
    void add(const UsbEvent& event) {
        const std::lock_guard lock(mutex_);
        events_.push_back(event);
        changed_.notify_all();
    }
    /// Waits for this many events.
    std::vector<UsbEvent> waitFor(std::size_t count) {
        std::unique_lock lock(mutex_);
        changed_.wait_for(lock, 5s, [&] { return events_.size() >= count; });
        return events_;
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<UsbEvent> events_;
};

class VirtualUsbBusTest : public PhoneFixture {};

TEST_F(VirtualUsbBusTest, entryTellsWhatTheConfigurationSays) {
    VirtualAndroidConfig config;
    config.serialNumber = QStringLiteral("S1");
    config.location = QStringLiteral("2-1.4");
    plugIn(config);
    const UsbDeviceEntry entry = bus_.devices().at(0);
    EXPECT_EQ(entry.vendorID, 0x18D1);
    EXPECT_EQ(entry.productID, 0x4EE1);
    EXPECT_EQ(entry.vendorName, QStringLiteral("Google"));
    EXPECT_EQ(entry.productName, QStringLiteral("Pixel 7"));
    EXPECT_EQ(entry.serialNumber, QStringLiteral("S1"));
    EXPECT_EQ(entry.location, QStringLiteral("2-1.4"));
}

TEST_F(VirtualUsbBusTest, eachPluggingIsANewEntryAndWatchesHearOfIt) {
    EventList heard;
    const auto watch = bus_.watch([&](const UsbEvent& event) { heard.add(event); });
    const std::uint64_t first = bus_.devices().at(0).id;
    phone().android.unplug();
    EXPECT_TRUE(bus_.devices().empty());
    EXPECT_EQ(bus_.device(first), nullptr);
    const std::uint64_t second = phone().android.plugInto(bus_);
    EXPECT_NE(second, first);
    EXPECT_EQ(phone().android.plugInto(bus_), 0U) << "it is plugged in already";
    const auto events = heard.waitFor(2);
    ASSERT_EQ(events.size(), 2U);
    EXPECT_EQ(events[0].kind, UsbEvent::Kind::detached);
    EXPECT_EQ(events[0].entry.id, first);
    EXPECT_EQ(events[1].kind, UsbEvent::Kind::attached);
    EXPECT_EQ(events[1].entry.id, second);
}

TEST_F(VirtualUsbBusTest, watchIsSilentOnceItIsGone) {
    std::atomic<int> calls = 0;
    std::atomic<bool> destroyed = false;
    for (int i = 0; i < 20; ++i) {
        auto watch = bus_.watch([&](const UsbEvent&) {
            EXPECT_FALSE(destroyed);
            std::this_thread::sleep_for(1ms);
            EXPECT_FALSE(destroyed);
            ++calls;
        });
        phone().android.unplug();
        phone().android.plugInto(bus_);
        watch.reset();
        destroyed = true;
        std::this_thread::sleep_for(1ms);
        destroyed = false;
    }
}

TEST_F(VirtualUsbBusTest, locationHoldsOneDevice) {
    const TemporaryFolder folder;
    VirtualAndroidConfig config;
    config.storages.resize(1);
    config.storages[0].folder = folder.path();
    VirtualAndroid other(config);
    EXPECT_EQ(other.plugInto(bus_), 0U);
    EXPECT_TRUE(bus_.detach(config.location));
    EXPECT_FALSE(bus_.detach(config.location));
    EXPECT_NE(other.plugInto(bus_), 0U);
}

TEST_F(VirtualUsbBusTest, openFaultsAnswerWhatTheyAreSetTo) {
    const QString location = phone().android.config().location;
    const auto device = bus_.device(bus_.devices().at(0).id);
    VirtualOpenFaults faults;
    faults.deviceOpen = usb::notPermitted;
    bus_.setOpenFaults(location, faults);
    EXPECT_EQ(device->open(), usb::notPermitted);
    EXPECT_TRUE(device->interfaces({}, {}).empty());
    EXPECT_EQ(device->openSeize(), usb::success);
    host().pipes().close();
    faults.interfaceOpen = usb::exclusiveAccess;
    bus_.setOpenFaults(location, faults);
    const auto interfaces = device->interfaces(6, {});
    EXPECT_EQ(interfaces.at(0)->open(), usb::exclusiveAccess);
    EXPECT_EQ(interfaces.at(0)->openSeize(), usb::success);
    bus_.setProgramsHolding(location, {QStringLiteral("gvfsd")});
    EXPECT_EQ(bus_.programsHolding(bus_.devices().at(0).id), QStringList(QStringLiteral("gvfsd")));
}

TEST_F(VirtualUsbBusTest, interfaceIsOpenOnceAtATime) {
    const auto device = bus_.device(bus_.devices().at(0).id);
    ASSERT_EQ(device->open(), usb::success);
    const auto second = device->interfaces(6, 1);
    EXPECT_EQ(second.at(0)->open(), usb::exclusiveAccess);
    std::size_t transferred = 0;
    EXPECT_EQ(second.at(0)->writePipeTO(2, {}, transferred, RawHost::soon), usb::notOpen);
    host().pipes().close();
    EXPECT_EQ(second.at(0)->open(), usb::success);
}

TEST_F(VirtualUsbBusTest, interfacesAreChosenByClass) {
    VirtualAndroidConfig config;
    config.interfaces = {{255, 66, false}, {6, 1, true}};
    config.maxPacketSize = 1024;
    plugIn(config);
    const auto device = bus_.device(bus_.devices().at(0).id);
    ASSERT_EQ(device->open(), usb::success);
    EXPECT_EQ(device->interfaces({}, {}).size(), 2U);
    EXPECT_TRUE(device->interfaces(255, 1).empty());
    const auto found = device->interfaces(6, {});
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0]->number(), 1);
    EXPECT_EQ(found[0]->endpointCount(), 3);
    EXPECT_EQ(found[0]->pipeProperties(1),
              (UsbPipeProperties{UsbDirection::in, UsbTransferType::bulk, 1024}));
    EXPECT_EQ(found[0]->pipeProperties(2),
              (UsbPipeProperties{UsbDirection::out, UsbTransferType::bulk, 1024}));
    EXPECT_EQ(found[0]->pipeProperties(3)->transferType, UsbTransferType::interrupt);
    EXPECT_EQ(found[0]->pipeProperties(0), std::nullopt);
    EXPECT_EQ(found[0]->pipeProperties(4), std::nullopt);
}

TEST_F(VirtualUsbBusTest, unpluggingWakesEveryBlockedCallAndEndsAllLater) {
    const auto stream = host().pipes().readStream(1, 4096, 2);
    std::jthread puller([&] {
        std::this_thread::sleep_for(30ms);
        bus_.detach(phone().android.config().location);
    });
    ASSERT_EQ(stream->submit(4096), usb::success);
    ASSERT_EQ(stream->submit(4096), usb::success);
    std::span<const std::byte> data;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(stream->next(data, {60s, 60s}), usb::noDevice);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 5s);
    EXPECT_EQ(stream->inFlight(), 0U);
    EXPECT_EQ(stream->submit(4096), usb::noDevice);
    EXPECT_EQ(host().write(Bytes(12)), usb::noDevice);
    EXPECT_EQ(host().status(), 0);
    EXPECT_EQ(host().pipes().clearPipeStallBothEnds(1), usb::noDevice);
    puller.join();
    EXPECT_FALSE(phone().android.isPlugged());
    phone().android.plugInto(bus_);
    connect();
    host().openSession();
}

TEST_F(VirtualUsbBusTest, streamTakesWholePacketsAndAsManyReadsAsItWasMadeFor) {
    const auto stream = host().pipes().readStream(1, 4096, 2);
    EXPECT_EQ(stream->submit(100), usb::badArgument);
    EXPECT_EQ(stream->submit(8192), usb::badArgument);
    EXPECT_EQ(stream->submit(4096), usb::success);
    EXPECT_EQ(stream->submit(512), usb::success);
    EXPECT_EQ(stream->submit(512), usb::badArgument);
    EXPECT_EQ(host().pipes().readStream(2, 4096, 2), nullptr) << "not an IN pipe";
}

TEST_F(VirtualUsbBusTest, streamDeliversAWholeObject) {
    const Bytes content = patternBytes(3'000'000);
    phone().write(QStringLiteral("f"), asArray(content));
    host().openSession();
    const std::uint32_t handle = host().handles(storage).at(0);
    ASSERT_EQ(host().command(0x1009, {handle}), usb::success);
    constexpr std::size_t request = 65536;
    const auto stream = host().pipes().readStream(1, request, 4);
    Bytes received;
    while (received.size() < content.size() + 12) {
        while (stream->inFlight() < 4)
            ASSERT_EQ(stream->submit(request), usb::success);
        std::span<const std::byte> data;
        ASSERT_EQ(stream->next(data, RawHost::soon), usb::success);
        received.insert(received.end(), data.begin(), data.end());
    }
    received.erase(received.begin(), received.begin() + 12);
    EXPECT_EQ(received, content);
}

TEST(VirtualUsbBus, handlesAndWatchesOutliveIt) {
    auto bus = std::make_unique<VirtualUsbBus>();
    const TemporaryFolder folder;
    VirtualAndroidConfig config;
    config.storages.resize(1);
    config.storages[0].folder = folder.path();
    VirtualAndroid android(config);
    RawHost host(*bus, android.plugInto(*bus));
    const auto watch = bus->watch([](const UsbEvent&) {});
    bus.reset();
    EXPECT_FALSE(android.isPlugged());
    EXPECT_EQ(host.write(Bytes(12)), usb::noDevice);
}

} // namespace
} // namespace tessary
