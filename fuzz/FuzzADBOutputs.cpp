#include "FuzzTarget.h"
#include "adb/files/ADBStorages.h"
#include "adb/server/ADBDevices.h"

using namespace tessary;

/// What the adb server and the phone's shell print, given to every reader of such output.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray output(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (const auto level = batteryLevelIn(output))
        require(*level >= 0 && *level <= 100);
    constexpr std::uint64_t limit = std::uint64_t{1} << 62;
    for (const ADBSpace& space : spacesIn(output))
        require(space.free < limit && space.total < limit);
    for (const ADBDevice& device : parseADBDevices(output))
        require(!device.serial.isEmpty() && !device.state.isEmpty());
    return 0;
}
