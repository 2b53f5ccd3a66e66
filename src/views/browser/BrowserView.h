#pragma once

#include "browser/model/FileBrowserViewModel.h"
#include "views/browser/BrowserActions.h"
#include "views/browser/CopyCommands.h"
#include "views/browser/EntryCommands.h"
#include "views/browser/SortMenu.h"
#include "views/common/EntryDrop.h"
#include "views/common/FileClick.h"
#include "views/listing/TranslatedFileModel.h"

#include <QWidget>

#include <functional>
#include <optional>

class QAbstractItemView;
class QLabel;
class QMenu;
class QStackedWidget;

namespace tessary {

class BrowserToolbar;
class DropMark;
class FileGridView;
class FileTableView;
class FolderNotice;
class TableColumns;

/// The files of one device: toolbar, listing, and a line about what is selected. It shows what the
/// browser's view model has, and hands every wish of the user to it.
class BrowserView : public QWidget {
    Q_OBJECT

public:
    /// What the view asks of the window that a phone's files are shown in. The files of this
    /// computer have none of it.
    struct Surroundings {
        FavoriteCommands favorites;
        std::function<void()> showApps;                      ///< of an iPhone
        std::function<void(const QWidget& anchor)> showSync; ///< opens the sync menu below it
        std::function<void(const QString& path)> openTab;    ///< shows a folder in another tab
        std::function<FileClick()> fileClick;                ///< what a double click does
    };

    /// `browser` must outlive the view. Without `surroundings` it shows this computer's files: what
    /// only a phone has is not offered.
    BrowserView(FileBrowserViewModel& browser, CopyDialogs dialogs, OpenLocalFile openLocalFile,
                std::optional<Surroundings> surroundings = std::nullopt);

    [[nodiscard]] const BrowserActions& actions() const {
        return actions_;
    }
    /// What becomes of what is dropped on folders elsewhere in the window.
    [[nodiscard]] const EntryDrop& drops() const {
        return drops_;
    }
    /// What another view, which closes, has put on the clipboard stays there as long as this one.
    void takeClipboard(BrowserView& from) {
        entries_.takeClipboard(from.entries_);
    }
    /// Favorites have changed.
    void updateActions();
    /// The listing that is shown, table or grid.
    [[nodiscard]] QAbstractItemView& currentListing() const;
    /// Which of its columns the table shows.
    [[nodiscard]] QMenu& columnMenu() const;
    /// By what the files are sorted.
    [[nodiscard]] QMenu& sortMenu() {
        return sortMenu_;
    }
    /// The table's columns.
    [[nodiscard]] TableColumns& columns() const;

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void connectActions();
    void connectBrowser();
    void goUp();
    void doubleClicked();
    void showContent();
    void showPage(QWidget& page);
    void showStatus();
    void showContextMenu(const QPoint& position);
    void setGrid(bool grid);
    void zoom(int steps);
    [[nodiscard]] bool isInApp() const;
    [[nodiscard]] bool handleKey(const QKeyEvent& key);
    [[nodiscard]] bool handleMouseButton(const QMouseEvent& press);

    FileBrowserViewModel& browser_;
    const std::optional<Surroundings> surroundings_;
    TranslatedFileModel model_;
    SortMenu sortMenu_;
    const BrowserActions actions_{*this};
    CopyCommands copies_;
    EntryCommands entries_;
    EntryDrop drops_;
    BrowserToolbar* toolbar_;
    QStackedWidget* stack_;
    FileTableView* table_;
    FileGridView* grid_;
    FolderNotice* notice_;
    QLabel* status_;
    DropMark* dropMark_;
};

} // namespace tessary
