#include "FuzzedUSBDevice.h"
#include "PhoneErrand.h"
#include "mtp/files/MTPFileSystem.h"

using namespace tessary;

/// A device that answers anything, through the file system, the copy and the local disk.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ScriptedUSBBus bus;
    // Without the pipe for events, which a thread of its own would read.
    bus.attached.front().interfaces.front().pipes.resize(2);
    const FuzzedUSBDevice device(bus, fuzzInput(data, size));
    PhoneIdentity phone;
    phone.udid = QStringLiteral("FUZZ");
    phone.vendorId = 0x18D1;
    phone.productId = 0x4EE1;
    phone.usbLocation = QStringLiteral("1-1");
    PhoneErrand(std::make_shared<MTPFileSystem>(bus, phone, std::make_shared<PhoneQueue>()))
        .run(QStringLiteral("/"));
    return 0;
}
