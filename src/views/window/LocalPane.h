#pragma once

#include "app/TessaryApp.h"
#include "browser/model/FileBrowserViewModel.h"
#include "views/browser/BrowserView.h"

#include <QWidget>

namespace tessary {

class StatusBanner;

/// A folder of this computer, beside the phone's files: what is dragged or pasted from one to the
/// other is copied.
class LocalPane : public QWidget {
    Q_OBJECT

public:
    /// The folder that is shown at first, in the user's settings; his home where it is gone.
    static constexpr QLatin1StringView folderKey{"Tessary_LocalFolder"};
    static constexpr QLatin1StringView columnsKey{"Tessary_LocalColumns"};

    /// `app` must outlive it.
    LocalPane(TessaryApp& app, BrowserSetup setup, CopyDialogs dialogs,
              OpenLocalFile openLocalFile);
    ~LocalPane() override;

    [[nodiscard]] FileBrowserViewModel& browser() {
        return browser_;
    }
    [[nodiscard]] BrowserView& view() {
        return *view_;
    }

private:
    void keepColumns();
    void showProblem();

    TessaryApp& app_;
    FileBrowserViewModel browser_;
    BrowserView* view_;
    StatusBanner* banner_;
};

} // namespace tessary
