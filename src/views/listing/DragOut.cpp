#include "views/listing/DragOut.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <QUrl>

namespace tessary {

namespace {

constexpr QLatin1StringView uriList("text/uri-list");
/// What file managers of GNOME put beside it: a word, and a line each address.
constexpr QLatin1StringView gnomeFiles("x-special/gnome-copied-files");

} // namespace

DragOutData::DragOutData(FileBrowserViewModel& browser, std::vector<FileItem> items, Use use)
    : EntryMimeData(browser.files(), std::move(items), use) {
    stop_ = prepareDrag(
        &browser, {browser.files(), this->items(), browser.dragMount(), browser.stagedFiles()},
        [copies = copies_](const DragFiles& files) {
            copies->areMade = true;
            // All or nothing: half of what was dragged would look like all of it.
            if (!files.notReady.empty()) {
                copies->problem = files.notReady.front();
                return;
            }
            for (const QString& path : files.localPaths)
                copies->urls.append(QUrl::fromLocalFile(path));
        });
}

DragOutData::~DragOutData() {
    stop_.request_stop(); // what is not there by now is not dropped any more
}

bool DragOutData::hasFormat(const QString& mimeType) const {
    return mimeType == uriList || mimeType == gnomeFiles || EntryMimeData::hasFormat(mimeType);
}

QStringList DragOutData::formats() const {
    return EntryMimeData::formats() + QStringList{QString(uriList), QString(gnomeFiles)};
}

std::optional<BrowserProblem> DragOutData::problem() const {
    if (!copies_->wereWanted || !copies_->urls.isEmpty())
        return std::nullopt;
    const BrowserProblem isLong{BrowserProblem::What::dragLong, items().front().name, 1, 1, {}};
    return copies_->areMade ? copies_->problem : isLong;
}

QVariant DragOutData::retrieveData(const QString& mimeType, QMetaType type) const {
    if (mimeType != uriList && mimeType != gnomeFiles)
        return EntryMimeData::retrieveData(mimeType, type);
    const std::shared_ptr<Copies> copies = copies_;
    copies->wereWanted = true;
    QElapsedTimer clock;
    clock.start();
    while (!copies->areMade && clock.elapsed() < std::chrono::milliseconds(patience).count()) {
        // Painting goes on; what the user does meanwhile waits for the drop.
        QEventLoop loop;
        QTimer::singleShot(20, &loop, &QEventLoop::quit);
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    if (mimeType == uriList)
        return copies->urls;
    QByteArray text("copy");
    for (const QVariant& url : copies->urls)
        text += '\n' + url.toUrl().toEncoded();
    return text;
}

} // namespace tessary
