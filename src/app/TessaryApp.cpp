#include "app/TessaryApp.h"

#include "base/threads/Background.h"
#include "sync/manager/SyncConnection.h"

namespace tessary {

namespace {

using namespace std::chrono_literals;

constexpr auto shutDownLimit = 10s;

} // namespace

TessaryApp::TessaryApp(DeviceSources sources, DeviceFileService& files, TessaryAppSetup setup)
    : files_(files),
      setup_(std::move(setup)),
      deviceManager_(sources, files, setup_.alsoAccept),
      syncManager_(*setup_.defaults, deviceConnector(files)),
      updateChecker_(setup_.http, setup_.defaults, setup_.openAddress),
      favoritesManager_(setup_.defaults),
      languageManager_(LanguageManager::shared()) {
    languageManager_.useStore(setup_.defaults);
    deviceManager_.rememberModesIn(setup_.defaults);
}

TessaryApp::~TessaryApp() {
    stop();
}

bool TessaryApp::stop() {
    deviceManager_.stopListening();
    syncManager_.cancelAll();
    promisedFiles_.stop();
    const bool copyHasEnded = engine_.stop(shutDownLimit);
    return Background::shutDown(shutDownLimit) && copyHasEnded;
}

} // namespace tessary
