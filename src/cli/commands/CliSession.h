#pragma once

#include "cli/terminal/CommandLine.h"
#include "devices/files/DeviceServices.h"
#include "devices/list/DeviceSources.h"
#include "phone/PhoneFileSystem.h"
#include "phone/records/DeviceInfo.h"
#include "platform/settings/SettingsStore.h"
#include "transfer/import/ImportLedger.h"

#include <QJsonValue>

#include <cstdio>
#include <memory>
#include <optional>
#include <stop_token>

namespace tessary {

/// What the command line works with. Everything must outlive it.
struct CliSetup {
    DeviceSources sources;
    DeviceServices& services;
    SettingsStore& defaults;
    std::FILE* out;                                ///< results
    std::FILE* error;                              ///< progress and failures
    QString ledgers = ImportLedger::usersFolder(); ///< what was imported is kept there
};

/// One run of the command line: what was asked for, the phone that it is about, and where results
/// go. Used by one thread at a time, which is not the main thread.
class CliSession {
public:
    CliSession(const CliSetup& setup, CliRequest request, std::stop_token stop);

    [[nodiscard]] const CliRequest& request() const {
        return request_;
    }
    [[nodiscard]] const std::stop_token& stop() const {
        return stop_;
    }
    /// What it works with.
    [[nodiscard]] const CliSetup& setup() const {
        return setup_;
    }

    /// The device that the request names. Blocking; throws where none or several fit.
    [[nodiscard]] const DeviceInfo& device();
    /// Its files, or those of the app or the media folder that the request names.
    [[nodiscard]] const std::shared_ptr<PhoneFileSystem>& sharedFiles();
    /// An iPhone is meant as a camera: its media folder, whatever the request says.
    void useMedia();
    [[nodiscard]] PhoneFileSystem& files() {
        return *sharedFiles();
    }

    /// Prints a JSON document; signs that a terminal would obey are escaped in it and in lines.
    void print(const QJsonValue& document);
    void printLine(const QString& line);
    /// What was printed has arrived; CliFailure otherwise: a script must not take a part for all.
    void flushOutput();
    /// Says what the user should know of a run that goes well.
    void warn(const QString& message);
    /// Says what went wrong, and makes the run one that failed.
    void fail(const QString& message);
    /// The same of one entry: "Not copied: PATH: why".
    void fail(const char* what, const QString& path, const Error& error);
    [[nodiscard]] bool hasFailed() const {
        return hasFailed_;
    }

private:
    const CliSetup setup_;
    CliRequest request_;
    const std::stop_token stop_;
    std::optional<DeviceInfo> device_;
    std::shared_ptr<PhoneFileSystem> files_; ///< null until it is needed
    bool hasFailed_ = false;
};

} // namespace tessary
