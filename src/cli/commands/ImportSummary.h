#pragma once

#include "transfer/copy/CopyTypes.h"
#include "transfer/import/Import.h"
#include "transfer/import/ImportRemoval.h"

#include <QJsonObject>
#include <QStringList>

namespace tessary {

/// What an import has found and done.
struct ImportSummary {
    const FoundPhotos& found;
    const ImportPlan plan;
    std::optional<CopyOutcome> outcome; ///< no value when nothing was to be done
    std::optional<ImportRemoval> removal = {};
};

/// Numbers, and each file that is, or would be, copied.
[[nodiscard]] QJsonObject toJson(const ImportSummary& summary);
/// The same for people: of what was not done each file, and the numbers.
[[nodiscard]] QStringList linesOf(const ImportSummary& summary);

} // namespace tessary
