#pragma once

#include "browser/model/FileBrowserViewModel.h"

#include <QList>
#include <QWidget>

#include <vector>

class QAction;
class QLineEdit;
class QToolButton;

namespace tessary {

struct BrowserActions;
class BreadcrumbBar;
class EntryDrop;

/// The row above a listing: back and forward, the path, the most used commands, and a field for the
/// filter, or for a name to search below the folder. Where there is little room first the field
/// shrinks to a button, then commands lose their words, then the less needed ones go into a menu,
/// before the path does. A command that is not visible has no button.
class BrowserToolbar : public QWidget {
    Q_OBJECT

public:
    /// All must outlive it; `drops` is what becomes of what is dropped on the path.
    BrowserToolbar(FileBrowserViewModel& browser, const BrowserActions& actions,
                   const EntryDrop& drops);

    /// Below which the sync menu opens.
    [[nodiscard]] const QWidget& syncAnchor() const;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user is done up here: the keys belong to the listing again.
    void left();

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// What goes into the menu where there is no room for it.
    struct Tool {
        QWidget* widget;
        QList<QAction*> actions; ///< as the menu has them
    };

    void addTools(const BrowserActions& actions);
    void showField(bool isForSearch);
    void takeText(const QString& text);
    void showFieldTexts();
    void fit();
    [[nodiscard]] int gaps() const;
    [[nodiscard]] int widthOf(const Tool& tool) const;
    void fillMenu();

    FileBrowserViewModel& browser_;
    BreadcrumbBar* path_;
    QLineEdit* filter_;
    QToolButton* filterButton_;
    QToolButton* syncButton_;
    QToolButton* downloadButton_;
    QToolButton* uploadButton_;
    QWidget* modes_; ///< list or grid
    QToolButton* backButton_;
    QToolButton* moreButton_;  ///< the menu of what has no room
    std::vector<Tool> tools_;  ///< the least needed first
    bool isForSearch_ = false; ///< the field; else for the filter
};

} // namespace tessary
