#pragma once

#include "browser/model/BrowserCopies.h"

#include <optional>

class QWidget;

namespace tessary {

/// Asks what to do about each entry whose name is taken, or about all at once. No value when the
/// user calls the copy off. Runs an event loop of its own.
[[nodiscard]] std::optional<CopyAnswers> askAboutClashes(QWidget* parent, const PreparedCopy& copy);

/// Whether to go on; asks when there is too little space for what was chosen. Runs an event loop
/// of its own.
[[nodiscard]] bool askAboutSpace(QWidget* parent, const PreparedCopy& copy,
                                 const CopyAnswers& answers);

} // namespace tessary
