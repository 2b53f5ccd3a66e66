#pragma once

#include "mtp/files/MTPSession.h"
#include "phone/DeviceLane.h"
#include "phone/TransferOutcome.h"

#include <QString>

#include <stop_token>

namespace tessary {

/// Copies one object to a local file: whole or not at all, with the date that it has on the phone.
/// `progress` gets the bytes so far and the size. Returns the number of bytes.
/// Throws TessaryError, MTPTransportError or CancellationError; the session stays usable unless
/// the connection broke.
qint64 downloadObject(MTPSession& session, const MTPObjectInfo& info, const QString& localFile,
                      const FileProgressCallback& progress, const std::stop_token& stop);

/// Copies a folder and everything below it to `localFolder`, which is created when missing; what
/// is there already and not in the way stays. The phone is walked first, so that the totals are
/// true from the first byte on. Names that are no local names, and objects that the phone refuses
/// to give, are left out and named in the outcome. Between two files `turn` lets guests in.
[[nodiscard]] TransferOutcome downloadFolder(MTPSession& session, DeviceLane::Turn& turn,
                                             const MTPLocation& folder, std::uint32_t handle,
                                             const QString& localFolder,
                                             const TransferProgressCallback& progress,
                                             const std::stop_token& stop);

} // namespace tessary
