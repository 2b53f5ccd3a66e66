#pragma once

#include <QDateTime>
#include <QString>

namespace tessary {

/// Sample content for a virtual phone's storage, generated: the same bytes at each call. Blocking,
/// well under a second.
class DemoContent {
public:
    /// Files in the folder "Download/Archive", the one with very many files.
    static constexpr int archiveFiles = 3000;

    /// Fills `folder` (created when missing) as a phone's internal storage: DCIM/Camera with
    /// pictures, Documents, Music, Download. File dates spread over the two years before `until`.
    /// False when a file cannot be written.
    [[nodiscard]] static bool fillPhone(const QString& folder, const QDateTime& until = newest());
    /// A smaller set, as on a memory card.
    [[nodiscard]] static bool fillCard(const QString& folder, const QDateTime& until = newest());

    /// The documents of three apps of an iPhone: notes (with a folder of `notesFiles` files),
    /// pictures, and music.
    [[nodiscard]] static bool fillNotes(const QString& folder, const QDateTime& until = newest());
    [[nodiscard]] static bool fillPictures(const QString& folder,
                                           const QDateTime& until = newest());
    [[nodiscard]] static bool fillMusic(const QString& folder, const QDateTime& until = newest());
    /// The media folder of an iPhone: "DCIM/100APPLE" with pictures, some of them moving or edited.
    [[nodiscard]] static bool fillCamera(const QString& folder, const QDateTime& until = newest());
    /// Files in the folder "Journal" of the notes.
    static constexpr int notesFiles = 500;

    /// The date of the newest file when none is given.
    [[nodiscard]] static QDateTime newest();
};

} // namespace tessary
