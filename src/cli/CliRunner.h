#pragma once

#include "cli/CommandLine.h"
#include "devices/files/DeviceServices.h"
#include "devices/list/DeviceSources.h"
#include "platform/settings/UserDefaults.h"
#include "sync/plan/SyncReport.h"
#include "transfer/copy/TreeCopy.h"
#include "transfer/import/ImportLedger.h"

#include <cstdio>
#include <memory>
#include <optional>
#include <stop_token>

namespace tessary {

/// Carries out what the command line asks for, with the same services as the window. Results go to
/// `out`, progress and failures to `error`. Blocking; one run at a time. Listing and watching
/// devices need the main thread's event loop, and may leave work in the background: call
/// Background::shutDown() before anything that the runner uses goes.
class CliRunner {
public:
    enum ExitStatus { done = 0, failed = 1, wrongUsage = 2, interrupted = 130 };

    /// Everything must outlive the runner. `ledgers` is the folder that keeps what was imported.
    CliRunner(DeviceSources sources, DeviceServices& services, UserDefaults& defaults,
              std::FILE* out, std::FILE* error, QString ledgers = ImportLedger::usersFolder());

    /// Never throws: every failure is one clear line on `error` and an exit status.
    [[nodiscard]] ExitStatus run(const CliRequest& request, const std::stop_token& stop) noexcept;

private:
    void devices();
    void watch();
    void apps();
    void list();
    void info();
    void get();
    void put();
    void makeFolders();
    void remove();
    void move();
    void sync();
    void importPhotos();
    void showPreview(const SyncPreview& preview);
    [[nodiscard]] SyncAnswer answerTo(const SyncQuestion& question);

    [[nodiscard]] const DeviceInfo& chosenDevice();
    /// The files of the chosen device, or of the chosen app of it.
    [[nodiscard]] PhoneFileSystem& files();
    void printDevice(const DeviceInfo& device);
    void copy(TreeCopyRequest request);
    /// The same without words about how it ended.
    [[nodiscard]] CopyOutcome run(TreeCopyRequest request);
    void sayLeftOut(const CopyOutcome& outcome);
    void print(const QJsonValue& document);
    void printLine(const QString& line);
    void flushOutput();
    void sayIfDamaged();
    void fail(const QString& message);

    const DeviceSources sources_;
    DeviceServices& services_;
    UserDefaults& defaults_;
    std::FILE* out_;
    std::FILE* error_;
    const QString ledgers_;

    // Of the current run.
    CliRequest request_;
    std::stop_token stop_;
    std::optional<DeviceInfo> device_;
    std::shared_ptr<PhoneFileSystem> files_; ///< null until it is needed
    ExitStatus status_ = done;
};

} // namespace tessary
