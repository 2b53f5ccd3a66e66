#pragma once

#include "core/LittleEndian.h"
#include "phones/VirtualAndroid.h"
#include "phones/VirtualUsbPort.h"

#include <gtest/gtest.h>

namespace tessary {

/// The host's side of a virtual phone, down to the bytes: no codec and no transport in between.
class RawHost {
public:
    static constexpr UsbTimeouts soon{std::chrono::seconds(5), std::chrono::seconds(5)};
    static constexpr UsbTimeouts quiet{std::chrono::milliseconds(60),
                                       std::chrono::milliseconds(60)};

    struct Answer {
        UsbCode usb = usb::success; ///< of the first pipe call that failed
        std::uint16_t code = 0;     ///< 0 without a response
        std::uint32_t transactionID = 0;
        std::vector<std::uint32_t> parameters;
        bool hasData = false;
        Bytes data; ///< payload of the data phase
    };

    RawHost(UsbBus& bus, std::uint64_t id) : device_(bus.device(id)) {
        EXPECT_EQ(device_->open(), usb::success);
        auto found = device_->interfaces(6, 1);
        interface_ = std::move(found.at(0));
        EXPECT_EQ(interface_->open(), usb::success);
    }

    [[nodiscard]] UsbInterface& pipes() {
        return *interface_;
    }

    UsbCode write(ByteView bytes) {
        std::size_t transferred = 0;
        return interface_->writePipeTO(VirtualUsbPort::outPipe, bytes, transferred, soon);
    }

    /// One transfer, or as much of it as fits.
    UsbCode read(Bytes& bytes, std::size_t most = 1 << 20, UsbTimeouts timeouts = soon) {
        std::size_t transferred = 0;
        const std::span<std::byte> buffer = std::span(buffer_).first(most);
        const UsbCode code =
            interface_->readPipeTO(VirtualUsbPort::inPipe, buffer, transferred, timeouts);
        bytes.assign(buffer.begin(), buffer.begin() + static_cast<std::ptrdiff_t>(transferred));
        return code;
    }

    /// The next transfer when one comes soon; a test fails without it.
    Bytes transfer() {
        Bytes bytes;
        EXPECT_EQ(read(bytes), usb::success);
        return bytes;
    }
    [[nodiscard]] bool isQuiet() {
        Bytes bytes;
        return read(bytes, 1 << 20, quiet) == usb::timeout && bytes.empty();
    }

    static Bytes container(std::uint16_t type, std::uint16_t code, std::uint32_t transactionID,
                           ByteView payload, std::optional<std::uint32_t> length = {}) {
        Bytes bytes;
        appendLittleEndian(bytes, length.value_or(static_cast<std::uint32_t>(12 + payload.size())));
        appendLittleEndian(bytes, type);
        appendLittleEndian(bytes, code);
        appendLittleEndian(bytes, transactionID);
        bytes.insert(bytes.end(), payload.begin(), payload.end());
        return bytes;
    }
    static Bytes words(std::initializer_list<std::uint32_t> values) {
        Bytes bytes;
        for (const std::uint32_t value : values)
            appendLittleEndian(bytes, value);
        return bytes;
    }

    UsbCode command(std::uint16_t operation, std::initializer_list<std::uint32_t> parameters = {}) {
        return write(container(1, operation, ++transactionID, words(parameters)));
    }

    /// Reads containers, each a transfer of its own, until a response.
    Answer answer() {
        Answer answer;
        Bytes bytes;
        while (answer.code == 0) {
            answer.usb = read(bytes, buffer_.size());
            if (answer.usb != usb::success || bytes.size() < 12)
                return answer;
            const ByteView payload = ByteView(bytes).subspan(12);
            if (readLittleEndian<std::uint16_t>(bytes, 4) == 2) {
                answer.hasData = true;
                answer.data.assign(payload.begin(), payload.end());
                continue;
            }
            answer.code = readLittleEndian<std::uint16_t>(bytes, 6);
            answer.transactionID = readLittleEndian<std::uint32_t>(bytes, 8);
            for (std::size_t at = 0; at + 4 <= payload.size(); at += 4)
                answer.parameters.push_back(readLittleEndian<std::uint32_t>(payload, at));
        }
        return answer;
    }

    Answer run(std::uint16_t operation, std::initializer_list<std::uint32_t> parameters = {}) {
        const UsbCode code = command(operation, parameters);
        return code == usb::success ? answer() : Answer{code, 0, 0, {}, false, {}};
    }
    Answer runOut(std::uint16_t operation, std::initializer_list<std::uint32_t> parameters,
                  ByteView payload) {
        UsbCode code = command(operation, parameters);
        if (code == usb::success)
            code = write(container(2, operation, transactionID, payload));
        return code == usb::success ? answer() : Answer{code, 0, 0, {}, false, {}};
    }

    void openSession() {
        ASSERT_EQ(run(0x1002, {1}).code, 0x2001);
    }

    std::vector<std::uint32_t> handles(std::uint32_t storage, std::uint32_t parent = 0xFFFFFFFF) {
        const Bytes data = run(0x1007, {storage, 0, parent}).data;
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

    UsbCode control(std::uint8_t type, std::uint8_t request, Bytes& data) {
        std::size_t transferred = 0;
        const UsbCode code = interface_->controlRequest({type, request, 0, 0}, data, transferred,
                                                        std::chrono::seconds(1));
        data.resize(transferred);
        return code;
    }
    UsbCode cancel(std::uint32_t transaction) {
        Bytes data{std::byte{0x01}, std::byte{0x40}};
        appendLittleEndian(data, transaction);
        return control(0x21, 0x64, data);
    }
    /// 0x2001, 0x2019, or 0 when the request is refused.
    std::uint16_t status() {
        Bytes data(4);
        return control(0xA1, 0x67, data) == usb::success ? readLittleEndian<std::uint16_t>(data, 2)
                                                         : std::uint16_t{0};
    }

    std::uint32_t transactionID = 0; ///< of the last command

private:
    Bytes buffer_ = Bytes(16 << 20);
    std::unique_ptr<UsbDevice> device_;
    std::unique_ptr<UsbInterface> interface_;
};

/// Bytes in which each position can be told from its neighbours.
inline Bytes patternBytes(std::size_t size) {
    Bytes bytes(size);
    for (std::size_t i = 0; i < size; ++i)
        bytes[i] = static_cast<std::byte>(i * 7 + (i >> 8));
    return bytes;
}

inline QByteArray asArray(ByteView bytes) {
    return QByteArray(reinterpret_cast<const char*>(bytes.data()),
                      static_cast<qsizetype>(bytes.size()));
}

} // namespace tessary
