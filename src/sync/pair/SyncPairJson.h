#pragma once

#include "sync/pair/SyncPair.h"

#include <QJsonArray>
#include <QJsonValue>

#include <optional>
#include <vector>

namespace tessary {

/// The pair list as JSON: dates in seconds since 2001, absent ones left out.
[[nodiscard]] QJsonArray encodeSyncPairs(const std::vector<SyncPair>& pairs);
/// The reverse. No value when it is no such list, or a pair lacks a field that it must have.
[[nodiscard]] std::optional<std::vector<SyncPair>> decodeSyncPairs(const QJsonValue& json);

} // namespace tessary
