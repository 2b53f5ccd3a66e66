#pragma once

#include "views/common/PageStack.h"
#include "views/tabs/PhoneChoice.h"
#include "views/tabs/WindowBanner.h"

#include <functional>

namespace tessary {

class PlaceholderView;

/// The pages of a window: the welcome, the phone itself, what keeps a phone's files from being
/// shown, its apps, the import, and the files. It shows the one that is meant.
class WindowPages : public PageStack {
    Q_OBJECT

public:
    /// The pages that are made elsewhere; it takes them over.
    struct Pages {
        QWidget* welcome;
        QWidget* phone;
        QWidget* apps;
        QWidget* files;
        QWidget* import;
    };

    /// The rest must outlive it.
    WindowPages(const Pages& pages, TessaryApp& app, FileBrowserViewModel& browser,
                const PhoneChoice& choice, WindowBanner& banner);

    /// Shows what is meant now. The keys go along, unless they are at work elsewhere (`keepsKeys`
    /// of the widget that has them) and were with the files before.
    void update(const std::function<bool(const QWidget&)>& keepsKeys);
    /// Of the page that is shown: the others need no room.
    [[nodiscard]] QSize minimumSizeHint() const override;

private:
    [[nodiscard]] QWidget* wanted();

    const Pages pages_;
    PlaceholderView* notice_;
    TessaryApp& app_;
    FileBrowserViewModel& browser_;
    const PhoneChoice& choice_;
    WindowBanner& banner_;
    bool wasFocused_ = false; ///< the files had the keys once
};

} // namespace tessary
