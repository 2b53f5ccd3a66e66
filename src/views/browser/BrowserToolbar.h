#pragma once

#include "browser/model/FileBrowserViewModel.h"

#include <QWidget>

class QLineEdit;
class QToolButton;

namespace tessary {

struct BrowserActions;
class BreadcrumbBar;

/// The row above a listing: back and forward, the path, the most used commands, the filter. Where
/// there is little room the filter shrinks to a button before the path does.
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

Q_SIGNALS:
    /// The user is done up here: the keys belong to the listing again.
    void left();

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showFilter();
    void fitFilter();

    FileBrowserViewModel& browser_;
    BreadcrumbBar* path_;
    QLineEdit* filter_;
    QToolButton* filterButton_;
    QToolButton* syncButton_;
};

} // namespace tessary
