#include "base/values/LittleEndian.h"
#include "mtp/protocol/MTPPacketCodec.h"

#include <benchmark/benchmark.h>

namespace tessary {
namespace {

MTPObjectInfo photo() {
    MTPObjectInfo info;
    info.storageID = 0x00010001;
    info.objectFormat = MTPObjectFormat{0x3801};
    info.compressedSize = 3'456'789;
    info.parentObject = 7;
    info.filename = QStringLiteral("IMG_20240131_2359.jpg");
    return info;
}

/// A dataset as phones send it: encodeObjectInfo writes no dates.
Bytes datasetWithDates() {
    Bytes bytes = MTPPacketCodec::encodeObjectInfo(photo());
    bytes.resize(bytes.size() - 3);
    for (const char* text : {"20240131T235959", "20240201T000102", ""}) {
        const Bytes encoded = MTPPacketCodec::encodeString(QString::fromLatin1(text));
        bytes.insert(bytes.end(), encoded.begin(), encoded.end());
    }
    return bytes;
}

void decodeHeader(benchmark::State& state) {
    const Bytes bytes = MTPPacketCodec::encodeHeader({512, MTPContainerType::data, 0x1008, 42});
    for (auto _ : state)
        benchmark::DoNotOptimize(MTPPacketCodec::decodeHeader(bytes));
}

void encodeHeader(benchmark::State& state) {
    const MTPContainerHeader header{512, MTPContainerType::data, 0x1008, 42};
    for (auto _ : state)
        benchmark::DoNotOptimize(MTPPacketCodec::encodeHeader(header));
}

void decodeObjectInfo(benchmark::State& state) {
    const Bytes bytes = datasetWithDates();
    for (auto _ : state)
        benchmark::DoNotOptimize(MTPPacketCodec::decodeObjectInfo(bytes, 42));
}

void encodeObjectInfo(benchmark::State& state) {
    const MTPObjectInfo info = photo();
    for (auto _ : state)
        benchmark::DoNotOptimize(MTPPacketCodec::encodeObjectInfo(info));
}

void parseDate(benchmark::State& state) {
    const QString text = QStringLiteral("20240131T235959");
    for (auto _ : state)
        benchmark::DoNotOptimize(MTPPacketCodec::parseMTPDate(text));
}

void decodeTenThousandHandles(benchmark::State& state) {
    Bytes bytes;
    appendLittleEndian(bytes, std::uint32_t{10'000});
    for (std::uint32_t handle = 1; handle <= 10'000; ++handle)
        appendLittleEndian(bytes, handle);
    for (auto _ : state)
        benchmark::DoNotOptimize(MTPPacketCodec::decodeArray(bytes));
}

BENCHMARK(decodeHeader);
BENCHMARK(encodeHeader);
BENCHMARK(decodeObjectInfo);
BENCHMARK(encodeObjectInfo);
BENCHMARK(parseDate);
BENCHMARK(decodeTenThousandHandles);

} // namespace
} // namespace tessary
