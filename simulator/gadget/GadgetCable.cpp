#include "simulator/gadget/GadgetCable.h"

#include "base/values/LittleEndian.h"

#include <linux/usb/functionfs.h>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <string_view>
#include <system_error>
#include <thread>
#include <vector>

namespace tessary {

namespace {

using namespace std::chrono_literals;

// Pipes of a virtual device
constexpr std::uint8_t inPipe = 1;
constexpr std::uint8_t outPipe = 2;
constexpr std::uint8_t eventPipe = 3;

constexpr std::size_t packetSize = 512;
constexpr std::size_t atOnce = 128 * packetSize;
constexpr USBTimeouts patience{1h};
/// Until the gadget is bound, its endpoints fail at once.
constexpr auto pause = 20ms;

/// The interface of MTP: 6/1/1, bulk in, bulk out, interrupt in.
void appendInterface(Bytes& bytes, std::uint16_t bulkPacket, std::uint8_t eventInterval) {
    for (const int byte : {9, USB_DT_INTERFACE, 0, 0, 3, 6, 1, 1, 1})
        bytes.push_back(static_cast<std::byte>(byte));
    const struct {
        int address, kind;
        std::uint16_t packet;
        std::uint8_t interval;
    } endpoints[] = {{USB_DIR_IN | 1, USB_ENDPOINT_XFER_BULK, bulkPacket, 0},
                     {USB_DIR_OUT | 2, USB_ENDPOINT_XFER_BULK, bulkPacket, 0},
                     {USB_DIR_IN | 3, USB_ENDPOINT_XFER_INT, 28, eventInterval}};
    for (const auto& endpoint : endpoints) {
        for (const int byte : {7, USB_DT_ENDPOINT, endpoint.address, endpoint.kind})
            bytes.push_back(static_cast<std::byte>(byte));
        appendLittleEndian(bytes, endpoint.packet);
        appendLittleEndian(bytes, endpoint.interval);
    }
}

/// What FunctionFS is told first: magic, whole length, flags, two counts of descriptors, and these.
Bytes descriptors() {
    constexpr std::uint32_t count = 4;
    Bytes interfaces;
    appendInterface(interfaces, 64, 6);
    appendInterface(interfaces, packetSize, 6);
    Bytes bytes;
    for (const std::uint32_t word :
         {std::uint32_t{FUNCTIONFS_DESCRIPTORS_MAGIC_V2},
          static_cast<std::uint32_t>(20 + interfaces.size()),
          std::uint32_t{FUNCTIONFS_HAS_FS_DESC | FUNCTIONFS_HAS_HS_DESC}, count, count})
        appendLittleEndian(bytes, word);
    bytes.insert(bytes.end(), interfaces.begin(), interfaces.end());
    return bytes;
}

/// Then: magic, whole length, one string in one language.
Bytes strings() {
    constexpr std::string_view name("MTP\0", 4);
    constexpr std::uint16_t english = 0x0409;
    Bytes bytes;
    for (const std::uint32_t word : {std::uint32_t{FUNCTIONFS_STRINGS_MAGIC},
                                     static_cast<std::uint32_t>(18 + name.size()), 1U, 1U})
        appendLittleEndian(bytes, word);
    appendLittleEndian(bytes, english);
    for (const char one : name)
        bytes.push_back(static_cast<std::byte>(one));
    return bytes;
}

[[noreturn]] void fail(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

FileHandle opened(const std::filesystem::path& folder, const char* name) {
    FileHandle file(::open((folder / name).c_str(), O_RDWR | O_CLOEXEC));
    if (!file.isOpen())
        fail(name);
    return file;
}

void writeAll(const FileHandle& file, ByteView bytes) {
    if (::write(file.get(), bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
        fail("FunctionFS");
}

/// A transfer of the other direction halts an endpoint.
void halt(const FileHandle& endpoint, bool isIn) {
    std::byte none{};
    (void)!(isIn ? ::read(endpoint.get(), &none, 0) : ::write(endpoint.get(), &none, 0));
}

} // namespace

GadgetCable::GadgetCable(USBInterface& interface, const std::filesystem::path& functions)
    : interface_(interface), control_(opened(functions, "ep0")) {
    writeAll(control_, descriptors());
    writeAll(control_, strings());
    in_ = opened(functions, "ep1");
    out_ = opened(functions, "ep2");
    events_ = opened(functions, "ep3");
}

void GadgetCable::run() {
    std::thread([this] { carryToHost(inPipe, in_); }).detach();
    std::thread([this] { carryToHost(eventPipe, events_); }).detach();
    std::thread([this] { carryFromHost(); }).detach();
    for (;;) {
        usb_functionfs_event event{};
        const ssize_t count = ::read(control_.get(), &event, sizeof event);
        if (count < 0 && errno != EINTR)
            fail("ep0");
        if (count == sizeof event && event.type == FUNCTIONFS_SETUP) {
            const usb_ctrlrequest& setup = event.u.setup;
            answer({setup.bRequestType, setup.bRequest, setup.wValue, setup.wIndex}, setup.wLength);
        }
    }
}

void GadgetCable::answer(const USBControlRequest& request, std::uint16_t length) {
    const bool isIn = (request.requestType & USB_DIR_IN) != 0;
    Bytes data(length);
    if (!isIn && ::read(control_.get(), data.data(), data.size()) < 0)
        return;
    std::size_t transferred = 0;
    if (interface_.controlRequest(request, data, transferred, 1s) != usb::success)
        return halt(control_, isIn);
    if (isIn)
        (void)!::write(control_.get(), data.data(), transferred);
}

void GadgetCable::carryToHost(std::uint8_t pipe, const FileHandle& endpoint) {
    Bytes buffer(atOnce);
    for (;;) {
        std::size_t count = 0;
        const USBCode code = interface_.readPipeTO(pipe, buffer, count, patience);
        if (code == usb::pipeStalled) {
            halt(endpoint, true);
            (void)interface_.clearPipeStallBothEnds(pipe);
        }
        if (code != usb::success) {
            std::this_thread::sleep_for(pause);
            continue;
        }
        // What ends before the buffer does is the end of a transfer: whole packets need another.
        const bool endsWhole = count > 0 && count < buffer.size() && count % packetSize == 0;
        if (::write(endpoint.get(), buffer.data(), count) < 0)
            std::this_thread::sleep_for(pause); // nobody is there: it goes where events go
        else if (endsWhole && pipe == inPipe)
            (void)!::write(endpoint.get(), buffer.data(), 0);
    }
}

void GadgetCable::carryFromHost() {
    Bytes buffer(atOnce);
    for (;;) {
        const ssize_t got = ::read(out_.get(), buffer.data(), buffer.size());
        if (got < 0) {
            std::this_thread::sleep_for(pause);
            continue;
        }
        const auto count = static_cast<std::size_t>(got);
        std::size_t written = 0;
        USBCode code =
            interface_.writePipeTO(outPipe, ByteView(buffer).first(count), written, patience);
        if (code == usb::success && count > 0 && count < buffer.size() && count % packetSize == 0)
            code = interface_.writePipeTO(outPipe, {}, written, patience);
        if (code == usb::pipeStalled) {
            halt(out_, false);
            (void)interface_.clearPipeStallBothEnds(outPipe);
        }
    }
}

} // namespace tessary
