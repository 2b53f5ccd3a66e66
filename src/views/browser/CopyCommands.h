#pragma once

#include "browser/model/FileBrowserViewModel.h"

#include <QObject>

#include <functional>

class QWidget;

namespace tessary {

/// Asks the user for a local folder, or for local files or a folder; empty when he declined.
struct CopyDialogs {
    std::function<QString(QWidget*)> chooseTargetFolder;
    std::function<QStringList(QWidget*)> chooseFiles;
    std::function<QString(QWidget*)> chooseFolder;
};
[[nodiscard]] CopyDialogs systemCopyDialogs();

/// Copies to and from the phone that the user asks for: where to, what to do about names that are
/// taken and about room, and then the queue. On the main thread.
class CopyCommands : public QObject {
    Q_OBJECT

public:
    /// Both must outlive it; questions stand in front of `parent`.
    CopyCommands(FileBrowserViewModel& browser, CopyDialogs dialogs, QWidget& parent);

    void downloadSelected();
    void chooseAndUploadFiles();
    void chooseAndUploadFolder();
    /// Copies the files on the clipboard into the folder shown: those of this computer, and those
    /// of another phone. What is on this phone itself is left alone: it cannot be read while it is
    /// written to.
    void paste();
    /// Into the folder shown, or into one of its folders.
    void upload(const QStringList& paths, const QString& intoFolderId = {});

private:
    [[nodiscard]] BrowserCopies::Prepared askAndCopy();

    FileBrowserViewModel& browser_;
    const CopyDialogs dialogs_;
    QWidget& parent_;
};

} // namespace tessary
