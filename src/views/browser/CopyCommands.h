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
    /// Into the folder shown, or into one of its folders.
    void upload(const QStringList& paths, const QString& intoFolderId = {});

private:
    [[nodiscard]] FileBrowserViewModel::SurveyDone askAndCopy();

    FileBrowserViewModel& browser_;
    const CopyDialogs dialogs_;
    QWidget& parent_;
};

} // namespace tessary
