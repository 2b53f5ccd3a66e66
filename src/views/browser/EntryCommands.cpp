#include "views/browser/EntryCommands.h"

#include "base/text/PathNames.h"
#include "base/text/Printable.h"
#include "base/threads/Background.h"
#include "browser/actions/OpenFetch.h"
#include "browser/model/FileListModel.h"
#include "views/browser/BrowserActions.h"
#include "views/browser/ShownFolder.h"
#include "views/common/Layouts.h"
#include "views/dialogs/DeleteQuestion.h"
#include "views/dialogs/PreviewWindow.h"
#include "views/dialogs/PropertiesDialog.h"
#include "views/listing/DragOut.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QProgressDialog>
#include <QUrl>

#include <algorithm>

namespace tessary {

namespace {

/// The context of the texts about what is fetched.
class OpenProgress {
    Q_DECLARE_TR_FUNCTIONS(tessary::OpenProgress)
};

} // namespace

OpenLocalFile systemOpenLocalFile() {
    return [](const QString& path) { return QDesktopServices::openUrl(QUrl::fromLocalFile(path)); };
}

EntryCommands::EntryCommands(FileBrowserViewModel& browser, Setup setup, QWidget& parent)
    : QObject(&parent), browser_(browser), setup_(std::move(setup)), parent_(parent) {}

bool EntryCommands::isFavorite(const QString& path) const {
    return setup_.favorites.contains && setup_.favorites.contains(path);
}

void EntryCommands::toggleFavorite() {
    const auto [name, path] = favoriteCandidate();
    if (!path.isEmpty())
        setup_.favorites.toggle(name, path);
}

std::pair<QString, QString> EntryCommands::favoriteCandidate() const {
    const auto selected = browser_.selection().entries();
    if (selected.size() == 1 && selected.front().isDirectory)
        return {selected.front().name, browser_.files()->canonicalPath(selected.front().path)};
    if (!selected.empty() || browser_.breadcrumbs().empty())
        return {};
    return {browser_.breadcrumbs().back().name, browser_.currentPath()};
}

void EntryCommands::forgetFavorite() const {
    setup_.favorites.toggle({}, browser_.currentPath());
}

void EntryCommands::open() {
    const auto selected = browser_.selection().entries();
    if (selected.size() == 1 && selected.front().isDirectory) {
        browser_.enterFolder(selected.front().id());
        return;
    }
    openInTab(selected);
    fetchSelected([this](const QStringList& localPaths) {
        for (const QString& path : localPaths)
            if (!setup_.openLocalFile(path))
                tellNotOpened(path);
    });
}

void EntryCommands::selectFirstFound() {
    EntrySelection& selection = browser_.selection();
    if (browser_.searchText().isEmpty() || !selection.ids().isEmpty())
        return;
    selection.restart();
    selection.move(1);
}

void EntryCommands::endOne() {
    if (browser_.isEditing())
        browser_.cancelEdits();
    else if (browser_.canCancelLoading())
        browser_.cancelLoading();
    else if (!browser_.selection().ids().isEmpty())
        browser_.selection().clear();
    else if (!browser_.searchText().isEmpty())
        browser_.setSearchText({});
    else
        browser_.endSearch();
}

void EntryCommands::openInTab(const std::vector<FileItem>& items) const {
    constexpr qsizetype manyTabs = 20;
    const auto files = browser_.files();
    if (!setup_.openTab || !files)
        return;
    QStringList paths;
    for (const FileItem& item : items)
        if (item.isDirectory)
            paths.prepend(files->canonicalPath(item.path)); // each goes right behind this tab
    const QPointer<const EntryCommands> self(this);
    if (paths.size() > manyTabs &&
        QMessageBox::question(&parent_, {},
                              tr("Open %1 folders, each in its own tab?").arg(paths.size())) !=
            QMessageBox::Yes)
        return;
    if (self && browser_.files() == files)
        for (const QString& path : paths)
            setup_.openTab(path);
}

void EntryCommands::tellNotOpened(const QString& path) {
    browser_.showProblem(BrowserProblem{BrowserProblem::What::open, lastComponent(path), 1, 1, {}});
}

/// Brings the selected files here for a program to open; folders are left out. What takes longer
/// than a moment is said in a window of its own, where it can be cancelled.
void EntryCommands::fetchSelected(std::function<void(const QStringList& localPaths)> whenHere) {
    std::vector<FileItem> items = browser_.selection().entries();
    std::erase_if(items, [](const FileItem& item) { return item.isDirectory; });
    if (items.empty() || !browser_.files())
        return;
    const QString text =
        items.size() == 1
            ? OpenProgress::tr("Fetching “%1” to open it…").arg(printable(items.front().name))
            : OpenProgress::tr("Fetching %Ln files to open them…", nullptr,
                               static_cast<int>(items.size()));
    constexpr int whole = 1000;
    constexpr int aMoment = 600; // ms
    auto* window = new QProgressDialog(&parent_);
    window->setObjectName(QStringLiteral("openProgress"));
    window->setWindowTitle(OpenProgress::tr("Open"));
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    window->setLabel(label);
    window->setRange(0, whole);
    window->setAutoReset(false);
    window->setMinimumDuration(aMoment);
    window->setValue(0); // the moment begins
    auto* fetch = new OpenFetch(
        {browser_.files(), std::move(items), browser_.dragMount(), browser_.stagedFiles()}, window);
    connect(fetch, &OpenFetch::progress, window, [window](qint64 done, qint64 total) {
        const double share = total > 0 ? static_cast<double>(done) / static_cast<double>(total) : 0;
        window->setValue(static_cast<int>(share * whole));
    });
    connect(fetch, &OpenFetch::ready, window,
            [window, whenHere = std::move(whenHere)](const QStringList& localPaths) {
                window->deleteLater();
                whenHere(localPaths);
            });
    connect(fetch, &OpenFetch::failed, window, [this, window](const BrowserProblem& problem) {
        window->deleteLater();
        browser_.showProblem(problem);
    });
    const auto giveUp = [window, fetch] {
        fetch->cancel();
        window->deleteLater();
    };
    connect(window, &QProgressDialog::canceled, fetch, giveUp);
    connect(window, &QDialog::rejected, fetch, giveUp); // by Esc
}

/// The desktop's programs are looked up while the menu is open.
void EntryCommands::addOpenWith(QMenu& menu) {
    const auto selected = browser_.selection().entries();
    const auto file =
        std::ranges::find_if(selected, [](const FileItem& item) { return !item.isDirectory; });
    if (file == selected.end())
        return;
    QMenu* programs = menu.addMenu(tr("Open With"));
    programs->setObjectName(QStringLiteral("openWith"));
    programs->addAction(tr("Looking for programs…"))->setEnabled(false);
    connect(programs, &QMenu::aboutToShow, programs, [this, programs, name = file->name] {
        runInBackground(
            programs, [name, language = QLocale().name()] { return programsFor(name, language); },
            [this, programs](BackgroundResult<std::vector<DesktopProgram>> result) {
                fillOpenWith(*programs,
                             result.succeeded() ? result.take() : std::vector<DesktopProgram>());
            });
    });
}

void EntryCommands::fillOpenWith(QMenu& menu, const std::vector<DesktopProgram>& programs) {
    menu.clear();
    if (programs.empty())
        menu.addAction(tr("No program is known for this"))->setEnabled(false);
    for (const DesktopProgram& program : programs)
        menu.addAction(QIcon::fromTheme(program.iconName), printable(program.name), this,
                       [this, program] {
                           fetchSelected([this, program](const QStringList& localPaths) {
                               if (!openWith(program, localPaths))
                                   tellNotOpened(localPaths.front());
                           });
                       });
}

EntryCommands::~EntryCommands() {
    QClipboard* clipboard = QGuiApplication::clipboard();
    if (onClipboard_ != nullptr && clipboard->mimeData() == onClipboard_)
        clipboard->clear();
}

void EntryCommands::putOnClipboard(EntryMimeData::Use use) {
    std::vector<FileItem> items = browser_.selection().entries();
    if (items.empty() || !browser_.files())
        return;
    auto* data = new DragOutData(browser_, std::move(items), use);
    onClipboard_ = data;
    QGuiApplication::clipboard()->setMimeData(data);
}

void EntryCommands::copyPath() const {
    QStringList paths;
    for (const FileItem& item : browser_.selection().entries())
        paths.append(browser_.files()->canonicalPath(item.path));
    if (paths.isEmpty())
        paths.append(browser_.currentPath());
    QGuiApplication::clipboard()->setText(paths.join(QLatin1Char('\n')));
}

void EntryCommands::preview() {
    if (preview_ == nullptr)
        preview_ = new PreviewWindow(browser_, setup_.columns, &parent_);
    preview_->toggle();
}

void EntryCommands::showProperties() {
    const auto selected = browser_.selection().entries();
    if (!selected.empty() && browser_.files())
        (new PropertiesDialog(browser_.files(), selected, &parent_))->show();
}

void EntryCommands::rename() {
    const auto selected = browser_.selection().entries();
    if (selected.size() != 1)
        return;
    QAbstractItemView& view = setup_.listing();
    const auto& model = *static_cast<const FileListModel*>(view.model());
    const QModelIndex index = model.indexOf(selected.front().id());
    view.setCurrentIndex(index);
    view.edit(index);
}

void EntryCommands::remove() {
    const auto selected = browser_.selection().entries();
    QStringList ids;
    for (const FileItem& item : selected)
        ids.append(item.id());
    if (!selected.empty() && askToDelete(browser_.files(), selected))
        browser_.deleteItems(ids);
}

/// True when the user agrees, and what he was asked about is still in front of him.
bool EntryCommands::askToDelete(const std::shared_ptr<PhoneFileSystem>& files,
                                const std::vector<FileItem>& items, const QString& copiedTo) {
    DeletedGo where = browser_.isMedia() ? DeletedGo::pastTheBin : DeletedGo::away;
    if (files != browser_.files() || browser_.isLocal())
        where = DeletedGo::intoTheTrash;
    const ShownFolder asked(browser_);
    const bool areRead = files && browser_.copies().areBeingRead(*files, items);
    return tessary::askToDelete(parent_, files, items, where, areRead, copiedTo) &&
           asked.isStillShown();
}

void EntryCommands::undo() {
    if (browser_.copies().isPreparing())
        return; // what was pasted is about to be what this takes back
    const auto step = browser_.changes().undoable();
    if (step && step->kind == UndoStep::Kind::copy) {
        if (browser_.copies().cancel(step->copy))
            return;
        std::vector<FileItem> items;
        for (const UndoStep::Change& change : step->changes)
            items.emplace_back(lastComponent(change.now), change.now,
                               step->made.containsFolder(change.now), 0, std::nullopt);
        if (items.empty() ||
            !askToDelete(step->computer ? step->computer : browser_.files(), items,
                         parentPath(items.front().path)) ||
            browser_.changes().undoable() != step)
            return;
    }
    browser_.changes().undo();
}

QString EntryCommands::undoText() const {
    const auto step = browser_.changes().undoable();
    if (!step)
        return tr("Undo");
    switch (step->kind) {
    case UndoStep::Kind::rename:
        return tr("Undo Rename");
    case UndoStep::Kind::move:
        return tr("Undo Move");
    case UndoStep::Kind::create:
        return tr("Undo New Folder");
    case UndoStep::Kind::copy:
        break;
    }
    return tr("Undo Copy");
}

void EntryCommands::addTo(QMenu& menu, const BrowserActions& a) {
    const auto selected = browser_.selection().entries();
    if (selected.empty()) {
        addCommands(menu, {a.newFolder, a.paste, a.uploadFiles, a.uploadFolder, nullptr, a.undo,
                           a.showHidden, nullptr, a.favorite, a.reload});
        return;
    }
    const bool isOneFolder = selected.size() == 1 && selected.front().isDirectory;
    menu.addAction(a.open);
    if (isOneFolder)
        menu.addAction(a.openInTab);
    addOpenWith(menu);
    addCommands(menu, {a.preview, a.download, nullptr, a.cut, a.copy, a.paste, a.copyPath, nullptr,
                       a.moveTo, a.copyTo});
    if (isOneFolder)
        menu.addAction(a.favorite);
    addCommands(menu, {nullptr, a.rename, a.duplicate, a.remove, nullptr, a.properties});
}

} // namespace tessary
