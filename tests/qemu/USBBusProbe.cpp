// Runs inside the emulated machine, on its real kernel and host controller: the system's USB bus
// against an emulated MTP responder and an emulated hub. Transfers of many reads are the program's.

#include "base/values/LittleEndian.h"
#include "platform/usb/SystemUSBBus.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <array>
#include <condition_variable>
#include <filesystem>
#include <iostream>
#include <mutex>
#include <thread>

namespace tessary {
namespace {

using namespace std::chrono;
using testing::IsEmpty;
using testing::SizeIs;

constexpr USBTimeouts patient{5s};
constexpr USBTimeouts impatient{150ms};

constexpr std::uint16_t getDeviceInfo = 0x1001;
constexpr std::uint16_t responseOK = 0x2001;

std::optional<USBDeviceEntry> findEntry(USBBus& bus, std::uint16_t vendor, std::uint16_t product) {
    for (const USBDeviceEntry& entry : bus.devices())
        if (entry.vendorID == vendor && entry.productID == product)
            return entry;
    return std::nullopt;
}

std::optional<USBDeviceEntry> findResponder(USBBus& bus) {
    return findEntry(bus, 0x46F4, 0x0004);
}

class USBBusProbe : public testing::Test {
protected:
    void SetUp() override {
        const auto found = findResponder(*bus);
        ASSERT_TRUE(found) << "the responder is not listed";
        entry = *found;
    }

    void claim() {
        device = bus->device(entry.id);
        ASSERT_TRUE(device);
        ASSERT_EQ(device->open(), usb::success);
        auto found = device->interfaces(std::uint8_t(6), std::uint8_t(1));
        ASSERT_THAT(found, SizeIs(1));
        interface = std::move(found.front());
        for (std::uint8_t pipe = 1; pipe <= interface->endpointCount(); ++pipe) {
            const auto properties = interface->pipeProperties(pipe);
            if (properties->transferType == USBTransferType::bulk)
                (properties->direction == USBDirection::in ? in : out) = pipe;
        }
        ASSERT_NE(in, 0);
        ASSERT_NE(out, 0);
        ASSERT_EQ(interface->pipeProperties(in)->maxPacketSize, 512);
        ASSERT_EQ(interface->open(), usb::success);
    }

    void askForDeviceInfo() {
        Bytes bytes;
        appendLittleEndian(bytes, std::uint32_t(12));
        appendLittleEndian(bytes, std::uint16_t(1));
        appendLittleEndian(bytes, getDeviceInfo);
        appendLittleEndian(bytes, ++transaction);
        std::size_t written = 0;
        ASSERT_EQ(interface->writePipeTO(out, bytes, written, patient), usb::success);
        ASSERT_EQ(written, bytes.size());
    }

    /// One read of at most `size` bytes.
    Bytes read(std::size_t size, USBCode expected = usb::success, USBTimeouts timeouts = patient) {
        Bytes bytes(size);
        std::size_t count = 0;
        EXPECT_EQ(interface->readPipeTO(in, bytes, count, timeouts), expected);
        bytes.resize(count);
        return bytes;
    }

    void expectResponse() {
        const Bytes response = read(512);
        ASSERT_GE(response.size(), 12u);
        EXPECT_EQ(readLittleEndian<std::uint16_t>(response, 4), 3);
        EXPECT_EQ(readLittleEndian<std::uint16_t>(response, 6), responseOK);
    }

    void expectWorking() {
        askForDeviceInfo();
        EXPECT_GT(read(4096).size(), 100u);
        expectResponse();
    }

    std::unique_ptr<USBBus> bus = makeSystemUSBBus();
    USBDeviceEntry entry;
    std::unique_ptr<USBDevice> device;
    std::unique_ptr<USBInterface> interface;
    std::uint8_t in = 0;
    std::uint8_t out = 0;
    std::uint32_t transaction = 0;
};

TEST_F(USBBusProbe, idleStreamTimesOutAndEndsAtOnce) {
    claim();
    const auto start = steady_clock::now();
    {
        const auto stream = interface->stream(in, 4096, 3);
        EXPECT_EQ(stream->submit(100), usb::badArgument);
        for (int i = 0; i < 3; ++i)
            ASSERT_EQ(stream->submit(4096), usb::success);
        EXPECT_EQ(stream->submit(4096), usb::badArgument) << "more reads than its depth";
        USBTransferred done;
        EXPECT_EQ(stream->next(done, impatient), usb::timeout);
        EXPECT_THAT(done.bytes, IsEmpty());
        EXPECT_EQ(stream->inFlight(), 0u);
        ASSERT_EQ(stream->submit(4096), usb::success);
    }
    EXPECT_LT(steady_clock::now() - start, 2s);
    expectWorking();
}

TEST_F(USBBusProbe, otherProgramsInterfaceIsNeitherOpenedNorSeized) {
    claim();
    const auto second = makeSystemUSBBus()->device(entry.id);
    ASSERT_TRUE(second);
    ASSERT_EQ(second->open(), usb::success);
    {
        const auto taken = second->interfaces(std::uint8_t(6), std::nullopt);
        ASSERT_THAT(taken, SizeIs(1));
        EXPECT_EQ(taken[0]->open(), usb::exclusiveAccess);
        EXPECT_EQ(taken[0]->openSeize(), usb::exclusiveAccess);
        interface->close();
        EXPECT_EQ(taken[0]->open(), usb::success);
        EXPECT_EQ(interface->open(), usb::exclusiveAccess);
    }
    EXPECT_EQ(interface->open(), usb::success) << "the destructor closes";
    expectWorking();
}

TEST_F(USBBusProbe, kernelsInterfaceIsSeizedOnRequestAndGivenBack) {
    const std::filesystem::path folder = "/sys/bus/usb/devices/1-2";
    const std::filesystem::path driver = folder / "1-2:1.0/driver";
    ASSERT_TRUE(std::filesystem::exists(driver));
    EXPECT_FALSE(findEntry(*bus, 0x0409, 0x55AA)) << "a hub is listed";
    struct stat facts {};
    ASSERT_EQ(::stat(folder.c_str(), &facts), 0);
    const auto hub = bus->device(facts.st_ino);
    ASSERT_TRUE(hub);
    ASSERT_EQ(hub->open(), usb::success);
    const auto interfaces = hub->interfaces(std::uint8_t(9), std::nullopt);
    ASSERT_THAT(interfaces, SizeIs(1));
    EXPECT_EQ(interfaces[0]->open(), usb::exclusiveAccess);
    EXPECT_EQ(interfaces[0]->openSeize(), usb::success);
    EXPECT_EQ(std::filesystem::read_symlink(driver).filename(), "usbfs");
    std::size_t count = 1;
    std::array<std::byte, 16> data{};
    EXPECT_EQ(interfaces[0]->controlRequest({0xA1, 0x7F, 0, 0}, data, count, 1s), usb::pipeStalled);
    EXPECT_EQ(count, 0u);
    interfaces[0]->close();
    EXPECT_EQ(std::filesystem::read_symlink(driver).filename(), "hub");
}

/// The machine's operator unplugs the device when told so, and plugs it in again.
TEST_F(USBBusProbe, unpluggingEndsReadsAndMakesTheIdStale) {
    struct Log {
        std::mutex mutex;
        std::condition_variable changed;
        std::vector<USBEvent> events;
    } log;
    const auto watch = bus->watch([&](const USBEvent& event) {
        const std::scoped_lock lock(log.mutex);
        log.events.push_back(event);
        log.changed.notify_all();
    });
    ASSERT_TRUE(watch);
    const auto awaitEvents = [&](std::size_t count) {
        std::unique_lock lock(log.mutex);
        return log.changed.wait_for(lock, 20s, [&] { return log.events.size() >= count; });
    };

    claim();
    const auto closed = bus->device(entry.id);
    auto stream = interface->stream(in, 65536, 4);
    for (int i = 0; i < 4; ++i)
        ASSERT_EQ(stream->submit(65536), usb::success);
    std::cout << "@@unplug" << std::endl;
    USBTransferred done;
    EXPECT_EQ(stream->next(done, {20s}), usb::noDevice);
    ASSERT_TRUE(awaitEvents(1));
    EXPECT_EQ(log.events[0].kind, USBEvent::Kind::detached);
    EXPECT_EQ(log.events[0].entry, entry);
    EXPECT_EQ(bus->device(entry.id), nullptr);
    EXPECT_FALSE(findResponder(*bus));
    std::size_t count = 0;
    EXPECT_EQ(interface->writePipeTO(out, Bytes(12), count, patient), usb::noDevice);
    EXPECT_THAT(read(512, usb::noDevice), IsEmpty());
    stream.reset();

    std::cout << "@@plug" << std::endl;
    ASSERT_TRUE(awaitEvents(2));
    EXPECT_EQ(log.events[1].kind, USBEvent::Kind::attached);
    const USBDeviceEntry again = log.events[1].entry;
    EXPECT_EQ(again.location, entry.location);
    EXPECT_EQ(again.productName, entry.productName);
    EXPECT_NE(again.id, entry.id);
    EXPECT_EQ(bus->device(entry.id), nullptr) << "the old id means the new attachment";
    EXPECT_NE(device->open(), usb::noDevice) << "still open";
    interface.reset();
    EXPECT_EQ(closed->open(), usb::noDevice);

    entry = again;
    claim();
    expectWorking();
}

TEST_F(USBBusProbe, holdsTheDevice) {
    claim();
    std::this_thread::sleep_for(3s);
}

TEST_F(USBBusProbe, namesTheProgramThatHoldsTheDevice) {
    QStringList holders;
    for (int tries = 0; tries < 40 && holders.isEmpty(); ++tries) {
        holders = bus->programsHolding(entry.id);
        std::this_thread::sleep_for(100ms);
    }
    ASSERT_THAT(holders, SizeIs(1));
    EXPECT_TRUE(holders[0].startsWith(u"USBBusProbe (")) << holders[0].toStdString();
}

} // namespace
} // namespace tessary
