#include "views/window/LocalPane.h"

#include "base/local/LocalError.h"
#include "base/text/PathNames.h"
#include "base/threads/Background.h"
#include "transfer/local/LocalFileSystem.h"
#include "views/common/Layouts.h"
#include "views/common/ProblemText.h"
#include "views/common/StatusBanner.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>
#include <QVBoxLayout>

#include <optional>
#include <utility>

namespace tessary {

namespace {

/// A path of this computer as one shows it: a top that one can go up to, a folder, and the file in
/// it that is meant, if any.
struct PlaceOnDisk {
    QString top;
    QString folder;
    QString file;
};

/// Links on the way are followed; no value where nothing is. Blocking.
std::optional<PlaceOnDisk> placeOnDisk(const QString& path) {
    const QFileInfo found(QFileInfo(path).canonicalFilePath());
    if (!found.exists())
        return std::nullopt;
    PlaceOnDisk place{{}, found.filePath(), {}};
    if (!found.isDir())
        place = {{}, found.path(), found.filePath()};
    const QString home = QFileInfo(QDir::homePath()).canonicalFilePath();
    // What a disk can hold is asked of its top.
    const QString disk = QStorageInfo(place.folder).rootPath();
    place.top = place.folder;
    for (const QString& top : {disk, home})
        if (isAtOrBelow(place.folder, top))
            place.top = top;
    return place;
}

} // namespace

LocalPane::LocalPane(TessaryApp& app, BrowserSetup setup, CopyDialogs dialogs,
                     OpenLocalFile openLocalFile, const QString& folder)
    : app_(app),
      browser_(app.copyQueue(), std::move(setup)),
      view_(new BrowserView(browser_, std::move(dialogs), std::move(openLocalFile))),
      banner_(new StatusBanner) {
    setObjectName(QStringLiteral("localPane"));
    auto* column = makeColumn(*this);
    column->addWidget(view_, 1);
    column->addWidget(banner_);
    setMinimumWidth(260);
    connect(&browser_, &FileBrowserViewModel::problemChanged, this, &LocalPane::showProblem);
    connect(&browser_, &FileBrowserViewModel::stateChanged, this, &LocalPane::showProblem);
    connect(&browser_, &FileBrowserViewModel::pathChanged, this, [this] {
        ++number_;
        app_.defaults().setValue(folderKey, browser_.currentPath());
    });
    const QString begin =
        QDir::cleanPath(folder.isEmpty() ? app.defaults().value(folderKey).toString() : folder);
    const QString home = QDir::homePath();
    goElsewhere(QDir::isAbsolutePath(begin) ? begin : home, home);
}

/// To any path of this computer, links on its way included. `instead` is shown when nothing is
/// there; without it the user is told so.
void LocalPane::goElsewhere(const QString& path, const QString& instead) {
    runInBackground(
        this, [path] { return placeOnDisk(path); },
        [this, path, instead,
         number = ++number_](BackgroundResult<std::optional<PlaceOnDisk>> result) {
            if (number != number_)
                return; // a slow disk, and the user is elsewhere by now
            const auto found = result.succeeded() ? result.take() : std::nullopt;
            if (!found && instead.isEmpty()) {
                browser_.showProblem({BrowserProblem::What::noSuchPath, path, 1, 1, {}});
                return;
            }
            const PlaceOnDisk place = found.value_or(PlaceOnDisk{instead, instead, {}});
            if (browser_.files() == nullptr || browser_.files()->rootOf({}).path != place.top)
                browser_.open(std::make_shared<LocalFileSystem>(place.top), std::nullopt,
                              place.folder);
            else
                browser_.navigateTo(place.folder);
            if (!place.file.isEmpty())
                browser_.goToTyped(place.file, [](bool) {});
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
    // A path that was typed may lie anywhere.
    if (problem->what == BrowserProblem::What::load && problem->failures.size() == 1) {
        const auto& [path, error] = problem->failures.front();
        if (error.is(LocalError::leavesFolder) || error.is(LocalError::link)) {
            const QString wanted = path;
            browser_.dismissProblem();
            goElsewhere(wanted, {});
            return;
        }
    }
    banner_->show({.kind = BannerMessage::Kind::error,
                   .words = problemText(*problem),
                   .closed = [this] { browser_.dismissProblem(); }});
}

} // namespace tessary
