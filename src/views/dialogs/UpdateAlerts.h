#pragma once

#include "app/updates/UpdateCheckerService.h"

#include <QMessageBox>
#include <QPointer>

class QMenuBar;

namespace tessary {

/// The command that looks for updates, and what came of it, told over the main window.
class UpdateAlerts : public QObject {
    Q_OBJECT

public:
    /// `checker` and `window` must outlive this.
    UpdateAlerts(UpdateCheckerService& checker, QWidget& window);

    /// Adds "Check for Updates…" in a menu of its own.
    void addCommand(QMenuBar& menus);

private:
    void show();
    /// A box without buttons, not open yet.
    QMessageBox& newBox(const QString& title, const QString& text);
    QMessageBox& tell(const QString& title, const QString& text);
    void offer(const UpdateInfo& update);

    UpdateCheckerService& checker_;
    QWidget& window_;
    QPointer<QMessageBox> box_;
};

} // namespace tessary
