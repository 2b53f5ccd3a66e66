#pragma once

#include "adb/files/ADBSession.h"
#include "phone/PhoneFileSystem.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace tessary {

/// Many small files that are made in one folder of a phone: all of them cross into a folder of our
/// own in it, one request after another without waiting, and one command moves them to their
/// place. Made for one call, where ADBShellClient::isExact(). Errors of ADBSession, and PhoneError.
class ADBSmallFiles {
public:
    /// `files` outlives it; `folder` is canonical.
    ADBSmallFiles(ADBSession& session, const QString& folder, const std::vector<SmallFile>& files,
                  const Call& call);
    ~ADBSmallFiles();
    ADBSmallFiles(const ADBSmallFiles&) = delete;
    ADBSmallFiles& operator=(const ADBSmallFiles&) = delete;

    /// As PhoneFileSystem::writeTogether().
    [[nodiscard]] std::vector<std::optional<FileItem>>
    write(const std::function<bool(std::size_t)>& isWanted, const ByteProgress& progress);

private:
    using Places = std::vector<std::size_t>; ///< in files_

    [[nodiscard]] Places free();
    void send(const Places& places, const ByteProgress& progress);
    [[nodiscard]] Places arrived(const Places& places);
    void moveOut(const Places& places);
    [[nodiscard]] std::vector<std::optional<FileItem>> inPlace(const Places& moved);
    void removePart(const std::stop_token& stop);
    [[nodiscard]] QByteArray finalPath(std::size_t place) const;
    [[nodiscard]] QByteArray partPath(std::size_t place) const;

    ADBSession& session_;
    const QString folder_;
    const std::vector<SmallFile>& files_;
    const std::stop_token stop_;
    const QByteArray folderPath_;
    const QByteArray part_; ///< the path of the folder of our own
    bool hasPart_ = false;
};

} // namespace tessary
