#include "views/browser/CopyCommands.h"

#include "views/browser/ShownFolder.h"
#include "views/dialogs/ClashQuestion.h"
#include "views/dialogs/FolderChooser.h"

#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPointer>
#include <QStandardPaths>
#include <QUrl>

namespace tessary {

namespace {

BrowserCopies::Afterwards afterwards(EntryMimeData::Use use) {
    return use == EntryMimeData::Use::move ? BrowserCopies::Afterwards::removeSource
                                           : BrowserCopies::Afterwards::keepSource;
}

/// Whether another file manager means its files to be moved: by the word that GNOME's puts before
/// their addresses, or by KDE's mark.
bool wasCut(const QMimeData& data) {
    return data.data(QStringLiteral("x-special/gnome-copied-files")).startsWith("cut") ||
           data.data(QStringLiteral("application/x-kde-cutselection")).startsWith('1');
}

/// What was cut and has been taken is not there any more.
void clearCut() {
    QClipboard& clipboard = *QGuiApplication::clipboard();
    const QMimeData* held = clipboard.mimeData();
    const auto* entries = qobject_cast<const EntryMimeData*>(held);
    if (entries != nullptr ? entries->use() == EntryMimeData::Use::move
                           : held != nullptr && wasCut(*held))
        clipboard.clear();
}

} // namespace

CopyDialogs systemCopyDialogs() {
    return {[](QWidget* parent) {
                // A folder that is missing would be offered, and could not be chosen.
                const QString downloads =
                    QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
                return QFileDialog::getExistingDirectory(
                    parent, CopyCommands::tr("Copy to"),
                    QFileInfo::exists(downloads) ? downloads : QDir::homePath());
            },
            [](QWidget* parent) {
                return QFileDialog::getOpenFileNames(parent,
                                                     CopyCommands::tr("Copy Files to the Phone"));
            },
            [](QWidget* parent) {
                const QString folder = QFileDialog::getExistingDirectory(
                    parent, CopyCommands::tr("Copy a Folder to the Phone"));
                return folder.isEmpty() ? QStringList() : QStringList(folder);
            }};
}

CopyCommands::CopyCommands(FileBrowserViewModel& browser, CopyDialogs dialogs, QWidget& parent)
    : QObject(&parent), browser_(browser), dialogs_(std::move(dialogs)), parent_(parent) {}

void CopyCommands::downloadSelected() {
    QStringList ids;
    for (const FileItem& item : browser_.selection().entries())
        ids.append(item.id());
    if (ids.isEmpty())
        return;
    const ShownFolder asked(browser_);
    const QString target = dialogs_.chooseTargetFolder(&parent_);
    if (!target.isEmpty() && asked.isStillShown())
        browser_.copies().prepareDownload(ids, target, askAndCopy());
}

void CopyCommands::chooseAndUpload(CopyDialogs::ChooseSources CopyDialogs::*choose) {
    const ShownFolder asked(browser_);
    const QStringList sources = (dialogs_.*choose)(&parent_);
    if (!sources.isEmpty() && asked.isStillShown())
        upload(sources);
}

void CopyCommands::paste() {
    const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
    if (copied == nullptr || !browser_.files())
        return;
    if (const auto* entries = qobject_cast<const EntryMimeData*>(copied)) {
        take(*entries, {}, entries->use(), Origin::clipboard);
    } else {
        const auto use = wasCut(*copied) ? EntryMimeData::Use::move : EntryMimeData::Use::copy;
        const ShownFolder asked(browser_);
        QStringList paths;
        for (const QUrl& url : copied->urls()) // their program may have to be waited for
            if (url.isLocalFile())
                paths.append(url.toLocalFile());
        if (paths.isEmpty() || !asked.isStillShown())
            return;
        upload(paths, {}, use, Origin::clipboard);
    }
}

void CopyCommands::upload(const QStringList& paths, const QString& folder, EntryMimeData::Use use,
                          Origin origin) {
    if (!paths.isEmpty())
        browser_.copies().prepareUpload(paths, folder, askAndCopy(use, origin), afterwards(use));
}

void CopyCommands::take(const EntryMimeData& entries, const QString& folder, EntryMimeData::Use use,
                        Origin origin) {
    if (!browser_.files())
        return;
    if (use == EntryMimeData::Use::move && entries.identity() == browser_.files()->identity()) {
        browser_.changes().move(entries.items(),
                                folder.isEmpty() ? browser_.currentPath() : folder);
        if (origin == Origin::clipboard)
            clearCut();
    } else {
        browser_.copies().prepareTransfer(entries.files(), entries.items(), folder,
                                          askAndCopy(use, origin), afterwards(use));
    }
}

void CopyCommands::chooseFolderAndTake(EntryMimeData::Use use) {
    std::vector<FileItem> items = browser_.selection().entries();
    if (items.empty() || !browser_.files())
        return;
    const bool isMove = use == EntryMimeData::Use::move;
    const ShownFolder asked(browser_);
    FolderChooser chooser(browser_, isMove ? tr("Move to") : tr("Copy to"),
                          isMove ? tr("Move Here") : tr("Copy Here"), &parent_);
    const EntryMimeData entries(browser_.files(), std::move(items));
    if (chooser.exec() == QDialog::Accepted && asked.isStillShown())
        take(entries, chooser.folder(), use);
}

void CopyCommands::duplicate() {
    if (browser_.files())
        browser_.copies().prepareTransfer(browser_.files(), browser_.selection().entries(), {},
                                          askAndCopy());
}

/// Starts a copy once the user has answered what there is to ask about it.
BrowserCopies::Prepared CopyCommands::askAndCopy(EntryMimeData::Use use, Origin origin) {
    const bool isCut = use == EntryMimeData::Use::move && origin == Origin::clipboard;
    return [self = QPointer<CopyCommands>(this), isCut](const PreparedCopy& copy) {
        if (!self)
            return;
        const auto answers = askAboutClashes(&self->parent_, copy);
        if (!answers || !self || !askAboutSpace(&self->parent_, copy, *answers) || !self)
            return;
        self->browser_.copies().start(copy, *answers);
        if (isCut)
            clearCut();
    };
}

} // namespace tessary
