#include "support/MTPObjects.h"
#include "support/PluggedPhone.h"

#include <benchmark/benchmark.h>

// How often each byte of an object is copied on our side of the USB calls:
//
//   getObject to a sink       never: the sink sees the buffer that the platform has filled
//                             (but twice for what shares a read of 4096 bytes with the header)
//   getObject in memory       once, and as often again as the result has to grow
//   sendObject from a source  never: the source fills the buffer that the platform sends
//                             (but once for the first 256 KiB)
//   sendObject from memory    once
//
// The virtual phone adds its own: it reads and writes files, and a write to its pipe is a copy.
// "CPU" is the time of the calling thread, which is our side.

namespace tessary {
namespace {

constexpr std::int64_t objectSize = std::int64_t{256} << 20;
constexpr std::uint32_t storage = PluggedPhone::firstStorage;

struct Session {
    Session() {
        client.openSession(1);
    }
    std::uint32_t find(const QString& name) {
        for (const std::uint32_t handle : client.getObjectHandles(storage, mtpRootHandle))
            if (client.getObjectInfo(handle).filename == name)
                return handle;
        return 0;
    }

    VirtualUSBBus bus;
    PluggedPhone phone{bus};
    MTPClient client{bus, {phone.info.vendorId, phone.info.productId, {}, {}}};
};

void downloadToSink(benchmark::State& state) {
    Session session;
    session.phone.disk.writeSparse(QStringLiteral("0/big"), objectSize);
    const std::uint32_t handle = session.find(QStringLiteral("big"));
    for (auto _ : state)
        session.client.getObject(handle,
                                 [](ByteView bytes) { benchmark::DoNotOptimize(bytes.data()); });
    state.SetBytesProcessed(state.iterations() * objectSize);
}

void downloadToMemory(benchmark::State& state) {
    Session session;
    session.phone.disk.writeSparse(QStringLiteral("0/big"), objectSize);
    const std::uint32_t handle = session.find(QStringLiteral("big"));
    for (auto _ : state)
        benchmark::DoNotOptimize(contentOf(session.client, handle));
    state.SetBytesProcessed(state.iterations() * objectSize);
}

void uploadFromMemory(benchmark::State& state) {
    Session session;
    const Bytes content(static_cast<std::size_t>(objectSize));
    for (auto _ : state) {
        upload(session.client, storage, QStringLiteral("new"), content);
        state.PauseTiming();
        session.client.deleteObject(session.find(QStringLiteral("new")));
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * objectSize);
}

void listTenThousandObjects(benchmark::State& state) {
    constexpr int objects = 10'000;
    Session session;
    for (int i = 0; i < objects; ++i)
        session.phone.write(QStringLiteral("IMG_%1.jpg").arg(i, 5), {});
    session.phone.android.clearRequestLog();
    for (auto _ : state)
        for (const std::uint32_t handle : session.client.getObjectHandles(storage, mtpRootHandle))
            benchmark::DoNotOptimize(session.client.getObjectInfo(handle));
    state.counters["requests"] =
        benchmark::Counter(static_cast<double>(session.phone.android.requestCount()),
                           benchmark::Counter::kAvgIterations);
    state.SetItemsProcessed(state.iterations() * objects);
}

BENCHMARK(downloadToSink)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(downloadToMemory)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(uploadFromMemory)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(listTenThousandObjects)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace tessary
