#pragma once

#include "browser/model/FileBrowserViewModel.h"

#include <QDialog>

#include <cstdint>
#include <memory>
#include <stop_token>

class QComboBox;
class QLabel;
class QListWidget;
class QToolButton;

namespace tessary {

/// Asks for a folder of the phone that a browser shows: the folders of one are listed, from the one
/// shown on. On the main thread.
class FolderChooser : public QDialog {
    Q_OBJECT

public:
    /// `acceptText` is what the button says that ends it ("Move Here"). `browser` must outlive it.
    FolderChooser(FileBrowserViewModel& browser, const QString& title, const QString& acceptText,
                  QWidget* parent);
    ~FolderChooser() override;

    /// The folder that was chosen.
    [[nodiscard]] const QString& folder() const {
        return folder_;
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// What becomes of a row: only one that is selected is meant by the button.
    struct Marked {
        QString name;
        bool isSelected;
    };
    void show(const QString& folder, const Marked& marked = {});
    void take(const Listing& listing, const Marked& marked);
    void enter();
    void goUp();
    void makeFolder();
    void listStorages();

    const FileBrowserViewModel& browser_;
    const std::shared_ptr<PhoneFileSystem> files_; ///< however the browser goes on
    QString folder_;
    std::uint64_t number_ = 0; ///< answers about older folders are dropped
    std::stop_source stop_{std::nostopstate};

    QComboBox* storages_;
    QToolButton* up_;
    QLabel* path_;
    QListWidget* list_;
    QLabel* note_;
};

} // namespace tessary
