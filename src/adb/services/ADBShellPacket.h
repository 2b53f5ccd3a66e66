#pragma once

#include "adb/services/ADBReader.h"

#include <QByteArray>

#include <cstdint>

namespace tessary {

/// The front of a packet of the shell service's version 2: u8 kind, u32 length. The content
/// follows.
struct ADBShellPacket {
    static constexpr auto standardInput = std::byte{0};
    static constexpr auto standardOutput = std::byte{1};
    static constexpr auto standardError = std::byte{2};
    static constexpr auto exitStatus = std::byte{3};
    static constexpr auto endOfInput = std::byte{4}; ///< to the phone

    static constexpr std::size_t frontSize = 5;

    std::byte kind{};
    std::uint32_t length = 0; ///< as the phone claims

    [[nodiscard]] static ADBShellPacket take(ADBReader& reader, const Wait& wait);
    /// The front of a packet with so many bytes.
    static void appendFront(Bytes& bytes, std::byte kind, std::size_t length);
    /// A whole packet of standard input.
    [[nodiscard]] static Bytes input(const QByteArray& text);
};

/// What a phone sends that means nothing here, an empty packet too, is passed over; so much of it
/// that it may never end is ADBError::nonsense.
class ADBPassedOver {
public:
    void add(std::size_t bytes) {
        bytes_ += bytes + 1;
        if (bytes_ > most)
            throwEndless();
    }

private:
    static constexpr std::size_t most = std::size_t{1} << 20;

    [[noreturn]] static void throwEndless();

    std::size_t bytes_ = 0;
};

/// Adds what a command prints; more than `most` bytes are ADBError::nonsense.
void appendOutput(QByteArray& to, ByteView bytes, qsizetype most);

} // namespace tessary
