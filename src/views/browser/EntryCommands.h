#pragma once

#include "browser/listing/EntryMimeData.h"
#include "browser/model/FileBrowserViewModel.h"
#include "platform/desktop/DesktopPrograms.h"

#include <QMimeData>
#include <QObject>
#include <QPointer>

#include <functional>
#include <utility>
#include <vector>

class QAbstractItemView;
class QMenu;
class QWidget;

namespace tessary {

struct BrowserActions;
class PreviewWindow;

/// What a listing asks and tells about favorites.
struct FavoriteCommands {
    std::function<bool(const QString& path)> contains;
    std::function<void(const QString& name, const QString& path)> toggle;
};

/// Opens a file of this computer with the program that the user has for it; false when there is
/// none, or it does not start.
using OpenLocalFile = std::function<bool(const QString& path)>;
[[nodiscard]] OpenLocalFile systemOpenLocalFile();

/// What a user does with the selected entries of a folder, the copies apart: open, preview, rename,
/// delete, look at the properties, keep as a favorite. On the main thread.
class EntryCommands : public QObject {
    Q_OBJECT

public:
    struct Setup {
        std::function<QAbstractItemView&()> listing; ///< the view that is shown
        std::function<int()> columns;                ///< its entries beside one another
        OpenLocalFile openLocalFile;
        FavoriteCommands favorites;                       ///< empty where there are none
        std::function<void(const QString& path)> openTab; ///< the same
    };

    /// Browser and parent must outlive it; questions stand in front of `parent`.
    EntryCommands(FileBrowserViewModel& browser, Setup setup, QWidget& parent);

    /// Takes what it put on the clipboard off again: nobody could paste it any more.
    ~EntryCommands() override;

    [[nodiscard]] bool isFavorite(const QString& path) const;
    void toggleFavorite();
    /// Name and path of the folder that a favorite would be made of: the selected one, or the one
    /// shown; empty when something else is selected.
    [[nodiscard]] std::pair<QString, QString> favoriteCandidate() const;
    /// The folder shown, which is gone, is none any more.
    void forgetFavorite() const;

    /// Enters a folder; several open in tabs. A file opens with the program that the desktop has
    /// for it, once it is here.
    void open();
    /// Each folder among them in its own; anything else stays as it is.
    void openInTab(const std::vector<FileItem>& items) const;
    void preview();
    /// Where a filter has found something and nothing is selected.
    void selectFirstFound();
    /// Ends what is under way, or the selection, or the filter, or the search: the first there is.
    void endOne();
    /// Puts the selected entries on the clipboard, copied or cut. Other programs get copies in any
    /// case.
    void putOnClipboard(EntryMimeData::Use use);
    /// What another has put there goes with this one, not with that.
    void takeClipboard(EntryCommands& from) {
        if (from.onClipboard_)
            onClipboard_ = std::exchange(from.onClipboard_, nullptr);
    }
    /// Puts the paths of the selected entries, or of the folder, on the clipboard as text.
    void copyPath() const;
    void rename();
    void remove();
    void showProperties();

    /// Takes the last change back. A copy under way is cancelled; of one that has ended it asks
    /// before what came is deleted.
    void undo();
    /// What the command says that it would take back.
    [[nodiscard]] QString undoText() const;

    /// The commands for what is selected, or for the folder.
    void addTo(QMenu& menu, const BrowserActions& actions);

private:
    void fetchSelected(std::function<void(const QStringList& localPaths)> whenHere);
    [[nodiscard]] bool askToDelete(const std::shared_ptr<PhoneFileSystem>& files,
                                   const std::vector<FileItem>& items,
                                   const QString& copiedTo = {});
    void tellNotOpened(const QString& path);
    void addOpenWith(QMenu& menu);
    void fillOpenWith(QMenu& menu, const std::vector<DesktopProgram>& programs);

    FileBrowserViewModel& browser_;
    const Setup setup_;
    QWidget& parent_;
    QPointer<const QMimeData> onClipboard_; ///< what this has put there last
    PreviewWindow* preview_ = nullptr;      ///< made when it is first opened
};

} // namespace tessary
