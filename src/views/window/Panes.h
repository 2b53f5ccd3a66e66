#pragma once

#include "views/window/LocalPane.h"

#include <QSplitter>

#include <functional>
#include <optional>

class QAction;
class QMenuBar;

namespace tessary {

/// The phone's files, and beside them a folder of this computer when the user wants one. Keys and
/// menus belong to the side that has the focus.
class Panes : public QSplitter {
    Q_OBJECT

public:
    /// Of what begins in a folder, or where one was last when that is empty.
    using MakeLocal = std::function<LocalPane*(const QString& folder)>;

    /// Takes `phone` over, in which `phoneView` lies. `menus` outlive it.
    Panes(QWidget* phone, BrowserView& phoneView, QMenuBar& menus, MakeLocal makeLocal);
    ~Panes() override;

    /// Another view of the phone's files is shown.
    void usePhone(BrowserView& view);
    /// Shows or hides the folder of this computer; a checkable command.
    [[nodiscard]] QAction& toggle() const {
        return *toggle_;
    }

    /// Shows this folder of this computer, or goes on showing one; the keys stay with the phone.
    void split(const QString& folder);
    /// The folder of this computer that is shown; empty while it is looked for, and no value when
    /// there is none.
    [[nodiscard]] std::optional<QString> localFolder() const;

Q_SIGNALS:
    void localFolderChanged();

private:
    void makeLocal(const QString& folder);
    void show(bool isSplit);
    void follow(const QWidget* focus);
    void use(BrowserView& view);

    BrowserView* phoneView_;
    BrowserView* used_;
    QMenuBar& menus_;
    const MakeLocal makeLocal_;
    LocalPane* local_ = nullptr; ///< made when it is first shown
    QAction* toggle_;
};

} // namespace tessary
