#include "app/TessaryApp.h"

#include "app/LanguageManager.h"
#include "base/local/PrivateFolder.h"
#include "base/threads/Background.h"

#include <algorithm>
#include <chrono>

namespace tessary {

namespace {

using namespace std::chrono_literals;

/// Long enough for a phone that answers to be left in order.
constexpr auto shutDownLimit = 4s;

/// What is to be forgotten with the program gets a folder for so long; null when nothing is.
std::unique_ptr<ScratchFolder> fillIn(TessaryAppSetup& setup) {
    if (!setup.importLedgers.isEmpty() && !setup.copyRecords.isEmpty())
        return nullptr;
    auto folder = std::make_unique<ScratchFolder>(
        PrivateFolder(PrivateFolder::Place::cache, QStringLiteral("window")));
    for (QString* path : {&setup.importLedgers, &setup.copyRecords})
        if (path->isEmpty())
            *path = folder->path();
    return folder;
}

} // namespace

TessaryApp::TessaryApp(DeviceSources sources, DeviceServices& services, TessaryAppSetup setup)
    : services_(services),
      scratch_(fillIn(setup)),
      setup_(std::move(setup)),
      deviceManager_(sources, services, setup_.alsoAccept),
      rememberedCopies_(copies_, deviceManager_, services.files(), setup_.copyRecords),
      phoneMounts_(deviceManager_, services.files(), setup_.showFolder),
      syncManager_(*setup_.defaults, {services.files()}),
      updateChecker_(setup_.http, setup_.defaults, setup_.openAddress, setup_.updates),
      favoritesManager_(setup_.defaults) {
    LanguageManager::shared().useStore(setup_.defaults);
    deviceManager_.rememberModesIn(setup_.defaults);
}

TessaryApp::~TessaryApp() {
    stop();
}

bool TessaryApp::stop() {
    deviceManager_.stopListening();
    syncManager_.cancelAll();
    dragMount_.stop();
    phoneMounts_.closeAll();
    const auto end = std::chrono::steady_clock::now() + shutDownLimit;
    const auto left = [end] {
        return std::chrono::ceil<std::chrono::milliseconds>(
            std::max(end - std::chrono::steady_clock::now(), std::chrono::nanoseconds::zero()));
    };
    const bool copyHasEnded = copies_.stop(left());
    return Background::shutDown(left()) && copyHasEnded;
}

} // namespace tessary
