#pragma once

#include "browser/model/AppListViewModel.h"
#include "phone/records/AppInfo.h"

#include <QWidget>

#include <functional>

class QLineEdit;
class QListView;
class QStackedWidget;
class QStandardItemModel;

namespace tessary {

class PlaceholderView;

/// The apps of an iPhone, of which one is chosen to see its documents.
class AppListView : public QWidget {
    Q_OBJECT

public:
    using Choose = std::function<void(const AppInfo&)>;

    /// `apps` must outlive the view. `openOutside` opens an app's documents in the desktop's file
    /// manager, `goUp` leads to the phone, above its apps.
    AppListView(AppListViewModel& apps, Choose choose, Choose openOutside,
                std::function<void()> goUp, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* key) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void show();
    void showRows();
    void open(const QModelIndex& index);
    void showMenu(const QPoint& where);

    AppListViewModel& apps_;
    const Choose choose_;
    const Choose openOutside_;
    const std::function<void()> goUp_;
    std::vector<AppInfo> shown_;
    QLineEdit* search_;
    QStackedWidget* stack_;
    QListView* list_;
    QStandardItemModel* rows_;
    PlaceholderView* placeholder_;
};

} // namespace tessary
