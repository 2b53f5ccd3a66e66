#include "views/dialogs/FolderChooser.h"

#include "app/texts/DisplayNames.h"
#include "app/texts/ErrorText.h"
#include "base/text/PathNames.h"
#include "base/text/Printable.h"
#include "base/threads/Background.h"
#include "base/threads/CancellationError.h"
#include "views/common/Icons.h"
#include "views/common/Layouts.h"
#include "views/common/PlainText.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace tessary {

namespace {

constexpr int nameRole = Qt::UserRole;

} // namespace

FolderChooser::FolderChooser(FileBrowserViewModel& browser, const QString& title,
                             const QString& acceptText, QWidget* parent)
    : QDialog(parent),
      browser_(browser),
      files_(browser.files()),
      storages_(new QComboBox),
      up_(new QToolButton),
      path_(new QLabel),
      list_(new QListWidget),
      note_(new QLabel) {
    setObjectName(QStringLiteral("folderChooser"));
    setWindowTitle(title);
    resize(460, 440);
    storages_->setAccessibleName(tr("Storage"));
    up_->setIcon(icon("go-up"));
    up_->setAutoRaise(true);
    setName(*up_, tr("Parent Folder"));
    path_->setTextFormat(Qt::PlainText);
    path_->setFont(demiBold(path_->font()));
    path_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    list_->setObjectName(QStringLiteral("folderChooserList"));
    list_->setAccessibleName(tr("Folders"));
    list_->setIconSize({24, 24});
    list_->setUniformItemSizes(true);
    list_->setTextElideMode(Qt::ElideMiddle);
    list_->installEventFilter(this);
    note_->setForegroundRole(QPalette::PlaceholderText);
    note_->setTextFormat(Qt::PlainText);
    note_->setWordWrap(true);

    auto* where = new QHBoxLayout;
    where->addWidget(storages_);
    where->addWidget(up_);
    where->addWidget(path_, 1);
    auto* buttons = new QDialogButtonBox;
    QPushButton* newFolder = buttons->addButton(tr("New Folder…"), QDialogButtonBox::ActionRole);
    newFolder->setAutoDefault(false);
    buttons->addButton(acceptText, QDialogButtonBox::AcceptRole)->setDefault(true);
    buttons->addButton(QDialogButtonBox::Cancel);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 14);
    column->setSpacing(10);
    column->addLayout(where);
    column->addWidget(list_, 1);
    column->addWidget(note_);
    column->addWidget(buttons);

    connect(up_, &QToolButton::clicked, this, &FolderChooser::goUp);
    connect(list_, &QListWidget::itemDoubleClicked, this, &FolderChooser::enter);
    connect(newFolder, &QPushButton::clicked, this, &FolderChooser::makeFolder);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] {
        // The folder that is marked is meant, not the one around it.
        if (const QListWidgetItem* chosen = list_->currentItem();
            chosen != nullptr && chosen->isSelected())
            folder_ = joinPath(folder_, chosen->data(nameRole).toString());
        accept();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    listStorages();
    show(browser.currentPath());
    list_->setFocus();
}

FolderChooser::~FolderChooser() {
    stop_.request_stop();
}

void FolderChooser::listStorages() {
    const auto& device = browser_.activeDevice();
    if (device && device->platform == DevicePlatform::android)
        for (std::size_t i = 0; i < device->volumes.size(); ++i) {
            const StorageVolume& volume = device->volumes[i];
            storages_->addItem(
                printable(volume.name.isEmpty() ? volume.id : placeDisplayName(volume.name)),
                files_->canonicalPath(i == 0 ? QStringLiteral("/sdcard")
                                             : QStringLiteral("/storage/") + volume.id));
        }
    storages_->setVisible(storages_->count() > 1);
    storages_->setCurrentIndex(storages_->findData(files_->rootOf(browser_.currentPath()).path));
    connect(storages_, &QComboBox::activated, this, [this] {
        show(storages_->currentData().toString());
        list_->setFocus();
    });
}

void FolderChooser::show(const QString& folder, const Marked& marked) {
    folder_ = folder;
    const FileTreeRoot root = files_->rootOf(folder);
    up_->setEnabled(folder != root.path);
    const QString below = folder.mid(root.path.size());
    const QString steps = printable(below).replace(QLatin1Char('/'), QStringLiteral(" › "));
    const bool namesRoot = storages_->count() <= 1; // else they do
    path_->setText(namesRoot ? printable(placeDisplayName(root.name)) + steps
                             : steps.mid(steps.startsWith(QLatin1Char(' ')) ? 1 : 0));
    path_->setToolTip(plainToolTip(printable(folder)));
    list_->clear();
    note_->setText(tr("reading…"));
    stop_.request_stop();
    stop_ = runInBackground(
        this,
        [files = files_, folder](const std::stop_token& stop) {
            return listAll(*files, folder, stop);
        },
        [this, number = ++number_, marked](BackgroundResult<Listing> result) {
            if (number != number_)
                return;
            try {
                take(result.take(), marked);
            } catch (const CancellationError&) {
                return;
            } catch (const Error& error) {
                note_->setText(errorText(error).text());
            }
        });
}

void FolderChooser::take(const Listing& listing, const Marked& marked) {
    std::vector<FileItem> folders;
    for (const FileItem& item : listing.items)
        if (item.isDirectory && (browser_.showsHidden() || !item.name.startsWith(QLatin1Char('.'))))
            folders.push_back(item);
    const auto listed = FileListing::make(std::move(folders), QLocale());
    for (const int index : listed->ordered({})) {
        const QString& name = listed->item(index).name;
        auto* row = new QListWidgetItem(fileIcon(QStringLiteral("folder")), printable(name));
        row->setData(nameRole, name);
        list_->addItem(row);
        if (name == marked.name)
            list_->setCurrentItem(row, marked.isSelected ? QItemSelectionModel::ClearAndSelect
                                                         : QItemSelectionModel::NoUpdate);
    }
    note_->setText(list_->count() == 0 ? tr("No folders in here.") : QString());
}

void FolderChooser::enter() {
    if (const QListWidgetItem* chosen = list_->currentItem())
        show(joinPath(folder_, chosen->data(nameRole).toString()));
}

void FolderChooser::goUp() {
    if (up_->isEnabled())
        show(parentPath(folder_), {lastComponent(folder_), false});
}

void FolderChooser::makeFolder() {
    const QString name =
        QInputDialog::getText(this, tr("New Folder"), tr("Name of the new folder:"),
                              QLineEdit::Normal, freeFolderName({}))
            .trimmed();
    if (name.isEmpty())
        return;
    runInBackground(
        this,
        [files = files_, folder = folder_, name](const std::stop_token& stop) {
            return files->makeFolder(folder, name, stop);
        },
        [this, folder = folder_](BackgroundResult<FileItem> result) {
            if (folder != folder_)
                return;
            try {
                show(folder, {result.take().name, true});
            } catch (const CancellationError&) {
                return;
            } catch (const Error& error) {
                note_->setText(errorText(error).text());
            }
        });
}

/// Arrow keys walk the tree; Return is the button's.
bool FolderChooser::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        const bool isBack = key.key() == Qt::Key_Backspace || key.key() == Qt::Key_Left ||
                            (key.key() == Qt::Key_Up && key.modifiers() == Qt::AltModifier);
        if (isBack) {
            goUp();
            return true;
        }
        if (key.key() == Qt::Key_Right) {
            enter();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace tessary
