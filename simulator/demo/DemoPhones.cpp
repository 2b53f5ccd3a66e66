#include "simulator/demo/DemoPhones.h"

#include "base/threads/ThreadName.h"
#include "simulator/content/DemoContent.h"
#include "simulator/demo/DemoNetwork.h"

#include <QDir>

#include <stdexcept>

namespace tessary {

using namespace Qt::StringLiterals;

DemoPhones::DemoPhones(const QString& folder, double megabytesPerSecond, const DemoMakers& makers,
                       PluggedIn when) {
    if (folder.isEmpty())
        disk_.emplace(PrivateFolder(PrivateFolder::Place::cache, u"demo"_s));
    const QString disk = disk_ ? disk_->path() : folder;
    const bool isNew = !QDir(disk).exists(u"pixel"_s);

    ADBDConfig debugged;
    debugged.serialNumber = debuggedSerial;
    debugged.folder = QDir(disk).filePath(u"pixel"_s);
    debugged.megabytesPerSecond = megabytesPerSecond;
    debugged.cards = {{.folder = QDir(disk).filePath(u"pixel-card"_s)}};
    adbd_ = std::make_unique<VirtualADBD>(std::move(debugged));

    try {
        iPhones_ = std::make_unique<DemoIPhones>(own_.path() + u"/mux"_s);
        iPhones_->mux().useInThisProcess();
    } catch (const std::runtime_error& error) {
        qWarning("No virtual iPhones: %s", error.what());
    }

    if (when == PluggedIn::atOnce) {
        plugIn(disk, isNew, megabytesPerSecond, makers, {});
        return;
    }
    pluggingIn_ = std::jthread([=, this](const std::stop_token& stop) {
        nameCurrentThread("demo-content");
        plugIn(disk, isNew, megabytesPerSecond, makers, stop);
    });
}

DemoPhones::~DemoPhones() {
    pluggingIn_.request_stop(); // which the thread that starts adb waits for
}

void DemoPhones::plugIn(const QString& folder, bool isNew, double megabytesPerSecond,
                        const DemoMakers& makers, const std::stop_token& stop) {
    const QDir disk(folder);
    VirtualAndroidConfig first;
    first.serialNumber = debuggedSerial;
    first.storages.resize(2);
    first.storages[0].folder = disk.filePath(u"pixel"_s);
    first.storages[1].folder = disk.filePath(u"pixel-card"_s);
    first.storages[1].description = u"SD card"_s;
    first.storages[1].volumeIdentifier = u"DEMO-CARD"_s;
    first.storages[1].removable = true;
    first.storages[1].capacity = std::uint64_t{32} << 30;
    first.storages[1].free = std::uint64_t{21} << 30;

    VirtualAndroidConfig second;
    second.vendorID = 0x04E8;
    second.productID = 0x6860;
    second.vendorName = u"SAMSUNG"_s;
    second.productName = u"Galaxy A54"_s;
    second.serialNumber = u"DEMO0002"_s;
    second.location = u"1-2"_s;
    second.battery = 35;
    second.storages.resize(1);
    second.storages[0].folder = disk.filePath(u"galaxy"_s);
    second.storages[0].free = std::uint64_t{9} << 30;

    if (isNew) {
        (void)DemoContent::fillPhone(first.storages[0].folder, stop);
        (void)DemoContent::fillCard(first.storages[1].folder, stop);
        (void)DemoContent::fillCard(second.storages[0].folder, stop);
    }
    for (VirtualAndroidConfig* config : {&first, &second}) {
        config->megabytesPerSecond = megabytesPerSecond;
        androids_.emplace_back(makers.android(std::move(*config)))->plugInto(bus_);
    }

    if (iPhones_)
        iPhones_->plugIn(folder, megabytesPerSecond, makers.iPhone, stop);
    isPluggedIn_.set_value();
}

QString DemoPhones::ownFolder(const QString& name) const {
    QDir(own_.path()).mkdir(name);
    return own_.path() + QLatin1Char('/') + name;
}

void DemoPhones::startADB(const std::optional<QString>& executable) {
    try {
        adbd_->start();
    } catch (const std::runtime_error& error) {
        qWarning("The virtual phone is not debugged: %s", error.what());
        return;
    }
    startsADB_ = true;
    hasADBServer_ = executable.has_value();
    if (!hasADBServer_)
        return;
    adbServer_.start(*executable);
    adbStart_ = std::jthread([this](const std::stop_token& stop) {
        nameCurrentThread("adb-start");
        try {
            pluggedIn_.wait();
            adbServer_.awaitStart(stop);
            adbServer_.connect(adbd_->address(), stop);
            (void)adbServer_.awaitPhone(adbd_->address(), stop);
        } catch (const std::runtime_error& error) {
            qWarning("The virtual phone is not debugged: %s", error.what());
        }
    });
}

std::shared_ptr<ServiceNetwork> DemoPhones::network() {
    return std::make_shared<DemoNetwork>([this]() -> std::optional<ServiceAddress> {
        if (adbd_->port() == 0)
            return std::nullopt;
        return ServiceAddress{u"127.0.0.1"_s, adbd_->port()};
    });
}

void DemoPhones::awaitADB() {
    if (adbStart_.joinable())
        adbStart_.join();
}

} // namespace tessary
