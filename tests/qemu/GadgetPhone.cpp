// The virtual phone as a gadget of the emulated machine: "GadgetPhone FOLDER FUNCTIONS" shows
// FOLDER as its storage through the FunctionFS that is mounted at FUNCTIONS, until it is killed.

#include "simulator/gadget/GadgetCable.h"
#include "simulator/mtp/VirtualAndroid.h"

#include <exception>
#include <iostream>

int main(int argc, char** argv) {
    using namespace tessary;
    if (argc != 3) {
        std::cerr << "GadgetPhone FOLDER FUNCTIONS\n";
        return 2;
    }
    try {
        VirtualAndroidConfig config;
        config.storages.resize(1);
        config.storages[0].folder = QString::fromLocal8Bit(argv[1]);
        config.storages[0].description = QStringLiteral("Virtual storage");
        VirtualUSBBus bus;
        VirtualAndroid phone(config);
        const auto device = bus.device(phone.plugInto(bus));
        if (device->open() != usb::success)
            throw std::runtime_error("the virtual phone does not open");
        const auto interfaces = device->interfaces(std::nullopt, std::nullopt);
        if (interfaces.at(0)->open() != usb::success)
            throw std::runtime_error("its interface does not open");
        GadgetCable(*interfaces[0], argv[2]).run();
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
