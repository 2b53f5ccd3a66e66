#include "views/tabs/WindowPages.h"

#include "app/texts/ErrorText.h"
#include "views/common/PlaceholderView.h"

namespace tessary {

WindowPages::WindowPages(const Pages& pages, TessaryApp& app, FileBrowserViewModel& browser,
                         const PhoneChoice& choice, WindowBanner& banner)
    : pages_(pages),
      notice_(new PlaceholderView),
      app_(app),
      browser_(browser),
      choice_(choice),
      banner_(banner) {
    for (QWidget* page : {pages.welcome, pages.phone, static_cast<QWidget*>(notice_), pages.apps,
                          pages.files, pages.import})
        addWidget(page);
}

QWidget* WindowPages::wanted() {
    const auto& active = browser_.activeDevice();
    const bool isLost = browser_.state() == BrowserState::deviceLost;
    if (app_.deviceManager().devices().empty() && (!active || isLost))
        return pages_.welcome;
    if (choice_.isImporting())
        return pages_.import;
    if (choice_.isChoosingApp() && choice_.device())
        return pages_.apps;
    if (choice_.isAtPhone() && !isLost)
        return pages_.phone;
    if (active && !isLost && active->isLocked && !app_.deviceManager().trouble(active->id())) {
        notice_->show(QStringLiteral("object-locked"), tr("This phone is locked"),
                      tr("It shows its files once you unlock it and choose “File transfer” in its "
                         "USB notification. This window follows by itself."));
        return notice_;
    }
    if (const auto trouble = banner_.troubleInTheWay()) {
        const ErrorText words = errorText(trouble->error);
        notice_->show(QStringLiteral("dialog-warning"), words.what, words.advice,
                      trouble->isHeld() ? tr("Release the Phone") : QString(),
                      [this] { banner_.releaseDevice(); });
        notice_->setDetails(words.details);
        return notice_;
    }
    return pages_.files;
}

QSize WindowPages::minimumSizeHint() const {
    const QWidget& page = *currentWidget();
    return page.minimumSizeHint().expandedTo(page.minimumSize());
}

void WindowPages::update(const std::function<bool(const QWidget&)>& keepsKeys) {
    const QWidget* before = currentWidget();
    setCurrentWidget(wanted());
    updateGeometry();
    if (before == currentWidget())
        return;
    const QWidget* focus = window()->focusWidget();
    if (focus != nullptr && keepsKeys(*focus) && wasFocused_)
        return;
    wasFocused_ = wasFocused_ || currentWidget() == pages_.files;
    currentWidget()->setFocus();
}

} // namespace tessary
