#pragma once

namespace tessary {

/// What a double click does to a file.
enum class FileClick { opens, previews, copies };

} // namespace tessary
