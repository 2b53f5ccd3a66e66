#pragma once

#include <QString>

namespace tessary {

/// What files are called while they arrive: a name of ours, which nobody takes for the whole file.
struct PartFile {
    static constexpr QLatin1StringView namePrefix{".tessary-part-"};
    /// A name that no file has.
    [[nodiscard]] static QString newName();
};

} // namespace tessary
