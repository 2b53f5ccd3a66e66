#pragma once

#include "app/texts/ErrorText.h"
#include "browser/model/ImportViewModel.h"
#include "platform/settings/SettingsStore.h"
#include "transfer/staging/StagedFiles.h"

#include <QWidget>

#include <functional>

class QCheckBox;
class QLabel;
class QListView;
class QProgressBar;
class QPushButton;
class QStackedWidget;

namespace tessary {

class PhotoListModel;
class PlaceholderView;
class ThumbnailStore;

/// The page on which photos are imported: what is new, by days; what is chosen of it and where it
/// goes; how far the copy is, how it ended, and what can go from the phone then.
class ImportView : public QWidget {
    Q_OBJECT

public:
    /// All must outlive it.
    struct Setup {
        ImportViewModel& import;
        CopyQueue& queue;
        StagedFiles& copies;
        SettingsStore& defaults; ///< where the folder chosen last is kept
        std::function<void(const QString& path)> showInFolder;
    };

    explicit ImportView(const Setup& setup);

    /// How a removal ended.
    [[nodiscard]] static ErrorText removalText(const ImportRemoval& removal);

private:
    void showTexts();
    void show();
    void showChoice();
    void showCopy();
    void showEnd();
    void showRemoval();
    void showPlaceholder(const QString& icon, const QString& title, const QString& detail,
                         bool isBusy = false);
    void chooseFolder();
    void proceed();
    void askAndRemove();

    ImportViewModel& import_;
    CopyQueue& queue_;
    SettingsStore& defaults_;
    const std::function<void(const QString& path)> showInFolder_;
    QString folder_; ///< where the photos will go
    PhotoListModel* photos_;
    ThumbnailStore* thumbnails_;
    QLabel* title_;
    QCheckBox* all_;
    QStackedWidget* stack_;
    QListView* list_;
    PlaceholderView* placeholder_;
    QProgressBar* progress_;
    QLabel* count_;
    QPushButton* target_;
    QCheckBox* byDate_;
    QPushButton* leave_;
    QPushButton* proceed_;
};

} // namespace tessary
