#include "FuzzTarget.h"
#include "FuzzedUSBDevice.h"
#include "mtp/client/MTPClient.h"
#include "mtp/objects/MTPFailures.h"

using namespace tessary;

namespace {

/// No more than this is set aside for reads, whatever a device promises.
constexpr std::uint64_t readBufferLimit = std::uint64_t{1} << 20;

template <typename Call>
void attempt(Call&& call) {
    try {
        call();
    } catch (const MTPFailure& error) {
        (void)phoneErrorOf(error, {});
    }
}

} // namespace

/// A whole session with a device that answers anything.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ScriptedUSBBus bus;
    const FuzzedUSBDevice device(bus, fuzzInput(data, size));
    {
        MTPClient client(bus, {0x18D1, 0x4EE1, {}, {}});
        std::vector<std::uint32_t> storages{1};
        std::vector<std::uint32_t> handles{2};
        attempt([&] { client.openSession(1); });
        attempt([&] { storages = client.getStorageIDs(); });
        storages.resize(1);
        attempt([&] { (void)client.getStorageInfo(storages[0]); });
        attempt([&] { (void)client.getBatteryLevel(); });
        attempt([&] { handles = client.getObjectHandles(storages[0], mtpRootHandle); });
        handles.resize(2);
        for (const std::uint32_t handle : handles) {
            MTPStreamOptions options;
            attempt([&] { options.expectedSize = client.getObjectInfo(handle).effectiveSize(); });
            std::uint64_t seen = 0;
            attempt([&] {
                const std::uint64_t received = client.getObject(
                    handle, [&](ByteView bytes) { seen += bytes.size(); }, options);
                require(received == seen);
            });
        }
        attempt([&] { client.createFolder(QStringLiteral("f"), mtpRootHandle, storages[0]); });
        attempt([&] {
            MTPObjectInfo object;
            object.storageID = storages[0];
            object.filename = QStringLiteral("n");
            client.sendObject(
                object, [](auto buffer) { return buffer.size(); }, 1500);
        });
        attempt([&] { client.renameObject(handles[0], QStringLiteral("m")); });
        attempt([&] { client.deleteObject(handles[0]); });
        attempt([&] { client.getObject(handles[1], [](ByteView) {}); });
        client.closeSession();
    }
    require(bus.readBufferLimit <= readBufferLimit);
    return 0;
}
