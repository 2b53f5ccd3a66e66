#include "core/ByteFormat.h"

#include <QLocale>

#include <array>
#include <cmath>

namespace tessary {

QString formatBytes(qint64 bytes) {
    // Decimals shown for bytes, kB, MB and everything above.
    static constexpr std::array<int, 4> decimals{0, 0, 1, 2};

    // 999 999 bytes are 1.0 MB and not 1000 kB: what rounds up to the next unit is shown in it.
    double value = std::abs(static_cast<double>(bytes));
    std::size_t unit = 0;
    double scale = 1;
    for (; unit < 6; ++unit) {
        const double step = std::pow(10.0, -decimals[std::min(unit, decimals.size() - 1)]);
        const double shown = std::round(value / scale / step) * step;
        if (shown < 1000)
            break;
        scale *= 1000;
    }
    if (value < scale)
        value = scale;
    const auto rounded = static_cast<qint64>(std::min(value, 9.2e18));
    return QLocale().formattedDataSize(bytes < 0 ? -rounded : rounded,
                                       decimals[std::min(unit, decimals.size() - 1)],
                                       QLocale::DataSizeSIFormat);
}

} // namespace tessary
