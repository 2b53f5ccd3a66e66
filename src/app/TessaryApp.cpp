#include "app/TessaryApp.h"

#include "core/Background.h"

namespace tessary {

namespace {

using namespace std::chrono_literals;

constexpr auto shutDownLimit = 10s;

} // namespace

TessaryApp::TessaryApp(DeviceSources sources, DeviceFileService& files, TessaryAppSetup setup)
    : files_(files), setup_(std::move(setup)), deviceManager_(sources, files, setup_.alsoAccept) {}

TessaryApp::~TessaryApp() {
    deviceManager_.stopListening();
    engine_.stop(shutDownLimit);
    (void)Background::shutDown(shutDownLimit);
}

} // namespace tessary
