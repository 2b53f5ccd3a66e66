#pragma once

#include "browser/model/FileBrowserViewModel.h"
#include "preview/PictureDecoder.h"
#include "preview/ThumbnailCache.h"

#include <QCache>
#include <QObject>
#include <QPixmap>
#include <QSet>

#include <functional>
#include <memory>
#include <stop_token>
#include <vector>

class QAbstractItemView;

namespace tessary {

class FileListModel;

/// The files that thumbnails are made of. Called on the main thread.
struct ThumbnailSource {
    std::function<const FileItem*(const QString& id)> item;  ///< null for what is not shown
    std::function<std::shared_ptr<PhoneFileSystem>()> files; ///< null when there are none
    std::function<bool()> mayAskPhone;                       ///< nothing else is asked of it
};

/// The thumbnails of what a browser, or another list of files, shows. What is painted asks for them
/// and never waits: they are made in the background, what was asked for last first, and what has
/// been scrolled away by its turn is left out. The phone is asked for one file at a time, and only
/// while nothing else is asked of it. On the main thread.
class ThumbnailStore : public QObject {
    Q_OBJECT

public:
    /// `side` is the longest side of a thumbnail in device-independent pixels. `browser` outlives
    /// the store.
    ThumbnailStore(FileBrowserViewModel& browser, int side, QObject* parent = nullptr);
    /// Whoever makes it calls startOver() and pauseOrGoOn(). `copies`, where files are fetched to,
    /// outlive it.
    ThumbnailStore(ThumbnailSource source, int side, StagedFiles& copies,
                   QObject* parent = nullptr);
    ~ThumbnailStore() override;

    /// The thumbnail of an entry of the folder shown, at `scale` device pixels a pixel. Null when
    /// there is none; thumbnailReady tells when it is made.
    [[nodiscard]] QPixmap find(const QString& id, qreal scale);

    /// What is shown is made anew in another size.
    void setSide(int side);

    /// Nothing waits and nothing is being made.
    [[nodiscard]] bool isIdle() const {
        return !loads_.isBusy && !makes_.isBusy && loads_.requests.empty() &&
               makes_.requests.empty();
    }

    /// Tells whether an entry can be seen. Without it everything that is asked for is made.
    void setIsVisible(std::function<bool(const QString& id)> isVisible) {
        isVisible_ = std::move(isVisible);
    }

    /// Other files are shown, or those of another phone.
    void startOver();
    /// Whether the phone may be asked has changed.
    void pauseOrGoOn();

Q_SIGNALS:
    void thumbnailReady(const QString& id);
    /// What was asked for is forgotten: whoever still shows it has to ask again.
    void startedOver();

private:
    struct Request {
        QString id;
        QString key;
    };
    /// Requests that are fulfilled one at a time.
    struct Queue {
        std::vector<Request> requests; ///< the next one is the last
        std::stop_source stop{std::nostopstate};
        bool isBusy = false;
    };

    [[nodiscard]] std::optional<Request> nextOf(Queue& queue);
    void work(Queue& queue);
    void loadNext();
    void makeNext();
    void take(const Request& request, const QImage& image);

    const ThumbnailSource source_;
    int side_;
    const PictureDecoder decoder_;
    ThumbnailCache& disk_ = ThumbnailCache::shared();
    StagedFiles& copies_;
    std::function<bool(const QString& id)> isVisible_;

    qreal scale_ = 1;
    QCache<QString, QPixmap> pixmaps_; ///< by key
    QSet<QString> requested_;          ///< keys that wait or are under way
    QSet<QString> failed_;             ///< keys of what cannot be shown
    QHash<QString, QString> keys_;     ///< by id, of the folder shown
    Queue loads_;                      ///< from the disk
    Queue makes_;                      ///< from the phone
    std::uint64_t generation_ = 0;     ///< answers of an older one are dropped
};

/// Shows thumbnails in a view of a browser's files whose delegate is a FileItemDelegate, as large
/// as its icons.
void showThumbnails(QAbstractItemView& view, FileListModel& model, FileBrowserViewModel& browser);

} // namespace tessary
