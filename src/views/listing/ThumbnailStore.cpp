#include "views/listing/ThumbnailStore.h"

#include "base/threads/Background.h"
#include "base/threads/CancellationError.h"
#include "browser/model/FileListModel.h"
#include "preview/FilmPicture.h"
#include "preview/PhoneThumbnail.h"
#include "preview/PreviewKind.h"
#include "views/listing/FileItemDelegate.h"

#include <QAbstractItemView>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace tessary {

namespace {

constexpr qsizetype memoryLimit = 24 * 1024; // kilobytes of pixels
constexpr std::size_t mostRequests = 400;    // more than any screen shows at a time
constexpr int storedSide = 256;              // pixels, for every scale

/// Pictures of phones are stored beside those that are made of whole files.
QString keyOfPhones(const QString& key) {
    return key + QStringLiteral("-phone");
}

/// Large enough to be shown with this side.
bool isEnough(const QImage& image, int side) {
    return 3 * std::max(image.width(), image.height()) >= 2 * side;
}

/// The phone's own picture; else one that is made of a film's beginning, or of a file that is not
/// too large.
QImage makeThumbnail(PhoneFileSystem& files, const FileItem& item, StagedFiles& copies,
                     const PictureDecoder& decoder, ThumbnailCache& disk, const QString& key,
                     int side, const std::stop_token& stop) {
    const bool isCopied = copies.find(files, item).has_value();
    if (const auto own = isCopied ? std::nullopt : phoneThumbnail(files, item, stop))
        try {
            const QImage image = decoder.decode(*own, storedSide, stop).image;
            disk.store(keyOfPhones(key), image);
            if (isEnough(image, side) || !hasThumbnail(item))
                return image;
        } catch (const PictureError&) {
            // Then there is none.
        }
    if (!hasThumbnail(item))
        throw PictureError("there is no small picture of the file");
    const QImage image =
        previewKindOf(item) == PreviewKind::film
            ? firstPictureOf(files, item, storedSide, stop).image
            : decoder.decode({copies.fetch(files, item, {}, stop), storedSide, 0}, stop).image;
    disk.store(key, image);
    return image;
}

/// Made to fit, with a thin line around it, by which pale pictures stand out from the ground.
QImage finished(const QImage& image, int side) {
    const bool isLarge = std::max(image.width(), image.height()) > side;
    QImage small =
        (isLarge ? image.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation) : image)
            .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&small);
    painter.setPen(QColor(0, 0, 0, 50));
    painter.drawRect(small.rect().adjusted(0, 0, -1, -1));
    return small;
}

ThumbnailSource sourceOf(FileBrowserViewModel& browser) {
    return {[&browser](const QString& id) { return browser.itemWithId(id); },
            [&browser] { return browser.files(); },
            [&browser] {
                return browser.state() == BrowserState::ready && !browser.isLoading() &&
                       !browser.isEditing() && browser.queue().summary().isIdle();
            }};
}

} // namespace

ThumbnailStore::ThumbnailStore(FileBrowserViewModel& browser, int side, QObject* parent)
    : ThumbnailStore(sourceOf(browser), side, browser.stagedFiles(), parent) {
    connect(&browser, &FileBrowserViewModel::pathChanged, this, &ThumbnailStore::startOver);
    connect(&browser, &FileBrowserViewModel::connectionChanged, this, &ThumbnailStore::startOver);
    connect(&browser, &FileBrowserViewModel::stateChanged, this, [this, &browser] {
        if (!browser.isLoading())
            keys_.clear(); // an entry may have changed
        pauseOrGoOn();
    });
    connect(&browser, &FileBrowserViewModel::editingChanged, this, &ThumbnailStore::pauseOrGoOn);
    connect(&browser.queue(), &CopyQueue::summaryChanged, this, &ThumbnailStore::pauseOrGoOn);
}

ThumbnailStore::ThumbnailStore(ThumbnailSource source, int side, StagedFiles& copies,
                               QObject* parent)
    : QObject(parent),
      source_(std::move(source)),
      side_(side),
      copies_(copies),
      pixmaps_(memoryLimit) {}

ThumbnailStore::~ThumbnailStore() {
    for (Queue* queue : {&loads_, &makes_})
        queue->stop.request_stop();
}

void ThumbnailStore::startOver() {
    ++generation_;
    for (Queue* queue : {&loads_, &makes_}) {
        queue->stop.request_stop();
        queue->requests.clear();
        queue->isBusy = false;
    }
    requested_.clear();
    keys_.clear();
    Q_EMIT startedOver();
}

void ThumbnailStore::setSide(int side) {
    if (std::exchange(side_, side) == side)
        return;
    startOver();
    pixmaps_.clear();
}

void ThumbnailStore::pauseOrGoOn() {
    if (source_.mayAskPhone())
        work(makes_);
    else
        makes_.stop.request_stop();
}

QPixmap ThumbnailStore::find(const QString& id, qreal scale) {
    const FileItem* item = source_.item(id);
    if (item == nullptr || !source_.files() ||
        !(hasThumbnail(*item) || mayHavePhoneThumbnail(*item)))
        return {};
    if (scale != scale_) {
        scale_ = scale;
        pixmaps_.clear();
    }
    QString& key = keys_[id];
    if (key.isEmpty())
        key = fileKey(*source_.files(), *item);
    if (const QPixmap* known = pixmaps_.object(key))
        return *known;
    if (failed_.contains(key) || requested_.contains(key))
        return {};
    requested_.insert(key);
    loads_.requests.push_back({id, key});
    // What is asked for first is what has been scrolled away longest ago.
    if (loads_.requests.size() > mostRequests) {
        requested_.remove(loads_.requests.front().key);
        loads_.requests.erase(loads_.requests.begin());
    }
    // Not from within a paint event.
    QMetaObject::invokeMethod(
        this, [this] { work(loads_); }, Qt::QueuedConnection);
    return {};
}

/// The newest request for what can still be seen; drops the others on the way.
std::optional<ThumbnailStore::Request> ThumbnailStore::nextOf(Queue& queue) {
    while (!queue.requests.empty()) {
        Request request = std::move(queue.requests.back());
        queue.requests.pop_back();
        if (!isVisible_ || isVisible_(request.id))
            return request;
        requested_.remove(request.key);
    }
    return std::nullopt;
}

void ThumbnailStore::work(Queue& queue) {
    if (queue.isBusy)
        return;
    if (&queue == &loads_)
        loadNext();
    else if (source_.mayAskPhone())
        makeNext();
}

void ThumbnailStore::loadNext() {
    const auto request = nextOf(loads_);
    if (!request)
        return;
    loads_.isBusy = true;
    const int side = qRound(side_ * scale_);
    const FileItem* item = source_.item(request->id);
    const bool isOnlyOne = item == nullptr || !hasThumbnail(*item);
    loads_.stop = runInBackground(
        this,
        [&disk = disk_, key = request->key, side, isOnlyOne] {
            if (const auto image = disk.load(key))
                return finished(*image, side);
            const auto own = disk.load(keyOfPhones(key));
            return own && (isEnough(*own, side) || isOnlyOne) ? finished(*own, side) : QImage();
        },
        [this, request = *request, generation = generation_](BackgroundResult<QImage> result) {
            if (generation != generation_)
                return;
            loads_.isBusy = false;
            const QImage image = result.succeeded() ? result.take() : QImage();
            if (!image.isNull()) {
                take(request, image);
            } else {
                makes_.requests.push_back(request);
                work(makes_);
            }
            work(loads_);
        });
}

void ThumbnailStore::makeNext() {
    const auto request = nextOf(makes_);
    if (!request)
        return;
    const FileItem* item = source_.item(request->id);
    if (item == nullptr) {
        requested_.remove(request->key);
        QMetaObject::invokeMethod(
            this, [this] { work(makes_); }, Qt::QueuedConnection);
        return;
    }
    makes_.isBusy = true;
    const int side = qRound(side_ * scale_);
    makes_.stop = runInBackground(
        this,
        [&disk = disk_, &copies = copies_, decoder = decoder_, files = source_.files(),
         item = *item, key = request->key, side](const std::stop_token& stop) {
            return finished(makeThumbnail(*files, item, copies, decoder, disk, key, side, stop),
                            side);
        },
        [this, request = *request, generation = generation_](BackgroundResult<QImage> result) {
            if (generation != generation_)
                return;
            makes_.isBusy = false;
            try {
                take(request, result.take());
            } catch (const CancellationError&) {
                // It gave way to something else and is made afterwards.
                makes_.requests.push_back(request);
            } catch (const PictureTimeoutError&) {
                // As below: the machine was too busy for it.
            } catch (const PictureError&) {
                requested_.remove(request.key);
                failed_.insert(request.key);
            } catch (const std::exception&) {
                // The phone did not give it: it stays requested, and so is not asked for again
                // before the folder is entered anew.
            }
            work(makes_);
        });
}

void ThumbnailStore::take(const Request& request, const QImage& image) {
    requested_.remove(request.key);
    auto pixmap = std::make_unique<QPixmap>(QPixmap::fromImage(image));
    pixmap->setDevicePixelRatio(scale_);
    const qsizetype kilobytes = 1 + image.sizeInBytes() / 1024;
    pixmaps_.insert(request.key, pixmap.release(), kilobytes);
    Q_EMIT thumbnailReady(request.id);
}

void showThumbnails(QAbstractItemView& view, FileListModel& model, FileBrowserViewModel& browser) {
    auto* store = new ThumbnailStore(browser, view.iconSize().width(), &view);
    static_cast<FileItemDelegate*>(view.itemDelegate())->setThumbnails(*store);
    store->setIsVisible([&view, &model](const QString& id) {
        constexpr int smallestShown = 32; // below it icons tell more, and the phone is left alone
        return view.isVisible() && view.iconSize().width() >= smallestShown &&
               view.viewport()->rect().intersects(view.visualRect(model.indexOf(id)));
    });
    QObject::connect(store, &ThumbnailStore::thumbnailReady, &view,
                     [&view, &model](const QString& id) { view.update(model.indexOf(id)); });
    // The same files may be shown by a phone that has told more of itself since.
    QObject::connect(store, &ThumbnailStore::startedOver, &view,
                     [&view] { view.viewport()->update(); });
    QObject::connect(&view, &QAbstractItemView::iconSizeChanged, store,
                     [store](const QSize& size) { store->setSide(size.width()); });
}

} // namespace tessary
