#pragma once

#include "adb/server/ADBServerAddress.h"
#include "cli/terminal/CommandLine.h"
#include "ios/Multiplexer.h"
#include "platform/settings/SettingsStore.h"
#include "platform/usb/USBBus.h"
#include "transfer/import/ImportLedger.h"

#include <QProcessEnvironment>

#include <functional>
#include <memory>

namespace tessary {

/// The phones that a run works on: this machine's, unless a program has others. Used by the thread
/// of the run.
class CliPhones {
public:
    virtual ~CliPhones() = default;

    [[nodiscard]] virtual USBBus& bus() = 0;
    /// Whether an adb server may be started for them.
    [[nodiscard]] virtual bool startsADB() const {
        return true;
    }
    /// Where a phone is reached without adb; empty when there is no such phone.
    [[nodiscard]] virtual QString straightAddress() const {
        return {};
    }
    /// What leads child processes to them.
    [[nodiscard]] virtual QProcessEnvironment environment() const {
        return {};
    }
    /// Where it is kept what was imported from them.
    [[nodiscard]] virtual QString ledgers() const {
        return ImportLedger::usersFolder();
    }
};

/// Those that are attached to this machine.
[[nodiscard]] std::unique_ptr<CliPhones> makeSystemPhones();

using MakeCliPhones =
    std::function<std::unique_ptr<CliPhones>(const CliRequest&, const SettingsStore&)>;

/// The whole of a program with the command line `argc` and `argv`. Returns its exit status. To be
/// called first in main(): standard output is for results alone from then on.
[[nodiscard]] int runCommandLine(int argc, char** argv, const MakeCliPhones& makePhones);

} // namespace tessary
