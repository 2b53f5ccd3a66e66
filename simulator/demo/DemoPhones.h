#pragma once

#include "base/local/PrivateFolder.h"
#include "base/local/ScratchFolder.h"
#include "platform/dnssd/ServiceBrowser.h"
#include "simulator/adbd/ADBServer.h"
#include "simulator/adbd/VirtualADBD.h"
#include "simulator/demo/DemoIPhones.h"
#include "simulator/mtp/VirtualAndroid.h"

#include <QProcessEnvironment>

#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <thread>

namespace tessary {

/// How the phones are made.
struct DemoMakers {
    std::function<std::unique_ptr<VirtualAndroid>(VirtualAndroidConfig)> android =
        std::make_unique<VirtualAndroid, VirtualAndroidConfig>;
    DemoIPhones::Maker iPhone = std::make_unique<VirtualIPhone, VirtualIPhoneConfig>;
};

/// Virtual phones for trying the program out: a bus with two Android phones, and a multiplexer with
/// an iPhone and an iPad, which libraries find by the environment of this process. Their storages
/// lie in folders below the one that is given, which are filled with sample content first. The
/// first Android phone also has USB debugging on, for which there is an adb server apart from the
/// user's.
class DemoPhones {
public:
    /// Making the sample content takes about a second.
    enum class PluggedIn {
        atOnce, ///< all phones are there when the constructor returns
        later,  ///< each as soon as it has its files, from a thread of its own
    };

    /// The folder is the caller's, and what an earlier run left in it is used as it is; an empty
    /// name stands for one that goes with this object. `megabytesPerSecond` slows the phones down,
    /// so that progress can be seen; 0 for no limit. Sets an environment variable: before there are
    /// threads that read the environment.
    explicit DemoPhones(const QString& folder, double megabytesPerSecond = 0,
                        const DemoMakers& makers = {}, PluggedIn when = PluggedIn::atOnce);
    ~DemoPhones();
    DemoPhones(const DemoPhones&) = delete;
    DemoPhones& operator=(const DemoPhones&) = delete;

    [[nodiscard]] USBBus& bus() {
        return bus_;
    }
    [[nodiscard]] VirtualUSBBus& virtualBus() {
        return bus_;
    }
    /// With PluggedIn::atOnce only, as iPhones()->phones().
    [[nodiscard]] std::vector<std::unique_ptr<VirtualAndroid>>& androids() {
        return androids_;
    }

    /// On which the first phone announces that it can be debugged.
    [[nodiscard]] std::shared_ptr<ServiceNetwork> network();

    /// Null when no multiplexer could listen.
    [[nodiscard]] DemoIPhones* iPhones() {
        return iPhones_.get();
    }

    /// The serial number of the phone that adb can reach.
    static inline const QString debuggedSerial = QStringLiteral("DEMO0001");

    /// Starts the adb server and connects it to the first phone, in the background; without an
    /// executable the phone only listens, at straightAddress(). To be called once.
    void startADB(const std::optional<QString>& executable);
    [[nodiscard]] bool startsADB() const {
        return startsADB_;
    }
    /// Where the first phone's adbd listens for whoever has no adb server; empty with one.
    [[nodiscard]] QString straightAddress() const {
        return startsADB_ && !hasADBServer_ ? adbd_->address() : QString();
    }
    /// Waits for the background, a few seconds at most; whether adb reaches the phone then is for
    /// adb to tell.
    void awaitADB();
    /// What adb commands need so that they work on these phones only; also when adb is not
    /// started, and they reach none.
    [[nodiscard]] QProcessEnvironment adbEnvironment() const {
        return adbServer_.environment();
    }

private:
    [[nodiscard]] QString ownFolder(const QString& name) const;
    void plugIn(const QString& folder, bool isNew, double megabytesPerSecond,
                const DemoMakers& makers, const std::stop_token& stop);

    /// Short of name, as a socket's path has to be.
    const ScratchFolder own_{PrivateFolder(PrivateFolder::Place::runtime, QStringLiteral("demo"))};
    std::optional<ScratchFolder> disk_;
    std::unique_ptr<DemoIPhones> iPhones_;
    VirtualUSBBus bus_;
    std::vector<std::unique_ptr<VirtualAndroid>> androids_;
    std::unique_ptr<VirtualADBD> adbd_;
    ADBServer adbServer_{ownFolder(QStringLiteral("adb"))};
    bool startsADB_ = false;
    bool hasADBServer_ = false;
    std::promise<void> isPluggedIn_;
    const std::shared_future<void> pluggedIn_{isPluggedIn_.get_future()};
    std::jthread pluggingIn_; ///< these last: they use the others
    std::jthread adbStart_;
};

} // namespace tessary
