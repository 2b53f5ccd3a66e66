#pragma once

#include "app/TessaryApp.h"
#include "browser/model/FileBrowserViewModel.h"
#include "views/browser/BrowserView.h"

#include <QWidget>

#include <cstdint>

namespace tessary {

class StatusBanner;

/// A folder of this computer, beside the phone's files: what is dragged or pasted from one to the
/// other is copied.
class LocalPane : public QWidget {
    Q_OBJECT

public:
    /// The folder that is shown where no other is given, in the user's settings.
    static constexpr QLatin1StringView folderKey{"Tessary_LocalFolder"};

    /// `app` must outlive it. Begins in `folder`, the last one that was shown where that is empty,
    /// and the user's home where there is none.
    LocalPane(TessaryApp& app, BrowserSetup setup, CopyDialogs dialogs, OpenLocalFile openLocalFile,
              const QString& folder);
    ~LocalPane() override;

    [[nodiscard]] FileBrowserViewModel& browser() {
        return browser_;
    }
    [[nodiscard]] BrowserView& view() {
        return *view_;
    }

private:
    void showProblem();
    void goElsewhere(const QString& path, const QString& instead);

    TessaryApp& app_;
    FileBrowserViewModel browser_;
    BrowserView* view_;
    StatusBanner* banner_;
    std::uint64_t number_ = 0; ///< of the folder gone to: an answer about an older one is dropped
};

} // namespace tessary
