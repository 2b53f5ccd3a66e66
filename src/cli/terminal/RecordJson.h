#pragma once

#include "phone/TransferProgress.h"
#include "phone/records/AppInfo.h"
#include "phone/records/DeviceInfo.h"
#include "phone/records/FileItem.h"
#include "transfer/copy/CopyTypes.h"

#include <QJsonObject>

namespace tessary {

// Records as JSON objects with their field names. Absent values are left out; dates are ISO 8601
// in UTC; enumerations are their raw values.

[[nodiscard]] QJsonObject toJson(const DeviceInfo& device);
[[nodiscard]] QJsonObject toJson(const AppInfo& app);
[[nodiscard]] QJsonObject toJson(const FileItem& item);
[[nodiscard]] QJsonObject toJson(const CopyOutcome& outcome);

} // namespace tessary
