#pragma once

#include <QByteArray>

#include <cstdint>

namespace tessary {

/// Generated pictures and sounds. Pure: the same bytes for the same arguments.
class DemoMedia {
public:
    /// A PNG picture of a landscape in colours that `seed` chooses. Sizes in pixels.
    [[nodiscard]] static QByteArray picture(int width, int height, std::uint32_t seed);
    /// A WAV file (16 bits, one channel, 22,050 Hz) with a melody that `seed` chooses.
    [[nodiscard]] static QByteArray melody(int tenthsOfSeconds, std::uint32_t seed);
    /// A QuickTime film of one picture of 320 by 240 pixels, in H.264, with its index at its end.
    [[nodiscard]] static QByteArray film();
};

} // namespace tessary
