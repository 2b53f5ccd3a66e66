#pragma once

#include "phone/records/FileItem.h"

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

namespace tessary {

/// What a file in a camera's folder is.
enum class MediaKind {
    picture,
    raw,
    video,
    companion, ///< says something about another one: edits, ratings
};

/// By the name's ending; no value for what no camera makes.
[[nodiscard]] std::optional<MediaKind> mediaKindOf(const QString& name);

/// A picture or film as somebody took it, with all the files that belong to it: the film of a
/// moving picture, RAW beside JPEG, the edited version and what says how it was edited.
struct Photo {
    std::vector<FileItem> files; ///< never empty; the first is the one to show

    /// The path of the file to show.
    [[nodiscard]] const QString& id() const {
        return files.front().path;
    }
    /// The first date among its files: edits are younger than what they were made of.
    [[nodiscard]] std::optional<QDateTime> taken() const;
    /// The day of that, in local time; no value when the phone tells none.
    [[nodiscard]] std::optional<QDate> day() const;
    [[nodiscard]] qint64 bytes() const;
    [[nodiscard]] bool isVideo() const;

    bool operator==(const Photo&) const = default;
};

/// Puts together what belongs together, by folder and name; newest first, in the order of their
/// names where that is the same. Companions of nothing, and what no camera makes, are left out.
/// Pure.
[[nodiscard]] std::vector<Photo> photosOf(const std::vector<FileItem>& files);

} // namespace tessary
