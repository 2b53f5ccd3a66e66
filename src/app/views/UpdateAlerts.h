#pragma once

#include "app/UpdateCheckerService.h"

#include <QMessageBox>
#include <QPointer>

namespace tessary {

/// What came of a look for updates, told over the main window.
class UpdateAlerts : public QObject {
public:
    /// `checker` and `window` must outlive this.
    UpdateAlerts(UpdateCheckerService& checker, QWidget& window);

private:
    void show();
    QMessageBox& open(const QString& title, const QString& text);
    void offer(const UpdateInfo& update);

    UpdateCheckerService& checker_;
    QWidget& window_;
    QPointer<QMessageBox> box_;
};

} // namespace tessary
