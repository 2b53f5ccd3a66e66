#include "views/window/LocalPane.h"

#include "app/texts/ProblemText.h"
#include "transfer/local/LocalFileSystem.h"
#include "views/common/Layouts.h"
#include "views/common/StatusBanner.h"
#include "views/common/TableColumns.h"
#include "views/common/WindowStateStore.h"

#include <QDir>
#include <QVBoxLayout>

#include <utility>

namespace tessary {

LocalPane::LocalPane(TessaryApp& app, BrowserSetup setup, CopyDialogs dialogs,
                     OpenLocalFile openLocalFile)
    : app_(app),
      browser_(app.copyQueue(), std::move(setup)),
      view_(new BrowserView(browser_, std::move(dialogs), std::move(openLocalFile))),
      banner_(new StatusBanner) {
    setObjectName(QStringLiteral("localPane"));
    auto* column = makeColumn(*this);
    column->addWidget(view_, 1);
    column->addWidget(banner_);
    setMinimumWidth(260);
    view_->becomeLocal();
    connect(&browser_, &FileBrowserViewModel::problemChanged, this, &LocalPane::showProblem);
    connect(&browser_, &FileBrowserViewModel::stateChanged, this, &LocalPane::showProblem);
    connect(&browser_, &FileBrowserViewModel::pathChanged, this,
            [this] { app_.defaults().setValue(folderKey, browser_.currentPath()); });
    keepColumns();
    const QString home = QDir::homePath();
    QString folder = QDir::cleanPath(app.defaults().value(folderKey).toString(home));
    if (!QDir::isAbsolutePath(folder) || !QDir(folder).exists())
        folder = home;
    // Folders outside of the home are their own top.
    const bool isInHome = folder == home || folder.startsWith(home + QLatin1Char('/'));
    browser_.open(std::make_shared<LocalFileSystem>(isInHome ? home : folder), std::nullopt,
                  folder);
}

/// Its own, and not those of the phone beside it, which has other room.
void LocalPane::keepColumns() {
    const auto isKept = [this] {
        return !app_.defaults().value(WindowStateStore::isOffKey).toBool();
    };
    TableColumns& columns = view_->columns();
    if (isKept())
        columns.restore(app_.defaults().value(columnsKey).toObject());
    connect(&columns, &TableColumns::choicesChanged, this, [this, isKept, &columns] {
        if (isKept())
            app_.defaults().setValue(columnsKey, columns.choices());
    });
}

LocalPane::~LocalPane() {
    browser_.disconnect(this);
    delete view_; // it shows what the browser has
}

void LocalPane::showProblem() {
    const auto& problem = browser_.problem();
    if (!problem || browser_.state() != BrowserState::ready) {
        banner_->clear();
        return;
    }
    const ErrorText words = problemText(*problem);
    BannerMessage message;
    message.kind = BannerMessage::Kind::error;
    message.text = words.what;
    message.advice = words.advice;
    message.details = words.details;
    message.closed = [this] { browser_.dismissProblem(); };
    banner_->show(message);
}

} // namespace tessary
