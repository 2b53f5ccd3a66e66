#pragma once

#include "base/values/Bytes.h"
#include "platform/usb/USBBus.h"

#include <algorithm>
#include <deque>
#include <vector>

namespace tessary {

/// What a scripted device puts into its IN pipe: bytes, then that many zeros, then a code. Whole
/// packets without an empty transfer behind them have no terminator. A failure breaks a read off.
struct ScriptedTransfer {
    Bytes bytes;
    std::uint64_t zeros = 0;
    USBCode code = usb::success;
};

struct ScriptedInterface {
    std::uint8_t interfaceClass = 6;
    std::uint8_t subclass = 1;
    std::vector<USBPipeProperties> pipes{{USBDirection::in, USBTransferType::bulk, 512},
                                         {USBDirection::out, USBTransferType::bulk, 512},
                                         {USBDirection::in, USBTransferType::interrupt, 64}};
};

struct ScriptedDevice {
    USBDeviceEntry entry;
    std::vector<ScriptedInterface> interfaces{{}};
};

/// A bus in memory that answers from a script and never waits: an empty IN pipe is usb::timeout.
/// For one thread.
class ScriptedUSBBus : public USBBus {
public:
    std::vector<ScriptedDevice> attached;
    std::deque<ScriptedTransfer> incoming;
    std::deque<USBCode> writeCodes;           ///< of the next writes; then usb::success
    std::deque<USBCode> cancelCodes;          ///< of the next cancel requests; then usb::success
    std::function<void(ByteView)> afterWrite; ///< what the device does after each write

    std::uint64_t readBufferLimit = 0; ///< the most memory that was set aside for reads at once

    ScriptedUSBBus() {
        ScriptedDevice device;
        device.entry.id = 1;
        device.entry.vendorID = 0x18D1;
        device.entry.productID = 0x4EE1;
        device.entry.location = QStringLiteral("1-1");
        attached.push_back(std::move(device));
    }
    void send(Bytes bytes) {
        incoming.push_back({std::move(bytes), 0, usb::success});
    }
    void sendEmptyPacket() {
        send({});
    }
    void fail(USBCode code) {
        incoming.push_back({{}, 0, code});
    }

    [[nodiscard]] std::vector<USBDeviceEntry> devices() override {
        std::vector<USBDeviceEntry> entries;
        for (const ScriptedDevice& device : attached)
            entries.push_back(device.entry);
        return entries;
    }
    [[nodiscard]] std::unique_ptr<USBDevice> device(std::uint64_t id) override {
        for (ScriptedDevice& device : attached)
            if (device.entry.id == id)
                return std::make_unique<Device>(*this, device);
        return nullptr;
    }
    [[nodiscard]] std::unique_ptr<USBWatch> watch(std::function<void(const USBEvent&)>) override {
        return nullptr;
    }
    [[nodiscard]] QStringList programsHolding(std::uint64_t) override {
        return {};
    }

private:
    template <typename Value>
    static Value next(std::deque<Value>& script, Value otherwise) {
        if (script.empty())
            return otherwise;
        Value value = std::move(script.front());
        script.pop_front();
        return value;
    }

    USBCode read(std::span<std::byte> buffer, std::size_t& transferred) {
        transferred = 0;
        if (incoming.empty())
            return usb::timeout;
        ScriptedTransfer& front = incoming.front();
        transferred = std::min(buffer.size(), front.bytes.size());
        std::copy_n(front.bytes.begin(), transferred, buffer.begin());
        front.bytes.erase(front.bytes.begin(),
                          front.bytes.begin() + static_cast<std::ptrdiff_t>(transferred));
        const auto zeros = static_cast<std::size_t>(
            std::min<std::uint64_t>(buffer.size() - transferred, front.zeros));
        std::fill_n(buffer.begin() + static_cast<std::ptrdiff_t>(transferred), zeros, std::byte{0});
        front.zeros -= zeros;
        transferred += zeros;
        if (!front.bytes.empty() || front.zeros > 0)
            return usb::success;
        const USBCode code = front.code;
        incoming.pop_front();
        // A terminator ends the read that still has room.
        const bool terminated = transferred > 0 && transferred < buffer.size() &&
                                transferred % 512 == 0 && !incoming.empty() &&
                                incoming.front().bytes.empty() && incoming.front().zeros == 0 &&
                                incoming.front().code == usb::success;
        if (terminated)
            incoming.pop_front();
        return code;
    }

    USBCode write(std::span<const std::byte> data, std::size_t& transferred) {
        transferred = 0;
        const USBCode code = next(writeCodes, usb::success);
        if (code != usb::success)
            return code;
        transferred = data.size();
        if (afterWrite)
            afterWrite(data);
        return code;
    }

    USBCode control(const USBControlRequest& request, std::span<std::byte> data,
                    std::size_t& transferred) {
        const bool isCancel = request.request == 0x64;
        transferred = isCancel ? data.size() : 0;
        return isCancel ? next(cancelCodes, usb::success) : usb::success;
    }

    class Reads : public USBStream {
    public:
        Reads(ScriptedUSBBus& bus, std::size_t requestSize, std::size_t depth)
            : bus_(bus), buffer_(requestSize), depth_(depth) {}

        [[nodiscard]] std::span<std::byte> buffer() override {
            return {};
        }
        USBCode submit(std::size_t length) override {
            if (length % 512 != 0 || length > buffer_.size() || lengths_.size() == depth_)
                return usb::badArgument;
            lengths_.push_back(length);
            return usb::success;
        }
        USBCode next(USBTransferred& done, USBTimeouts) override {
            const std::size_t length = lengths_.front();
            lengths_.pop_front();
            std::size_t transferred = 0;
            const USBCode code = bus_.read(std::span(buffer_).first(length), transferred);
            done = {std::span(buffer_).first(transferred), transferred};
            if (code != usb::success)
                lengths_.clear();
            return code;
        }
        [[nodiscard]] std::size_t inFlight() const override {
            return lengths_.size();
        }

    private:
        ScriptedUSBBus& bus_;
        Bytes buffer_;
        const std::size_t depth_;
        std::deque<std::size_t> lengths_;
    };

    /// Writes when it is waited for.
    class Writes : public USBStream {
    public:
        Writes(ScriptedUSBBus& bus, std::size_t requestSize, std::size_t depth)
            : bus_(bus), buffer_(requestSize), depth_(depth) {}

        [[nodiscard]] std::span<std::byte> buffer() override {
            return inFlight() == depth_ ? std::span<std::byte>() : buffer_;
        }
        USBCode submit(std::size_t length) override {
            flying_.emplace_back(buffer_.begin(),
                                 buffer_.begin() + static_cast<std::ptrdiff_t>(length));
            return usb::success;
        }
        USBCode next(USBTransferred& done, USBTimeouts) override {
            const USBCode code = bus_.write(flying_.front(), done.count);
            flying_.pop_front();
            if (code != usb::success)
                flying_.clear();
            return code;
        }
        [[nodiscard]] std::size_t inFlight() const override {
            return flying_.size();
        }

    private:
        ScriptedUSBBus& bus_;
        Bytes buffer_;
        const std::size_t depth_;
        std::deque<Bytes> flying_;
    };

    class Interface : public USBInterface {
    public:
        Interface(ScriptedUSBBus& bus, const ScriptedInterface& script, std::uint8_t number)
            : USBInterface({number, script.interfaceClass, script.subclass, script.pipes}),
              bus_(bus) {}

        USBCode open() override {
            return usb::success;
        }
        USBCode openSeize() override {
            return open();
        }
        void close() override {}
        USBCode readPipeTO(std::uint8_t, std::span<std::byte> buffer, std::size_t& transferred,
                           USBTimeouts) override {
            bus_.readBufferLimit = std::max<std::uint64_t>(bus_.readBufferLimit, buffer.size());
            return bus_.read(buffer, transferred);
        }
        USBCode writePipeTO(std::uint8_t, std::span<const std::byte> data, std::size_t& transferred,
                            USBTimeouts) override {
            return bus_.write(data, transferred);
        }
        USBCode clearPipeStallBothEnds(std::uint8_t) override {
            return usb::success;
        }
        [[nodiscard]] std::unique_ptr<USBStream> stream(std::uint8_t pipe, std::size_t requestSize,
                                                        std::size_t depth) override {
            const auto properties = pipeProperties(pipe);
            if (properties && properties->direction == USBDirection::out)
                return std::make_unique<Writes>(bus_, requestSize, depth);
            bus_.readBufferLimit =
                std::max<std::uint64_t>(bus_.readBufferLimit, requestSize * depth);
            return std::make_unique<Reads>(bus_, requestSize, depth);
        }
        USBCode controlRequest(const USBControlRequest& request, std::span<std::byte> data,
                               std::size_t& transferred, std::chrono::milliseconds) override {
            return bus_.control(request, data, transferred);
        }

    private:
        ScriptedUSBBus& bus_;
    };

    class Device : public USBDevice {
    public:
        Device(ScriptedUSBBus& bus, ScriptedDevice& script) : bus_(bus), script_(script) {}

        USBCode open() override {
            return usb::success;
        }
        [[nodiscard]] std::vector<std::unique_ptr<USBInterface>>
        interfaces(std::optional<std::uint8_t>, std::optional<std::uint8_t>) override {
            std::vector<std::unique_ptr<USBInterface>> found;
            for (std::size_t i = 0; i < script_.interfaces.size(); ++i)
                found.push_back(std::make_unique<Interface>(bus_, script_.interfaces[i],
                                                            static_cast<std::uint8_t>(i)));
            return found;
        }

    private:
        ScriptedUSBBus& bus_;
        ScriptedDevice& script_;
    };
};

} // namespace tessary
