#pragma once

#include "phone/records/DeviceInfo.h"
#include "transfer/import/Import.h"
#include "transfer/import/ImportRemoval.h"
#include "transfer/queue/CopyQueue.h"

#include <QObject>
#include <QSet>

#include <map>
#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

namespace tessary {

/// Importing from one phone: what it has that is new, what the user chooses of it, the copy, and
/// what can go from the phone afterwards. Lives on the main thread; phone and disk are asked in the
/// background. The copy is a job of the queue: it goes on when this is closed, and so does a
/// removal, which then tells of its end by itself.
class ImportViewModel : public QObject {
    Q_OBJECT

public:
    enum class State {
        closed,
        looking,  ///< the camera folders are being listed
        failed,   ///< they could not be, or the copy could not begin: see problem()
        choosing, ///< photos() may be empty: nothing is new
        copying,  ///< also while what is cancelled comes to its end
        copied,   ///< see job(): not everything may have arrived
        removing,
        removed, ///< see removal()
    };

    /// `ledgers` is the folder that keeps what was imported. `queue` must outlive this.
    ImportViewModel(CopyQueue& queue, QString ledgers, QObject* parent = nullptr);
    /// Stops what is under way, but for the copy.
    ~ImportViewModel() override;

    /// Looks for the photos of a phone; `files` are those of an Android phone, or the media folder.
    void open(std::shared_ptr<PhoneFileSystem> files, const DeviceInfo& device);
    void lookAgain();
    void close();

    [[nodiscard]] State state() const {
        return state_;
    }
    [[nodiscard]] const DeviceInfo& device() const {
        return device_;
    }
    [[nodiscard]] const std::shared_ptr<PhoneFileSystem>& files() const {
        return files_;
    }
    /// While it is looking.
    [[nodiscard]] std::size_t filesFound() const {
        return filesFound_;
    }
    [[nodiscard]] const std::optional<Error>& problem() const {
        return problem_;
    }
    /// What could not be listed.
    [[nodiscard]] std::size_t unreadableCount() const {
        return found_.unreadable.size();
    }

    /// Newest first: the new ones, or all.
    [[nodiscard]] const std::vector<Photo>& photos() const {
        return shown_;
    }
    [[nodiscard]] std::size_t countOfAll() const {
        return found_.photos.size();
    }
    /// Null for what is not shown.
    [[nodiscard]] const Photo* photo(const QString& id) const;
    [[nodiscard]] bool showsFetched() const {
        return showsFetched_;
    }
    void setShowsFetched(bool shows);
    [[nodiscard]] bool wasFetched(const QString& id) const {
        return !isNew_.contains(id);
    }
    [[nodiscard]] bool isChosen(const QString& id) const {
        return chosen_.contains(id);
    }
    void choose(const QStringList& ids, bool isChosen);
    [[nodiscard]] int chosenCount() const {
        return static_cast<int>(chosen_.size());
    }
    [[nodiscard]] qint64 chosenBytes() const;

    /// Copies what is chosen; what was fetched before is fetched again. `folder` is made when it is
    /// missing.
    void start(const QString& folder, bool byDate);
    /// The copy; null before it is queued, and once it was cleared from the queue.
    [[nodiscard]] const CopyJob* job() const;
    /// Photos of the last copy that are here whole with all their files.
    [[nodiscard]] int arrivedCount() const {
        return static_cast<int>(arrived_.size());
    }
    [[nodiscard]] const QString& folder() const {
        return folder_;
    }
    void cancelCopy();

    /// Removes what has arrived from the phone, where it still lies here whole.
    void removeFromPhone();
    /// What is gone stays gone.
    void cancelRemoval();
    /// A removal is under way, here or of what was closed before its end.
    [[nodiscard]] bool isRemoving() const {
        return !removals_.empty();
    }
    /// While it is removing: the photos looked at so far.
    [[nodiscard]] qint64 removedSoFar() const {
        return removedSoFar_;
    }
    [[nodiscard]] const ImportRemoval& removal() const {
        return removal_;
    }
    /// From the end of a copy or a removal back to what is new.
    void chooseMore();

Q_SIGNALS:
    void stateChanged(); ///< also filesFound, and the progress of the copy or the removal
    void photosChanged();
    void chosenChanged();
    /// A removal has ended. `isShown`: state() says so, too.
    void removalEnded(const tessary::ImportRemoval& removal, bool isShown);

private:
    void setState(State state);
    void fail(const Error& error);
    void show(FoundPhotos found);
    void takeStock();
    void enqueue(ImportPlan plan, std::shared_ptr<LocalFileSystem> to);
    void takeEnd();
    void takeRemoval(const ImportRemoval& removal, std::uint64_t number);

    CopyQueue& queue_;
    const QString ledgers_;
    State state_ = State::closed;
    std::shared_ptr<PhoneFileSystem> files_;
    DeviceInfo device_;
    std::size_t filesFound_ = 0;
    std::optional<Error> problem_;

    FoundPhotos found_;
    std::vector<Photo> shown_;
    QHash<QString, std::size_t> places_; ///< in shown_, by id
    QSet<QString> isNew_;
    QSet<QString> chosen_;
    bool showsFetched_ = false;

    QString folder_;
    QUuid job_;
    std::vector<Photo> copied_;  ///< what the copy is about
    std::vector<Photo> arrived_; ///< of them
    ImportRemoval removal_;
    qint64 removedSoFar_ = 0;
    std::map<std::uint64_t, std::stop_source>
        removals_;             ///< under way, by the number they began with
    std::uint64_t number_ = 0; ///< answers to older questions are dropped
    std::stop_source stop_{std::nostopstate};
};

} // namespace tessary
