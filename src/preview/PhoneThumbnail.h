#pragma once

#include "phone/PhoneFileSystem.h"

#include <QByteArray>

#include <optional>

namespace tessary {

/// Whether a phone may have a small picture of a file: of photos and videos of any size.
[[nodiscard]] bool mayHavePhoneThumbnail(const FileItem& item);

/// The small picture that the phone itself has of a file, encoded, and marked as turned the way the
/// photo is: phones hand it out as it lies in the photo. Hostile. No value where there is none.
/// Throws as PhoneFileSystem::thumbnail().
[[nodiscard]] std::optional<QByteArray> phoneThumbnail(PhoneFileSystem& files, const FileItem& item,
                                                       const Call& call);

/// The orientation, from 1 to 8, that the beginning of a JPEG file tells in its Exif data; 1 when
/// it tells none. Pure.
[[nodiscard]] int orientationOf(const QByteArray& beginningOfJPEG);

/// A JPEG file whose Exif data tells an orientation; the same where it is no JPEG file. Pure.
[[nodiscard]] QByteArray withOrientation(const QByteArray& jpeg, int orientation);

} // namespace tessary
