#pragma once

#include "browser/model/FileBrowserViewModel.h"

#include <QWidget>

class QLineEdit;
class QToolButton;

namespace tessary {

struct BrowserActions;
class BreadcrumbBar;

/// The row above a listing: back and forward, the path, the most used commands, and a field for the
/// filter, or for a name to search below the folder. Where there is little room first the field
/// shrinks to a button, then commands lose their words, before the path does.
class BrowserToolbar : public QWidget {
    Q_OBJECT

public:
    /// Both must outlive it.
    BrowserToolbar(FileBrowserViewModel& browser, const BrowserActions& actions,
                   QWidget* parent = nullptr);

    [[nodiscard]] BreadcrumbBar& path() const {
        return *path_;
    }
    /// Below which the sync menu opens.
    [[nodiscard]] QToolButton& syncButton() const {
        return *syncButton_;
    }
    void clearFilter();
    /// For files that are no phone's.
    void hidePhoneCommands();

Q_SIGNALS:
    /// The user is done up here: the keys belong to the listing again.
    void left();

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showField(bool isForSearch);
    void takeText(const QString& text);
    void showFieldTexts();
    void fit();

    FileBrowserViewModel& browser_;
    BreadcrumbBar* path_;
    QLineEdit* filter_;
    QToolButton* filterButton_;
    QToolButton* syncButton_;
    QToolButton* downloadButton_;
    QToolButton* uploadButton_;
    QWidget* modes_;           ///< list or grid
    bool isForSearch_ = false; ///< the field; else for the filter
};

} // namespace tessary
