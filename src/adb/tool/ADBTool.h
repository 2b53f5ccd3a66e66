#pragma once

#include "platform/process/ProcessRunner.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace tessary {

/// The adb executable of this machine. Thread-safe and blocking.
class ADBTool {
public:
    /// `processes` must outlive the tool. The first path that is an executable file is
    /// used; without any, the usual places are looked at each time.
    ADBTool(ProcessRunner& processes, std::optional<QStringList> paths);
    /// The usual places.
    [[nodiscard]] static QStringList defaultPaths();

    [[nodiscard]] std::optional<QString> find() const;
    /// The first of these paths that is an executable file.
    [[nodiscard]] static std::optional<QString> findAmong(const QStringList& paths);

    /// Runs it. Throws CancellationError after a stop request; all else is in the result.
    [[nodiscard]] ProcessResult run(const ProcessRequest& request) const;

private:
    ProcessRunner& processes_;
    const std::optional<QStringList> paths_;
};

} // namespace tessary
