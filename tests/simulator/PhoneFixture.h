#pragma once

#include "simulator/usb/VirtualUSBPort.h"
#include "support/MTPContainers.h"
#include "support/PluggedPhone.h"

#include <gtest/gtest.h>

namespace tessary {

/// The host's side of a virtual phone, down to the bytes: no codec and no transport in between.
class RawHost {
public:
    static constexpr USBTimeouts soon{std::chrono::seconds(5), std::chrono::seconds(5)};
    static constexpr USBTimeouts quiet{std::chrono::milliseconds(60),
                                       std::chrono::milliseconds(60)};

    struct Answer {
        USBCode usb = usb::success; ///< of the first pipe call that failed
        std::uint16_t code = 0;     ///< 0 without a response
        bool hasData = false;
        Bytes data; ///< payload of the data phase
    };

    RawHost(USBBus& bus, std::uint64_t id) : device_(bus.device(id)) {
        EXPECT_EQ(device_->open(), usb::success);
        interface_ = std::move(device_->interfaces(6, 1).at(0));
        EXPECT_EQ(interface_->open(), usb::success);
    }

    USBCode write(ByteView bytes) {
        std::size_t transferred = 0;
        return interface_->writePipeTO(VirtualUSBPort::outPipe, bytes, transferred, soon);
    }
    /// One transfer.
    USBCode read(Bytes& bytes, USBTimeouts timeouts = soon) {
        std::size_t transferred = 0;
        const USBCode code =
            interface_->readPipeTO(VirtualUSBPort::inPipe, buffer_, transferred, timeouts);
        bytes.assign(buffer_.begin(), buffer_.begin() + static_cast<std::ptrdiff_t>(transferred));
        return code;
    }
    [[nodiscard]] bool isQuiet() {
        Bytes bytes;
        return read(bytes, quiet) == usb::timeout && bytes.empty();
    }
    USBCode clearStall(std::uint8_t pipe) {
        return interface_->clearPipeStallBothEnds(pipe);
    }

    USBCode command(std::uint16_t operation, const std::vector<std::uint32_t>& parameters = {}) {
        return write(commandOf(operation, ++transactionID, parameters));
    }
    /// Reads containers, each a transfer of its own, until a response.
    Answer answer() {
        Answer answer;
        Bytes bytes;
        while (answer.code == 0) {
            answer.usb = read(bytes);
            if (answer.usb != usb::success || bytes.size() < 12)
                return answer;
            if (readLittleEndian<std::uint16_t>(bytes, 4) == 2) {
                answer.hasData = true;
                answer.data.assign(bytes.begin() + 12, bytes.end());
                continue;
            }
            answer.code = readLittleEndian<std::uint16_t>(bytes, 6);
        }
        return answer;
    }
    Answer run(std::uint16_t operation, const std::vector<std::uint32_t>& parameters = {}) {
        const USBCode code = command(operation, parameters);
        return code == usb::success ? answer() : Answer{code, 0, false, {}};
    }
    Answer runOut(std::uint16_t operation, const std::vector<std::uint32_t>& parameters,
                  ByteView payload) {
        USBCode code = command(operation, parameters);
        if (code == usb::success)
            code = write(dataOf(operation, transactionID, payload));
        return code == usb::success ? answer() : Answer{code, 0, false, {}};
    }

    void openSession() {
        ASSERT_EQ(run(0x1002, {1}).code, 0x2001);
    }
    std::vector<std::uint32_t> handles(std::uint32_t storage) {
        const Bytes data = run(0x1007, {storage, 0, 0xFFFFFFFF}).data;
        std::vector<std::uint32_t> found;
        for (std::size_t at = 4; at + 4 <= data.size(); at += 4)
            found.push_back(readLittleEndian<std::uint32_t>(data, at));
        return found;
    }
    /// The dataset of SendObjectInfo.
    static Bytes objectInfo(std::u16string_view name, std::uint32_t size,
                            std::uint16_t format = 0x3000) {
        Bytes bytes(52);
        bytes[4] = static_cast<std::byte>(format);
        bytes[5] = static_cast<std::byte>(format >> 8);
        for (std::size_t i = 0; i < 4; ++i)
            bytes[8 + i] = static_cast<std::byte>(size >> (8 * i));
        bytes.push_back(static_cast<std::byte>(name.size() + 1));
        for (const char16_t unit : name)
            appendLittleEndian(bytes, static_cast<std::uint16_t>(unit));
        bytes.resize(bytes.size() + 5);
        return bytes;
    }

    std::uint32_t transactionID = 0; ///< of the last command

private:
    Bytes buffer_ = Bytes(1 << 20);
    std::unique_ptr<USBDevice> device_;
    std::unique_ptr<USBInterface> interface_;
};

/// One phone on a bus, and a raw host that has opened it.
class PhoneFixture : public testing::Test {
protected:
    static constexpr std::uint32_t storage = PluggedPhone::firstStorage;
    static constexpr std::uint32_t root = 0xFFFFFFFF;
    static constexpr std::uint16_t ok = 0x2001;

    [[nodiscard]] RawHost& host() {
        return host_;
    }
    /// Uploads a file into the root.
    RawHost::Answer upload(std::u16string_view name, ByteView content) {
        const auto info =
            host().runOut(0x100C, {storage, root},
                          RawHost::objectInfo(name, static_cast<std::uint32_t>(content.size())));
        return info.code == ok ? host().runOut(0x100D, {}, content) : info;
    }
    static QByteArray asArray(ByteView bytes) {
        return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
    }

    VirtualUSBBus bus_;
    PluggedPhone phone_{bus_};

private:
    RawHost host_{bus_, bus_.devices().at(0).id};
};

} // namespace tessary
