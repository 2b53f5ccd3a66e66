#pragma once

#include "browser/listing/EntryMimeData.h"
#include "browser/model/FileBrowserViewModel.h"

#include <QObject>

#include <functional>

class QWidget;

namespace tessary {

/// Asks the user for a local folder, or for local files or a folder; empty when he declined.
struct CopyDialogs {
    using ChooseSources = std::function<QStringList(QWidget*)>;

    std::function<QString(QWidget*)> chooseTargetFolder;
    ChooseSources chooseFiles;
    ChooseSources chooseFolder;
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
    void chooseAndUpload(CopyDialogs::ChooseSources CopyDialogs::*choose);
    /// Copies what is on the clipboard into the folder shown, or moves it there when it was cut:
    /// entries of any phone, and files of this computer.
    void paste();
    /// Where what is taken comes from: what was cut leaves the clipboard once it is on its way.
    enum class Origin { other, clipboard };
    /// Into a folder of the phone; the one shown when it is empty.
    void upload(const QStringList& paths, const QString& folder = {},
                EntryMimeData::Use use = EntryMimeData::Use::copy, Origin origin = Origin::other);
    /// A phone's entries into a folder of the one shown. A move within it is made by the phone
    /// itself.
    void take(const EntryMimeData& entries, const QString& folder, EntryMimeData::Use use,
              Origin origin = Origin::other);
    /// Asks for a folder of this phone, and copies or moves the selected entries there.
    void chooseFolderAndTake(EntryMimeData::Use use);
    /// Copies of the selected entries, beside them.
    void duplicate();

private:
    [[nodiscard]] BrowserCopies::Prepared
    askAndCopy(EntryMimeData::Use use = EntryMimeData::Use::copy, Origin origin = Origin::other);

    FileBrowserViewModel& browser_;
    const CopyDialogs dialogs_;
    QWidget& parent_;
};

} // namespace tessary
