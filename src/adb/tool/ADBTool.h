#pragma once

#include "adb/server/ADBDevices.h"
#include "phone/records/DeviceInfo.h"
#include "platform/process/ProcessRunner.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <chrono>
#include <mutex>
#include <optional>
#include <vector>

namespace tessary {

/// A text as one word of a phone's shell, whatever it holds: in single quotes, each single quote
/// in it as '\''.
[[nodiscard]] QString phoneShellQuoted(const QString& text);

/// What went wrong with a run of adb, in words for a person; empty when it went well.
[[nodiscard]] QString adbFailure(const ProcessResult& result);
/// Whether the phone, or adb itself, was lost, rather than one file refused.
[[nodiscard]] bool isADBConnectionFailure(const ProcessResult& result);

/// The adb executable of this machine and the phones that it reaches. Thread-safe and blocking.
class ADBTool {
public:
    /// For commands that a phone answers at once.
    static constexpr std::chrono::seconds shortLimit{15};

    /// `processes` must outlive the tool. The first path that is an executable file is
    /// used; without any, the usual places are looked at each time.
    ADBTool(ProcessRunner& processes, std::optional<QStringList> paths);
    /// The usual places.
    [[nodiscard]] static QStringList defaultPaths();

    [[nodiscard]] std::optional<QString> find() const;
    /// The first of these paths that is an executable file.
    [[nodiscard]] static std::optional<QString> findAmong(const QStringList& paths);

    /// Asks for the phones that adb reaches; starts adb's server when none runs. A phone on the
    /// network is asked for its own serial number once. Empty when adb fails.
    [[nodiscard]] std::vector<ADBDevice> devices();
    /// Whether adb reaches a phone with this serial number; without one, whether it reaches
    /// exactly one phone.
    [[nodiscard]] bool isConnected(const std::optional<QString>& serial);

    /// The request for a command on a device. Throws TessaryError::fileIOError when there is no
    /// executable, or no telling two phones of one serial number apart.
    [[nodiscard]] ProcessRequest request(const DeviceInfo& device, const QStringList& words,
                                         std::optional<std::chrono::milliseconds> limit,
                                         const std::stop_token& stop) const;
    /// Runs it. Throws CancellationError after a stop request; all else is in the result.
    [[nodiscard]] ProcessResult run(const ProcessRequest& request) const;

private:
    [[nodiscard]] QStringList selection(const DeviceInfo& device) const;
    [[nodiscard]] QString phoneSerialOf(const QString& executable, const ADBDevice& device);

    ProcessRunner& processes_;
    const std::optional<QStringList> paths_;
    mutable std::mutex mutex_;             ///< guards all below
    std::vector<ADBDevice> known_;         ///< the last answer
    QHash<QString, QString> phoneSerials_; ///< by serial and transport
};

} // namespace tessary
