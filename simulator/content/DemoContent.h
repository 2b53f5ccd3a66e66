#pragma once

#include <QDateTime>
#include <QString>

#include <stop_token>

namespace tessary {

/// Sample content for a virtual phone's storage, generated: the same bytes at each call. Blocking,
/// well under a second.
class DemoContent {
public:
    /// Files in the folder "Download/Archive", the one with very many files.
    static constexpr int archiveFiles = 3000;

    /// Fills `folder` (created when missing) as a phone's internal storage: DCIM/Camera with
    /// pictures, Documents, Music, Download. File dates spread over the two years before newest().
    /// False when a file cannot be written, or `stop` ended it early; so below.
    [[nodiscard]] static bool fillPhone(const QString& folder, const std::stop_token& stop = {});
    /// A smaller set, as on a memory card.
    [[nodiscard]] static bool fillCard(const QString& folder, const std::stop_token& stop = {});

    /// The documents of three apps of an iPhone: notes (with a folder of `notesFiles` files),
    /// pictures, and music.
    [[nodiscard]] static bool fillNotes(const QString& folder, const std::stop_token& stop = {});
    [[nodiscard]] static bool fillPictures(const QString& folder, const std::stop_token& stop = {});
    [[nodiscard]] static bool fillMusic(const QString& folder, const std::stop_token& stop = {});
    /// The media folder of an iPhone: "DCIM/100APPLE" with pictures, some of them moving or edited.
    [[nodiscard]] static bool fillCamera(const QString& folder, const std::stop_token& stop = {});
    /// Files in the folder "Journal" of the notes.
    static constexpr int notesFiles = 500;

    /// The date of the newest file.
    [[nodiscard]] static QDateTime newest();
};

} // namespace tessary
