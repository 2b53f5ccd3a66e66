#include "FuzzTarget.h"
#include "mtp/protocol/MTPPacketCodec.h"

using namespace tessary;

/// A date as UTF-8.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Wire strings have at most 254 units.
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size))
            .left(254);
    const auto date = MTPPacketCodec::parseMTPDate(text);
    if (!date)
        return 0;
    require(date->isValid());
    // Whole seconds survive, but for years that the four digits cannot hold and for the hour that
    // exists twice.
    const QDateTime local = date->toLocalTime();
    const auto again = MTPPacketCodec::parseMTPDate(MTPPacketCodec::formatMTPDate(*date));
    if (local.date().year() >= 1 && local.date().year() <= 9999)
        require(again && std::abs(again->secsTo(*date)) <= 3600);
    return 0;
}
