#pragma once

#include <QString>
#include <QStringView>

namespace tessary {

enum class FileCategory { folder, image, video, audio, document, archive, apk, code, other };

/// The name that the user sees.
[[nodiscard]] QString rawValue(FileCategory category);
/// In an icon theme.
[[nodiscard]] QString iconName(FileCategory category);

/// The category of a file by its lower-cased extension; `other` for an unknown or empty one.
[[nodiscard]] FileCategory fileCategoryForExtension(QStringView extension);
/// Whether that is an image as a camera's sensor gave it.
[[nodiscard]] bool isRawPicture(QStringView extension);

} // namespace tessary
