#include "simulator/content/DemoMedia.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace tessary {

namespace {

struct Colour {
    double red, green, blue;
};

struct Palette {
    Colour sky, horizon, hills, ground;
};

constexpr std::array palettes{
    Palette{{64, 128, 220}, {200, 225, 250}, {60, 110, 80}, {40, 80, 45}},
    Palette{{40, 30, 90}, {250, 140, 80}, {70, 40, 80}, {35, 20, 45}},
    Palette{{120, 170, 190}, {240, 240, 230}, {110, 120, 130}, {200, 210, 220}},
    Palette{{250, 190, 90}, {255, 235, 190}, {190, 120, 60}, {140, 80, 40}},
    Palette{{10, 15, 40}, {50, 60, 110}, {20, 25, 50}, {10, 12, 25}},
};

Colour mix(const Colour& from, const Colour& to, double part) {
    return {std::lerp(from.red, to.red, part), std::lerp(from.green, to.green, part),
            std::lerp(from.blue, to.blue, part)};
}

void appendBigEndian(QByteArray& bytes, quint32 value) {
    const quint32 swapped = qToBigEndian(value);
    bytes.append(reinterpret_cast<const char*>(&swapped), sizeof swapped);
}

template <typename T>
void appendLittle(QByteArray& bytes, T value) {
    const T swapped = qToLittleEndian(value);
    bytes.append(reinterpret_cast<const char*>(&swapped), sizeof swapped);
}

quint32 crc32(QByteArrayView bytes) {
    static const auto table = [] {
        std::array<quint32, 256> rows{};
        for (quint32 n = 0; n < 256; ++n) {
            quint32 row = n;
            for (int bit = 0; bit < 8; ++bit)
                row = (row & 1) != 0 ? 0xEDB88320U ^ (row >> 1) : row >> 1;
            rows[n] = row;
        }
        return rows;
    }();
    quint32 crc = 0xFFFFFFFFU;
    for (const char byte : bytes)
        crc = table[(crc ^ static_cast<quint8>(byte)) & 0xFF] ^ (crc >> 8);
    return ~crc;
}

/// A PNG chunk: length, type, data, checksum of type and data.
void appendChunk(QByteArray& png, const char* type, const QByteArray& data) {
    appendBigEndian(png, static_cast<quint32>(data.size()));
    const QByteArray body = QByteArray(type) + data;
    png.append(body);
    appendBigEndian(png, crc32(body));
}

Colour colourAt(const Palette& palette, double x, double y, std::uint32_t seed) {
    const double phase = seed % 628 / 100.0;
    const double ridge =
        0.55 + 0.08 * std::sin(7 * x + phase) + 0.04 * std::sin(19 * x + 2 * phase);
    const double shore = 0.8 + 0.03 * std::sin(11 * x + phase);
    if (y > shore)
        return mix(palette.ground, palette.hills, (1 - y) / (1 - shore) / 2);
    if (y > ridge)
        return mix(palette.hills, palette.ground, (y - ridge) / (shore - ridge));
    const double sunX = 0.15 + seed % 70 / 100.0;
    const double toSun = std::hypot((x - sunX) * 1.4, y - 0.25);
    const Colour sky = mix(palette.sky, palette.horizon, y / ridge);
    return toSun < 0.07 ? mix({255, 250, 225}, sky, toSun / 0.14) : sky;
}

} // namespace

QByteArray DemoMedia::picture(int width, int height, std::uint32_t seed) {
    constexpr int block = 4; // drawn coarsely: quick, and it compresses well
    const Palette& palette = palettes[seed % palettes.size()];
    QByteArray rows;
    rows.reserve(qsizetype{height} * (3 * width + 1));
    for (int y = 0; y < height; ++y) {
        if (y % block != 0) {
            rows.append('\2'); // as the row above
            rows.append(3 * width, '\0');
            continue;
        }
        rows.append('\0'); // no filter
        for (int x = 0; x < width; x += block) {
            const Colour colour = colourAt(palette, static_cast<double>(x) / width,
                                           static_cast<double>(y) / height, seed);
            const std::array pixel{static_cast<char>(colour.red), static_cast<char>(colour.green),
                                   static_cast<char>(colour.blue)};
            for (int i = 0; i < std::min(block, width - x); ++i)
                rows.append(pixel.data(), pixel.size());
        }
    }
    QByteArray header;
    appendBigEndian(header, static_cast<quint32>(width));
    appendBigEndian(header, static_cast<quint32>(height));
    header.append("\x08\x02\x00\x00\x00", 5); // 8 bits, true colour, no interlace
    constexpr int fast = 1;
    constexpr qsizetype lengthField = 4; // that qCompress puts before the zlib stream
    QByteArray png("\x89PNG\r\n\x1a\n", 8);
    appendChunk(png, "IHDR", header);
    appendChunk(png, "IDAT", qCompress(rows, fast).mid(lengthField));
    appendChunk(png, "IEND", {});
    return png;
}

QByteArray DemoMedia::melody(int tenthsOfSeconds, std::uint32_t seed) {
    constexpr int rate = 22050;
    constexpr std::array scale{261.63, 293.66, 329.63, 392.00, 440.00, 523.25};
    const int count = tenthsOfSeconds * rate / 10;
    QByteArray samples;
    samples.reserve(qsizetype{2} * count);
    const int noteLength = rate / 4;
    for (int i = 0; i < count; ++i) {
        const auto note = static_cast<std::uint32_t>(i / noteLength);
        const double tone = scale[(seed * 7 + note * (seed % 5 + 1) + note * note) % scale.size()];
        const double inNote = static_cast<double>(i % noteLength) / noteLength;
        const double angle = 2 * std::numbers::pi * tone * i / rate;
        appendLittle(samples, static_cast<qint16>(9000 * (1 - inNote) * std::sin(angle)));
    }
    QByteArray wav("RIFF");
    appendLittle(wav, static_cast<quint32>(36 + samples.size()));
    wav.append("WAVEfmt ");
    appendLittle(wav, quint32{16});
    appendLittle(wav, quint16{1}); // linear PCM
    appendLittle(wav, quint16{1}); // channels
    appendLittle(wav, quint32{rate});
    appendLittle(wav, quint32{2 * rate});
    appendLittle(wav, quint16{2});
    appendLittle(wav, quint16{16});
    wav.append("data");
    appendLittle(wav, static_cast<quint32>(samples.size()));
    return wav + samples;
}

QByteArray DemoMedia::film() {
    return QByteArray::fromBase64(
        "AAAAFGZ0eXBxdCAgAAACAHF0ICAAAAAId2lkZQAAAvltZGF0AAAC7WWIhAr//YfYnqZRXMmXFE5gmWDeIji+sA"
        "AAAwAHdvsh64FKXV0C1WYxGVxsxURF4AC3OWitgAAGpTODG6Kzre21UzrXbFerTsoD29XiVGuycXjkZ9ZI8Mw6"
        "MjEwrlOG/pHbAHUbxSoygH70H/E/d4ynTJqd0ghgM6Zrzznswt8dvgBtGObALrIQYjGWl4McvOUOqagiemhtgL"
        "MDh6RHgemIGcVXnzc3i7a5YAhOwlpctPZ5ordJUUnspenDimAQnuo7qoZcAawoX+k1xL73sqKOM8YxLFY3HZn6"
        "Pd5RT6HkKZeKTG75WFe9CuGPlzY3QkeCWCMJlljSKh1meGJM/oL8ZQTsOSnP5yguL1O+3IC0RPkNH30nEc90Aw"
        "Do0xQXQ2yUaf55UVh+WtJNPacWppdmRr7/kfa6cp2cgcJzWbG1Wn1n7mhreUPcd+rG3OsTdrneu7sA7CSote1t"
        "p+b4VGqcstjEhKRowUSN9bvmRPhs6SIrf7gThnw1d4jkNX8Bhy0tC2/eC+le31REZ5quHNwRAXMWpRpRwrlslp"
        "FwrxL3zGb79EHwP3cNxYvQKb/Bvzx5PCTWPIDHSOIJVRRi20OwNpY+9e7H0W9KpEPuw91IIxzRgF3imxVs5IGa"
        "JWLitsuiOXmd+9ZV3oQ5Bbl/TPfIHlFdxQyrWi4Xa4NbvrEepOrrvTrozxfKqHhYPIp/b6nP9Hv/Oz0yq3zEjo"
        "w161KrxKReEEgwvzB8mW2gv5+RXSgxQhnraNh9rehfpnWIlqogzo2dnd8FpzKJaACrDH963I111OgAABIu8kqj"
        "b+View49QmRWxvNFhof2VoPFlzY2HZjsrNwC7Z8HbB4F8Awx8B12Vp4m3jOwQk31Ifecvv6hV4axQMgWNm2/Ev"
        "GjLQlnOiPqoKoN5x1ZlltCEpVVlhqZGy0N2k5a0cCJ3kQjzIX0781SJnpaaqqpPuNNWSmN48s2cR941Cuklosh"
        "IOnoxyUyztKPiZWgIzFDAAACuG1vb3YAAABsbXZoZAAAAAAAAAAAAAAAAAAAA+gAAAAoAAEAAAEAAAAAAAAAAA"
        "AAAAABAAAAAAAAAAAAAAAAAAAAAQAAAAAAAAAAAAAAAAAAQAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA"
        "AAIAAAJEdHJhawAAAFx0a2hkAAAAAwAAAAAAAAAAAAAAAQAAAAAAAAAoAAAAAAAAAAAAAAAAAAAAAAABAAAAAA"
        "AAAAAAAAAAAAAAAQAAAAAAAAAAAAAAAAAAQAAAAAFAAAAA8AAAAAAAJGVkdHMAAAAcZWxzdAAAAAAAAAABAAAA"
        "KAAAAAAAAQAAAAABvG1kaWEAAAAgbWRoZAAAAAAAAAAAAAAAAAAAMgAAAAIAf/8AAAAAAC1oZGxyAAAAAG1obH"
        "J2aWRlAAAAAAAAAAAAAAAADFZpZGVvSGFuZGxlcgAAAWdtaW5mAAAAFHZtaGQAAAABAAAAAAAAAAAAAAAsaGRs"
        "cgAAAABkaGxydXJsIAAAAAAAAAAAAAAAAAtEYXRhSGFuZGxlcgAAACRkaW5mAAAAHGRyZWYAAAAAAAAAAQAAAA"
        "x1cmwgAAAAAQAAAPtzdGJsAAAAl3N0c2QAAAAAAAAAAQAAAIdhdmMxAAAAAAAAAAEAAAAARkZNUAAAAgAAAAIA"
        "AUAA8ABIAAAASAAAAAAAAAABDExhdmMgbGlieDI2NAAAAAAAAAAAAAAAAAAAAAAAAAAAGP//AAAAMWF2Y0MBZB"
        "AN/+EAFGdkEA2suCg/QgAAAwACAAADAGQIAQAGaO4Cksiw/fj4AAAAABhzdHRzAAAAAAAAAAEAAAABAAACAAAA"
        "ABxzdHNjAAAAAAAAAAEAAAABAAAAAQAAAAEAAAAUc3RzegAAAAAAAALxAAAAAQAAABRzdGNvAAAAAAAAAAEAAA"
        "Ak");
}

} // namespace tessary
