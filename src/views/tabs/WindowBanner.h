#pragma once

#include "app/TessaryApp.h"
#include "views/common/StatusBanner.h"
#include "views/tabs/GeneralNotices.h"
#include "views/tabs/PhoneChoice.h"

#include <optional>

namespace tessary {

/// The banner of a window with what stands in the way: a trouble of the phone, what went wrong in
/// the browser, or a notice that is no matter of the phone.
class WindowBanner : public StatusBanner {
    Q_OBJECT

public:
    /// All must outlive it.
    struct Parts {
        TessaryApp& app;
        FileBrowserViewModel& browser;
        GeneralNotices& notices;
        const PhoneChoice& choice;
    };

    explicit WindowBanner(Parts parts);

    /// What keeps the files of the phone from being shown at all; then it stands in their place,
    /// and not in the banner.
    [[nodiscard]] std::optional<DeviceTrouble> troubleInTheWay() const;
    /// Shows what there is to say now. To be called when the phone or its trouble, what is shown of
    /// it or the browser's state have changed; the rest it follows by itself.
    void update();

private:
    void showTrouble(const DeviceTrouble& trouble);
    void showProblem(const BrowserProblem& problem);

    const Parts parts_;
};

} // namespace tessary
