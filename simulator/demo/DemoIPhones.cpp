#include "simulator/demo/DemoIPhones.h"

#include "simulator/content/DemoContent.h"

#include <QDir>

namespace tessary {

using namespace Qt::StringLiterals;

namespace {

VirtualIPhoneApp app(const QString& bundleID, const QString& name, const QString& folder) {
    VirtualIPhoneApp made;
    made.bundleID = bundleID;
    made.displayName = made.name = name;
    made.folder = folder;
    return made;
}

/// One that keeps its files to itself.
VirtualIPhoneApp closedApp(const QString& bundleID, const QString& name, const QString& folder) {
    VirtualIPhoneApp made = app(bundleID, name, folder);
    made.sharesFiles = false;
    return made;
}

} // namespace

DemoIPhones::DemoIPhones(const QString& socketPath) : mux_(socketPath) {}

void DemoIPhones::plugIn(const QString& folder, double megabytesPerSecond, const Maker& maker,
                         const std::stop_token& stop) {
    const QDir disk(folder);
    const bool isNew = !disk.exists(u"iphone"_s);
    const auto container = [&disk](const QString& name) { return disk.filePath(name); };

    VirtualIPhoneConfig phone;
    phone.udid = u"00008110-DEMO000000000003"_s;
    phone.name = u"Ada’s iPhone"_s;
    phone.productType = u"iPhone14,5"_s;
    phone.battery = 64;
    phone.mediaFolder = container(u"iphone/media"_s);
    phone.apps = {app(u"com.example.notes"_s, u"Field Notes"_s, container(u"iphone/notes"_s)),
                  app(u"com.example.pictures"_s, u"Sketchbook"_s, container(u"iphone/pictures"_s)),
                  app(u"com.example.recorder"_s, u"Recorder"_s, container(u"iphone/recorder"_s)),
                  closedApp(u"com.example.bank"_s, u"Savings"_s, container(u"iphone/bank"_s))};

    VirtualIPhoneConfig tablet;
    tablet.udid = u"00008103-DEMO000000000004"_s;
    tablet.name = u"Studio iPad"_s;
    tablet.productType = u"iPad13,16"_s;
    tablet.capacity = std::uint64_t{256} * 1'000'000'000;
    tablet.free = std::uint64_t{31} * 1'000'000'000;
    tablet.battery = 91;
    tablet.apps = {app(u"com.example.pictures"_s, u"Sketchbook"_s, container(u"ipad/pictures"_s)),
                   app(u"com.example.scores"_s, u"Scores"_s, container(u"ipad/scores"_s))};

    if (isNew) {
        const QString documents = u"/Documents"_s;
        (void)DemoContent::fillNotes(phone.apps[0].folder + documents, stop);
        (void)DemoContent::fillPictures(phone.apps[1].folder + documents, stop);
        (void)DemoContent::fillMusic(phone.apps[2].folder + documents, stop);
        (void)DemoContent::fillCamera(phone.mediaFolder, stop);
        (void)DemoContent::fillPictures(tablet.apps[0].folder + documents, stop);
    }
    for (VirtualIPhoneConfig* config : {&phone, &tablet}) {
        config->megabytesPerSecond = megabytesPerSecond;
        phones_.emplace_back(maker(std::move(*config)))->plugInto(mux_);
    }
}

DemoIPhones::~DemoIPhones() {
    phones_.clear();
}

} // namespace tessary
