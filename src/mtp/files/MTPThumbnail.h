#pragma once

#include "mtp/objects/MTPTree.h"
#include "phone/records/FileItem.h"

#include <QByteArray>

namespace tessary {

/// The small picture that the phone has of a file, encoded. No value without one, or for one of
/// more than `maxBytes`. Throws what ends the session.
[[nodiscard]] std::optional<QByteArray>
readMTPThumbnail(MTPTree& tree, const FileItem& file, qint64 maxBytes, const std::stop_token& stop);

} // namespace tessary
