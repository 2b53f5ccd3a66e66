#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace tessary {

/// The content of the update manifest. A value; its texts come from a server.
struct UpdateInfo {
    QString version; ///< dotted numbers, never empty
    QString releaseNotes;
    QString downloadUrl;
    bool mandatory = false; ///< should not be skipped

    bool operator==(const UpdateInfo&) const = default;
};

/// Reads a manifest, a JSON object with the fields' names in snake case. It is written by hand:
/// a closing quote and comma that are missing at the end of a line are put there, and of what still
/// is no JSON the fields are picked one by one. No value without a version. Pure.
[[nodiscard]] std::optional<UpdateInfo> parseUpdateManifest(const QByteArray& body);

/// Whether `version` comes after `other`: digits compare as numbers, so that 1.10 is above 1.9.
[[nodiscard]] bool isNewerVersion(const QString& version, const QString& other);

} // namespace tessary
