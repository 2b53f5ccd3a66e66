#pragma once

#include "browser/model/FileBrowserViewModel.h"
#include "views/browser/BrowserActions.h"
#include "views/browser/TranslatedFileModel.h"

#include <QHash>
#include <QWidget>

#include <functional>

class QAbstractItemView;
class QHeaderView;
class QLabel;
class QLineEdit;
class QMenu;
class QStackedWidget;
class QToolButton;

namespace tessary {

class BreadcrumbBar;
class EntryMimeData;
class FileGridView;
class FileTableView;
class PlaceholderView;
class PreviewWindow;

/// The files of one device: toolbar, listing, and a line about what is selected. It shows what the
/// browser's view model has, and hands every wish of the user to it.
class BrowserView : public QWidget {
    Q_OBJECT

public:
    /// What the view asks and tells about favorites.
    struct Favorites {
        std::function<bool(const QString& path)> contains;
        std::function<void(const QString& name, const QString& path)> toggle;
    };

    /// Asks the user for a local folder, or for local files or a folder; empty when he declined.
    struct Dialogs {
        std::function<QString(QWidget*)> chooseTargetFolder;
        std::function<QStringList(QWidget*)> chooseFiles;
        std::function<QString(QWidget*)> chooseFolder;
    };
    [[nodiscard]] static Dialogs systemDialogs();

    /// `browser` must outlive the view.
    BrowserView(FileBrowserViewModel& browser, Dialogs dialogs, QWidget* parent = nullptr);

    [[nodiscard]] const BrowserActions& actions() const {
        return actions_;
    }
    void setFavorites(Favorites favorites);
    /// What leads back to the apps of an iPhone.
    void setShowApps(std::function<void()> showApps);
    /// What opens the sync menu below a widget.
    void setShowSync(std::function<void(const QWidget& anchor)> showSync);
    /// Favorites have changed.
    void updateActions();
    /// The listing that is shown, table or grid.
    [[nodiscard]] QAbstractItemView& currentListing() const;
    /// The table's columns.
    [[nodiscard]] QHeaderView& columns() const;

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void connectActions();
    void showTexts();
    QWidget* makeToolbar();
    void connectBrowser();
    void showPath();
    void showContent();
    void showStatus();
    void showContextMenu(const QPoint& position);
    void openSelected();
    void renameSelected();
    /// Remembers the folder shown. The result tells whether it is still shown, once a question was
    /// answered: ids of another phone's entries look the same. Tells the user when it is not.
    [[nodiscard]] std::function<bool()> shownHere();
    void removeSelected();
    void downloadSelected();
    void upload(const QStringList& paths, const QString& intoFolderId = {});
    [[nodiscard]] FileBrowserViewModel::SurveyDone askAndCopy();
    void setGrid(bool grid);
    [[nodiscard]] bool isInApp() const;
    void quickLook();
    void showProperties();
    [[nodiscard]] QStringList selectedIds() const;
    [[nodiscard]] std::pair<QString, QString> favoriteCandidate() const;
    [[nodiscard]] const EntryMimeData* ownEntries(const QDropEvent& event) const;
    void showDropTarget(const QString& folderId);
    [[nodiscard]] QString folderUnder(const QPoint& position) const;

    FileBrowserViewModel& browser_;
    Dialogs dialogs_;
    Favorites favorites_;
    std::function<void()> showApps_;
    std::function<void(const QWidget&)> showSync_;
    TranslatedFileModel model_;
    const BrowserActions actions_{*this};
    BreadcrumbBar* breadcrumbs_;
    QLineEdit* filter_;
    QToolButton* syncButton_ = nullptr;
    QStackedWidget* stack_;
    FileTableView* table_;
    FileGridView* grid_;
    PlaceholderView* placeholder_;
    QLabel* status_;
    PreviewWindow* preview_ = nullptr; ///< made when it is first opened
};

} // namespace tessary
