// The command line with virtual phones in it. tessary-cli hands over to it.

#include "adb/tool/ADBTool.h"
#include "base/local/PrivateFolder.h"
#include "base/local/ScratchFolder.h"
#include "cli/program/CliProgram.h"
#include "devices/list/DeviceManager.h"
#include "simulator/demo/DemoPhones.h"

#include <QJsonObject>

#include <optional>

using namespace tessary;

namespace {

class VirtualPhones final : public CliPhones {
public:
    VirtualPhones(const CliRequest& request, const SettingsStore& defaults)
        : ledgers_(ledgersOf(request)), demo_(request.demoFolder) {
        // The run is over before adb would be there by itself: it is waited for, or not started.
        if (!wantsADB(request, defaults))
            return;
        demo_.startADB(findADBTool());
        demo_.awaitADB();
    }

    USBBus& bus() override {
        return demo_.bus();
    }
    [[nodiscard]] bool startsADB() const override {
        return demo_.startsADB();
    }
    [[nodiscard]] QString straightAddress() const override {
        return demo_.straightAddress();
    }
    [[nodiscard]] QProcessEnvironment environment() const override {
        return demo_.adbEnvironment();
    }
    [[nodiscard]] QString ledgers() const override {
        return ledgers_;
    }

private:
    static bool wantsADB(const CliRequest& request, const SettingsStore& defaults) {
        const auto chosen = protocolModeFromRawValue(defaults.value(DeviceManager::protocolModesKey)
                                                         .toObject()[DemoPhones::debuggedSerial]
                                                         .toString());
        return request.protocol.value_or(chosen.value_or(ProtocolMode::mtp)) ==
               ProtocolMode::adbTurbo;
    }

    /// What was imported from virtual phones is forgotten with their files.
    QString ledgersOf(const CliRequest& request) {
        if (!request.demoFolder.isEmpty())
            return request.demoFolder + QStringLiteral("/imports");
        scratch_.emplace(PrivateFolder(PrivateFolder::Place::cache, QStringLiteral("demo")));
        return scratch_->path();
    }

    std::optional<ScratchFolder> scratch_;
    const QString ledgers_;
    DemoPhones demo_;
};

} // namespace

int main(int argc, char** argv) {
    return runCommandLine(
        argc, argv,
        [](const CliRequest& request, const SettingsStore& defaults) -> std::unique_ptr<CliPhones> {
            if (!request.demo)
                return makeSystemPhones();
            return std::make_unique<VirtualPhones>(request, defaults);
        });
}
