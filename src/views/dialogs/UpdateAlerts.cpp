#include "views/dialogs/UpdateAlerts.h"

#include "app/LanguageManager.h"
#include "app/texts/ErrorText.h"
#include "base/text/Printable.h"
#include "views/common/PlainText.h"

#include <QMenuBar>
#include <QPushButton>

namespace tessary {

namespace {

constexpr int longestNotes = 1500; // they come from a server

} // namespace

UpdateAlerts::UpdateAlerts(UpdateCheckerService& checker, QWidget& window)
    : checker_(checker), window_(window) {
    connect(&checker, &UpdateCheckerService::stateChanged, this, &UpdateAlerts::show);
}

void UpdateAlerts::addCommand(QMenuBar& menus) {
    if (!checker_.canCheck())
        return;
    auto* help = menus.findChild<QMenu*>(QStringLiteral("helpMenu"));
    if (help == nullptr)
        return;
    QAction* check = help->addAction(QString(), this, [this] { checker_.checkForUpdates(true); });
    check->setMenuRole(QAction::ApplicationSpecificRole);
    keepTranslated(help, [check] { check->setText(tr("Check for Updates…")); });
    connect(&checker_, &UpdateCheckerService::stateChanged, check,
            [this, check] { check->setEnabled(!checker_.isChecking()); });
}

void UpdateAlerts::show() {
    if (box_)
        return;
    if (const auto& failure = checker_.checkFailure()) {
        QMessageBox& box = tell(tr("Update Check Failed"), errorText(*failure).text());
        connect(&box, &QMessageBox::finished, this, [this] { checker_.dismissError(); });
    } else if (checker_.showUpToDateAlert()) {
        QMessageBox& box =
            tell(QStringLiteral("Tessary"),
                 tr("Tessary v%1 is currently the newest version.").arg(checker_.currentVersion()));
        connect(&box, &QMessageBox::finished, this, [this] { checker_.dismissUpToDateAlert(); });
    } else if (const auto& update = checker_.availableUpdate()) {
        offer(*update);
    }
}

QMessageBox& UpdateAlerts::newBox(const QString& title, const QString& text) {
    box_ = new QMessageBox(QMessageBox::NoIcon, title, title, QMessageBox::NoButton, &window_);
    box_->setAttribute(Qt::WA_DeleteOnClose);
    box_->setObjectName(QStringLiteral("updateAlert"));
    box_->setInformativeText(text);
    // Put away first: what is told next may need a box of its own.
    connect(box_, &QMessageBox::finished, this, [this] { box_ = nullptr; });
    makePlain(*box_);
    return *box_;
}

QMessageBox& UpdateAlerts::tell(const QString& title, const QString& text) {
    QMessageBox& box = newBox(title, text);
    box.addButton(tr("OK"), QMessageBox::AcceptRole);
    box.open();
    return box;
}

void UpdateAlerts::offer(const UpdateInfo& update) {
    QString notes = update.releaseNotes.trimmed().left(longestNotes);
    if (notes.isEmpty())
        notes = tr("A new version of Tessary is available.");
    QMessageBox& box = newBox(tr("Tessary %1 is available").arg(printable(update.version)), notes);
    const QPushButton* download = box.addButton(tr("Download"), QMessageBox::AcceptRole);
    const QPushButton* skip = update.mandatory
                                  ? nullptr
                                  : box.addButton(tr("Skip This Version"), QMessageBox::ActionRole);
    box.setEscapeButton(box.addButton(tr("Later"), QMessageBox::RejectRole));
    connect(&box, &QMessageBox::finished, this, [this, &box, download, skip, update] {
        const QAbstractButton* clicked = box.clickedButton();
        if (clicked != nullptr && clicked == skip)
            checker_.skipVersion(update.version);
        else
            checker_.dismissUpdate();
        if (clicked == download)
            checker_.openHomepage(update.downloadUrl);
    });
    box.open();
}

} // namespace tessary
