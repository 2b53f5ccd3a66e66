#include "views/dialogs/HelpDialog.h"

#include "views/common/Layouts.h"
#include "views/common/PlainText.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTabWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace tessary {

namespace {

QWidget* firstSteps() {
    const QStringList steps{
        HelpDialog::tr("Plug the phone in and unlock it. On an Android phone choose “File "
                       "transfer” in its USB notification; on an iPhone tap “Trust”."),
        HelpDialog::tr("Drag files out of the window to copy them here, and into it to copy them "
                       "to the phone."),
        HelpDialog::tr("F3 shows a folder of this computer beside the phone's: drag or paste from "
                       "one to the other."),
        HelpDialog::tr("“Import Photos…” fetches what is new on the camera, and “Sync” keeps a "
                       "folder here and one on the phone the same."),
        HelpDialog::tr("While files are dragged, Ctrl copies, Shift moves and Alt asks."),
    };
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(20, 18, 20, 18);
    column->setSpacing(12);
    for (qsizetype i = 0; i < steps.size(); ++i) {
        auto* step = new QLabel(QStringLiteral("%1.  %2").arg(i + 1).arg(steps[i]));
        step->setWordWrap(true);
        column->addWidget(step);
    }
    column->addStretch(1);
    return page;
}

QTreeWidget* keysOf(const QMenuBar& menus) {
    auto* keys = new QTreeWidget;
    keys->setObjectName(QStringLiteral("helpKeys"));
    keys->setAccessibleName(HelpDialog::tr("Shortcuts"));
    keys->setColumnCount(2);
    keys->setHeaderHidden(true);
    keys->setRootIsDecorated(false);
    keys->setFrameShape(QFrame::NoFrame);
    for (const QAction* title : menus.actions()) {
        if (title->menu() == nullptr)
            continue;
        auto* group = new QTreeWidgetItem(keys, {withoutMnemonic(title->text())});
        group->setFont(0, demiBold(keys->font()));
        for (const QAction* command : title->menu()->actions()) {
            QStringList sequences;
            for (const QKeySequence& sequence : command->shortcuts())
                sequences << sequence.toString(QKeySequence::NativeText);
            if (!sequences.isEmpty())
                new QTreeWidgetItem(group, {withoutMnemonic(command->text()),
                                            sequences.join(QStringLiteral(",  "))});
        }
        if (group->childCount() == 0)
            delete group;
    }
    keys->expandAll();
    keys->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    keys->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    keys->header()->setStretchLastSection(false);
    return keys;
}

} // namespace

HelpDialog::HelpDialog(const QMenuBar& menus, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("helpDialog"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Help"));
    resize(560, 480);
    auto* tabs = new QTabWidget;
    tabs->addTab(firstSteps(), tr("First Steps"));
    tabs->addTab(keysOf(menus), tr("Shortcuts"));
    tabs->setAccessibleName(tr("Help"));
    tabs->tabBar()->setAccessibleName(tr("Help"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    auto* column = new QVBoxLayout(this);
    column->addWidget(tabs, 1);
    column->addWidget(buttons);
    makePlain(*this);
}

} // namespace tessary
