#include "views/tabs/WindowBanner.h"

#include "app/texts/ErrorText.h"
#include "views/common/ProblemText.h"

namespace tessary {

WindowBanner::WindowBanner(Parts parts) : parts_(parts) {
    FileBrowserViewModel& browser = parts.browser;
    connect(&browser, &FileBrowserViewModel::problemChanged, this, &WindowBanner::update);
    connect(&parts.notices, &GeneralNotices::changed, this, &WindowBanner::update);
    // What went wrong before counts no more once something has worked.
    const auto dismissOld = [&browser] {
        if (!browser.isProblemOfLoad())
            browser.dismissProblem();
    };
    connect(&browser, &FileBrowserViewModel::folderCreated, this, dismissOld);
    connect(&browser, &FileBrowserViewModel::itemRenamed, this, dismissOld);
    connect(&browser, &FileBrowserViewModel::itemsDeleted, this, dismissOld);
}

std::optional<DeviceTrouble> WindowBanner::troubleInTheWay() const {
    const auto& active = parts_.browser.activeDevice();
    return active && parts_.browser.state() == BrowserState::failed
               ? parts_.app.deviceManager().trouble(active->id())
               : std::nullopt;
}

void WindowBanner::update() {
    // What keeps the apps from being listed stands where they would be; the phone's own page says
    // what is the matter with it.
    const bool isAtPhone = parts_.choice.isAtPhone();
    const bool saysSoItself = parts_.choice.isChoosingApp() || isAtPhone;
    if (!saysSoItself && troubleInTheWay()) {
        clear(); // the page says so
        return;
    }
    const auto& active = parts_.browser.activeDevice();
    const auto trouble =
        active && !saysSoItself ? parts_.app.deviceManager().trouble(active->id()) : std::nullopt;
    // A folder that could not be read says so where the files would be.
    const bool isReady = parts_.browser.state() == BrowserState::ready;
    if (trouble)
        showTrouble(*trouble);
    else if (const auto& problem = parts_.browser.problem();
             problem && isReady && !(isAtPhone && parts_.browser.isProblemOfLoad()))
        showProblem(*problem);
    else if (const auto notice = parts_.notices.current(parts_.browser.files() && isReady, *this))
        show(*notice);
    else
        clear();
}

void WindowBanner::showTrouble(const DeviceTrouble& trouble) {
    BannerMessage message{.kind = BannerMessage::Kind::warning,
                          .words = errorText(trouble.error),
                          .canBeClosed = false};
    if (trouble.isHeld())
        message.actions.push_back(
            {tr("Release the Phone"), [this] { parts_.notices.releaseDevice(*this); }});
    show(message);
}

void WindowBanner::showProblem(const BrowserProblem& problem) {
    BannerMessage message{.kind = BannerMessage::Kind::error, .words = problemText(problem)};
    if (parts_.browser.isProblemOfLoad())
        message.actions.push_back({tr("Retry"), [this] {
                                       parts_.browser.dismissProblem();
                                       parts_.browser.reload();
                                   }});
    show(message);
}

} // namespace tessary
