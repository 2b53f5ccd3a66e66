#include "views/browser/FolderNotice.h"

#include "base/text/Printable.h"
#include "views/browser/EntryCommands.h"
#include "views/common/ProblemText.h"

#include <algorithm>

namespace tessary {

FolderNotice::FolderNotice(FileBrowserViewModel& browser, const EntryCommands& entries)
    : browser_(browser), entries_(entries) {
    connect(&browser_.queue(), &CopyQueue::recordChanged, this, [this] {
        if (browser_.state() == BrowserState::ready && browser_.rows().count() == 0)
            showEmpty();
    });
}

bool FolderNotice::isInApp() const {
    const auto& device = browser_.activeDevice();
    return device && device->platform == DevicePlatform::iOS;
}

bool FolderNotice::takeState() {
    const ErrorText words = browser_.problem() ? problemText(*browser_.problem()) : ErrorText{};
    switch (browser_.state()) {
    case BrowserState::deviceLost:
        show(QStringLiteral("phonePicture"), tr("The phone is gone"),
             isInApp() ? tr("Plug the phone in again and unlock it.")
                       : tr("Plug it in again, unlock it and choose File transfer on it."));
        return true;
    case BrowserState::folderGone:
        showFolderGone();
        return true;
    case BrowserState::failed:
        show(QStringLiteral("dialog-error"), tr("Connection Failed"),
             words.what + QLatin1Char('\n') + words.advice, tr("Retry"),
             [this] { browser_.reload(); });
        setDetails(words.details);
        return true;
    case BrowserState::ready:
        break;
    }
    if (browser_.rows().count() > 0)
        return false;
    showEmpty();
    return true;
}

QString FolderNotice::unreadableText(int count) {
    return tr("%Ln entries could not be read.", nullptr, count);
}

void FolderNotice::showFolderGone() {
    if (entries_.isFavorite(browser_.currentPath())) {
        show(QStringLiteral("folder"), tr("Folder Not Found"),
             tr("This folder could not be found on the device. It may have been deleted or "
                "moved. Would you like to remove it from your Favorites?"),
             tr("Remove from Favorites"), [this] {
                 entries_.forgetFavorite();
                 browser_.navigateUp();
             });
        addChoice(tr("Keep"), [this] { browser_.navigateUp(); });
    } else {
        show(QStringLiteral("folder"), tr("Folder Not Found"),
             tr("It may have been deleted or moved on the phone."), tr("Parent Folder"),
             [this] { browser_.navigateUp(); });
    }
}

bool FolderNotice::isBeingFilled() const {
    return std::ranges::any_of(browser_.queue().jobs(), [this](const CopyJob& job) {
        return !job.isFinished() && job.status != CopyJob::Status::paused &&
               browser_.copies().fillsShownFolder(job);
    });
}

void FolderNotice::showEmpty() {
    const QString wanted = browser_.searchText().trimmed();
    if (!browser_.searchedName().isEmpty())
        showEmptySearch();
    else if (browser_.isLoading())
        show(QStringLiteral("folder"),
             isInApp() || browser_.isLocal() ? tr("Loading directory contents…")
                                             : tr("Loading device storage…"),
             {}, {}, {}, true);
    else if (!wanted.isEmpty() && browser_.unfilteredCount() > 0)
        show(QStringLiteral("edit-find"), tr("No Matching Files"),
             tr("Nothing here has “%1” in its name.").arg(printable(wanted)),
             tr("Clear the Filter"), [this] { browser_.setSearchText({}); });
    else if (browser_.unreadableCount() > 0)
        show(QStringLiteral("dialog-warning"), unreadableText(browser_.unreadableCount()), {},
             tr("Retry"), [this] { browser_.reload(); });
    else if (!browser_.items().empty())
        show(QStringLiteral("view-hidden"), tr("Only hidden files in here"),
             tr("Their names begin with a dot."), tr("Show Hidden Files"),
             [this] { browser_.setShowsHidden(true); });
    else if (isBeingFilled())
        show(QStringLiteral("folder"), tr("Files are being copied into this folder…"),
             tr("They are shown once the copy has ended."), {}, {}, true);
    else
        show(QStringLiteral("folder"), tr("This folder is empty"),
             browser_.isLocal() ? tr("Drop files here to copy them into it.")
                                : tr("Drop files here to copy them to the phone."));
}

void FolderNotice::showEmptySearch() {
    const QString name = printable(browser_.searchedName());
    if (browser_.isLoading())
        show(QStringLiteral("edit-find"), tr("Searching for “%1”…").arg(name), {}, {}, {}, true);
    else if (browser_.unreadableCount() > 0)
        show(QStringLiteral("dialog-warning"), tr("Nothing Found"),
             unreadableText(browser_.unreadableCount()), tr("Show the Folder"),
             [this] { browser_.endSearch(); });
    else
        show(QStringLiteral("edit-find"), tr("Nothing Found"),
             tr("Nothing below this folder has “%1” in its name.").arg(name), tr("Show the Folder"),
             [this] { browser_.endSearch(); });
}

} // namespace tessary
