#pragma once

#include "browser/model/FileBrowserViewModel.h"

#include <QStringList>

#include <functional>
#include <vector>

class QWidget;

namespace tessary {

using WhenHere = std::function<void(const QStringList& localPaths)>;

/// Brings files of a browser here for a program to open. What takes longer than a moment is said in
/// a window of its own, in front of `parent`, where it can be cancelled; what fails is the
/// browser's problem. Both must outlive it.
void fetchForOpening(FileBrowserViewModel& browser, std::vector<FileItem> items, WhenHere whenHere,
                     QWidget& parent);

} // namespace tessary
