#include "views/dialogs/UpdateAlerts.h"

#include "app/LanguageManager.h"
#include "app/Translations.h"
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
    QMenu* help = menus.addMenu(QString());
    QAction* check = help->addAction(QString(), this, [this] { checker_.checkForUpdates(true); });
    check->setMenuRole(QAction::ApplicationSpecificRole);
    keepTranslated(help, [help, check] {
        help->setTitle(tessary::tr("Help"));
        check->setText(tessary::tr("settings.checkUpdates"));
    });
    connect(&checker_, &UpdateCheckerService::stateChanged, check,
            [this, check] { check->setEnabled(!checker_.isChecking()); });
}

void UpdateAlerts::show() {
    if (box_)
        return;
    if (const auto& failure = checker_.checkErrorMessage()) {
        QMessageBox& box = tell(tessary::tr("Update Check Failed"), trMessage(*failure));
        connect(&box, &QMessageBox::finished, this, [this] { checker_.dismissError(); });
    } else if (checker_.showUpToDateAlert()) {
        QMessageBox& box = tell(QStringLiteral("Tessary"),
                                QStringLiteral("Tessary v") + checker_.currentVersion() +
                                    tessary::tr(" is currently the newest version."));
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
    box.addButton(tessary::tr("OK"), QMessageBox::AcceptRole);
    box.open();
    return box;
}

void UpdateAlerts::offer(const UpdateInfo& update) {
    QString notes = update.releaseNotes.trimmed().left(longestNotes);
    if (notes.isEmpty())
        notes = tessary::tr("A new version of Tessary is available.");
    QMessageBox& box =
        newBox(tessary::tr("Tessary %1 is available").arg(printable(update.version)), notes);
    const QPushButton* download =
        box.addButton(tessary::tr("browser.download"), QMessageBox::AcceptRole);
    const QPushButton* skip =
        update.mandatory ? nullptr
                         : box.addButton(tessary::tr("Skip This Version"), QMessageBox::ActionRole);
    box.setEscapeButton(box.addButton(tessary::tr("Later"), QMessageBox::RejectRole));
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
