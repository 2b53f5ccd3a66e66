#include "views/browser/CopyCommands.h"

#include "browser/listing/EntryMimeData.h"
#include "views/browser/ShownFolder.h"
#include "views/dialogs/ClashQuestion.h"

#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>
#include <QPointer>
#include <QStandardPaths>
#include <QUrl>

namespace tessary {

CopyDialogs systemCopyDialogs() {
    return {[](QWidget* parent) {
                return QFileDialog::getExistingDirectory(
                    parent, CopyCommands::tr("Copy to"),
                    QStandardPaths::writableLocation(QStandardPaths::DownloadLocation));
            },
            [](QWidget* parent) {
                return QFileDialog::getOpenFileNames(parent,
                                                     CopyCommands::tr("Copy Files to the Phone"));
            },
            [](QWidget* parent) {
                return QFileDialog::getExistingDirectory(
                    parent, CopyCommands::tr("Copy a Folder to the Phone"));
            }};
}

CopyCommands::CopyCommands(FileBrowserViewModel& browser, CopyDialogs dialogs, QWidget& parent)
    : QObject(&parent), browser_(browser), dialogs_(std::move(dialogs)), parent_(parent) {}

void CopyCommands::downloadSelected() {
    QStringList ids;
    for (const FileItem& item : browser_.selectedEntries())
        ids.append(item.id());
    if (ids.isEmpty())
        return;
    const ShownFolder asked(browser_);
    const QString target = dialogs_.chooseTargetFolder(&parent_);
    if (!target.isEmpty() && asked.isStillShown())
        browser_.copies().prepareDownload(ids, target, askAndCopy());
}

void CopyCommands::chooseAndUploadFiles() {
    const ShownFolder asked(browser_);
    const QStringList files = dialogs_.chooseFiles(&parent_);
    if (!files.isEmpty() && asked.isStillShown())
        upload(files);
}

void CopyCommands::chooseAndUploadFolder() {
    const ShownFolder asked(browser_);
    const QString folder = dialogs_.chooseFolder(&parent_);
    if (!folder.isEmpty() && asked.isStillShown())
        upload({folder});
}

void CopyCommands::paste() {
    const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
    const auto* entries = qobject_cast<const EntryMimeData*>(copied);
    const bool isOwn = entries != nullptr && browser_.files() != nullptr &&
                       entries->identity() == browser_.files()->identity();
    if (copied == nullptr || isOwn)
        return;
    const ShownFolder asked(browser_);
    QStringList paths;
    for (const QUrl& url : copied->urls())
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    if (!paths.isEmpty() && asked.isStillShown())
        upload(paths);
}

void CopyCommands::upload(const QStringList& paths, const QString& intoFolderId) {
    if (!paths.isEmpty())
        browser_.copies().prepareUpload(paths, intoFolderId, askAndCopy());
}

/// Starts a copy once the user has answered what there is to ask about it.
BrowserCopies::Prepared CopyCommands::askAndCopy() {
    return [self = QPointer<CopyCommands>(this)](const PreparedCopy& copy) {
        if (!self)
            return;
        const auto answers = askAboutClashes(&self->parent_, copy);
        if (answers && self && askAboutSpace(&self->parent_, copy, *answers) && self)
            self->browser_.copies().start(copy, *answers);
    };
}

} // namespace tessary
