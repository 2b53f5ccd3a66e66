#include "FuzzTarget.h"
#include "adb/files/ADBFileBackend.h"
#include "adb/files/LsOutput.h"
#include "adb/server/ADBDevices.h"

using namespace tessary;

namespace {

void requireUsable(const FileItem& item) {
    require(!item.name.isEmpty() && item.name != u"." && item.name != u"..");
    require(!item.name.contains(u'/') && item.size >= 0);
}

} // namespace

/// What `adb` and the phone's shell print, given to every reader of such output.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray output(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString folder = QStringLiteral("/sdcard");

    for (const FileItem& item : parseLsOutput(output, folder))
        requireUsable(item);
    // A listing that counts as whole ends with its marker and holds no line that was not
    // understood.
    const QByteArray marker = "end-of-listing";
    if (const auto checked = parseCheckedLsOutput(output, folder, marker)) {
        require(output.contains(marker));
        for (const FileItem& item : checked->items)
            requireUsable(item);
    }
    if (const auto level = parseBatteryLevel(output))
        require(*level >= 0 && *level <= 100);
    for (const StorageVolume& volume : parseDiskFree(output))
        (void)volume.formattedCapacity();
    for (const ADBDevice& device : parseADBDevices(output))
        require(!device.serial.isEmpty() && !device.state.isEmpty());
    return 0;
}
