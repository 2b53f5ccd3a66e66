#include "base/text/ByteFormat.h"

#include <QCoreApplication>
#include <QLocale>

#include <array>

namespace tessary {

namespace {

struct Unit {
    quint64 size; ///< in bytes
    int decimals;
};

constexpr std::array<Unit, 7> units{{{1, 0},
                                     {1'000, 0},
                                     {1'000'000, 1},
                                     {1'000'000'000, 2},
                                     {1'000'000'000'000, 2},
                                     {1'000'000'000'000'000, 2},
                                     {1'000'000'000'000'000'000, 2}}};

/// `bytes` rounded to the last decimal that the unit shows.
quint64 rounded(quint64 bytes, const Unit& unit) {
    quint64 step = unit.size;
    for (int i = 0; i < unit.decimals; ++i)
        step /= 10;
    return (bytes + step / 2) / step * step;
}

} // namespace

QString formatBytes(qint64 bytes) {
    const quint64 magnitude =
        bytes < 0 ? 0 - static_cast<quint64>(bytes) : static_cast<quint64>(bytes);
    // What rounds up to the next unit is shown in it: 999 999 bytes are 1.0 MB and not 1000 kB.
    auto unit = units.begin();
    while (unit + 1 != units.end() && rounded(magnitude, *unit) >= (unit + 1)->size)
        ++unit;
    const auto shown = static_cast<qint64>(rounded(magnitude, *unit));
    // Qt knows one word for one byte and for many.
    if (bytes == 1)
        return QCoreApplication::translate("ByteFormat", "1 byte");
    return QLocale().formattedDataSize(bytes < 0 ? -shown : shown, unit->decimals,
                                       QLocale::DataSizeSIFormat);
}

} // namespace tessary
