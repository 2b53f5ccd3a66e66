#pragma once

#include "sync/plan/SyncReport.h"

#include <QJsonObject>

#include <functional>
#include <optional>

namespace tessary {

/// A report as JSON: {"outcome": "done", "startedAt": …, "endedAt": …, "transferredBytes": 1,
/// "inSync": 1, "items": [{"action": "upload", "path": …, "other"?: …, "size": 1}],
/// "skipped": [{"path": …, "error": <error>}], "failure"?: <error>}, with an error as
/// {"layer": 1, "code": 1, "name": …, "arguments": […], "cause"?: …}.
[[nodiscard]] QJsonObject encodeReport(const SyncReport& report);
/// The reverse. Codes of other layers than phone, local and sync, and those that this version does
/// not know, become PhoneError::refused. No value for what is no report.
[[nodiscard]] std::optional<SyncReport> decodeReport(const QJsonObject& json);

} // namespace tessary
