#pragma once

#include "phone/PhoneFileSystem.h"

#include <memory>
#include <vector>

class QWidget;

namespace tessary {

/// Where deleted entries go.
enum class DeletedGo {
    away,        ///< for good
    pastTheBin,  ///< for good, though the phone's own programs would keep them for a while
    intoTheTrash ///< of this computer
};

/// Asks whether these entries, one at least, are to be deleted, and names them. True when the user
/// agrees. What lies in a folder is counted meanwhile, in the background, and said once it is
/// known; so is that a copy `readsThem` still, and that a copy to a folder is taken back when there
/// is a path in `copiedTo`.
[[nodiscard]] bool askToDelete(QWidget& parent, const std::shared_ptr<PhoneFileSystem>& files,
                               const std::vector<FileItem>& items, DeletedGo where,
                               bool readsThem = false, const QString& copiedTo = {});

} // namespace tessary
