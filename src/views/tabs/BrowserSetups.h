#pragma once

#include "app/TessaryApp.h"
#include "browser/model/FileBrowserViewModel.h"
#include "views/browser/CopyCommands.h"

namespace tessary {

/// What the browsers of an application work with, which must outlive them.
[[nodiscard]] BrowserSetup browserSetup(TessaryApp& app);

/// The same dialogs, but where the user has set a folder for copies that one is not asked for.
[[nodiscard]] CopyDialogs withDownloadFolder(CopyDialogs dialogs, SettingsStore& defaults);

} // namespace tessary
