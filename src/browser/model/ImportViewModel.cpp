#include "browser/model/ImportViewModel.h"

#include "base/log/DiagnosticsLogger.h"
#include "base/text/ByteCount.h"
#include "base/threads/Background.h"
#include "base/threads/CancellationError.h"
#include "base/threads/EndInBackground.h"
#include "base/threads/TellLatest.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tessary {

namespace {

/// What is to be copied, once it was compared with what is here.
struct Prepared {
    ImportPlan plan;
    std::shared_ptr<LocalFileSystem> to;
};

Prepared prepare(const std::vector<Photo>& photos, ImportLedger& ledger, const QString& folder,
                 bool byDate, const Call& call) {
    makeFolders(folder);
    auto to = std::make_shared<LocalFileSystem>(folder);
    ImportPlan plan =
        planImport(photos, ledger, *to, folder, {.byDate = byDate, .again = true}, call);
    ledger.add(plan.alreadyHere);
    return {std::move(plan), std::move(to)};
}

} // namespace

ImportViewModel::ImportViewModel(CopyQueue& queue, QString ledgers, QObject* parent)
    : QObject(parent), queue_(queue), ledgers_(std::move(ledgers)) {
    // What is cancelled still keeps a ledger of what it has brought until all of it has ended.
    connect(&queue_, &CopyQueue::recordChanged, this, [this](const QUuid& id) {
        if (const CopyJob* copy = job(); copy != nullptr && copy->id == id && copy->isFinished())
            takeEnd();
    });
    connect(&queue_, &CopyQueue::jobChanged, this, [this](int index) {
        if (queue_.indexOf(job_) != index)
            return;
        if (state_ == State::copied && !job()->isFinished())
            state_ = State::copying; // it goes on
        if (state_ == State::copying)
            Q_EMIT stateChanged();
    });
}

ImportViewModel::~ImportViewModel() {
    stop_.request_stop();
    for (auto& [number, stop] : removals_)
        stop.request_stop();
    endInBackground(std::move(files_));
}

void ImportViewModel::setState(State state) {
    state_ = state;
    Q_EMIT stateChanged();
}

void ImportViewModel::fail(const Error& error) {
    DiagnosticsLogger::shared().ui.error("ImportViewModel error: %s", {error.logText()});
    problem_ = error;
    setState(State::failed);
}

void ImportViewModel::open(std::shared_ptr<PhoneFileSystem> files, const DeviceInfo& device) {
    std::swap(files_, files);
    endInBackground(std::move(files)); // saying goodbye to a phone takes its time
    device_ = device;
    lookAgain();
}

void ImportViewModel::lookAgain() {
    stop_.request_stop();
    const std::uint64_t number = ++number_;
    job_ = {};
    problem_.reset();
    filesFound_ = 0;
    show({});
    setState(State::looking);
    const auto tell = tellLatest<std::size_t>(this, [this, number](std::size_t count) {
        if (number_ != number)
            return;
        filesFound_ = count;
        Q_EMIT stateChanged();
    });
    stop_ = runInBackground(
        this,
        [files = files_, device = device_, ledgers = ledgers_, tell](const std::stop_token& stop) {
            return findPhotos(*files, device, ledgers, tell, stop);
        },
        [this, number](BackgroundResult<FoundPhotos> result) {
            if (number != number_)
                return;
            try {
                show(result.take());
                setState(State::choosing);
            } catch (const CancellationError&) {
                close();
            } catch (const Error& error) {
                fail(error);
            }
        });
}

void ImportViewModel::close() {
    stop_.request_stop();
    ++number_;
    job_ = {};
    show({});
    endInBackground(std::exchange(files_, nullptr));
    setState(State::closed);
}

void ImportViewModel::show(FoundPhotos found) {
    found_ = std::move(found);
    showsFetched_ = false;
    takeStock();
}

/// What is new now, all of it chosen.
void ImportViewModel::takeStock() {
    isNew_.clear();
    shown_.clear();
    places_.clear();
    for (const Photo& photo : found_.photos) {
        const bool isNew = !isFetched(photo, *found_.ledger);
        if (isNew)
            isNew_.insert(photo.id());
        if (isNew || showsFetched_) {
            places_.insert(photo.id(), shown_.size());
            shown_.push_back(photo);
        }
    }
    chosen_ = isNew_;
    Q_EMIT photosChanged();
    Q_EMIT chosenChanged();
}

const Photo* ImportViewModel::photo(const QString& id) const {
    const auto place = places_.constFind(id);
    return place == places_.constEnd() ? nullptr : &shown_[*place];
}

void ImportViewModel::setShowsFetched(bool shows) {
    if (std::exchange(showsFetched_, shows) == shows)
        return;
    const QSet<QString> chosen = chosen_;
    takeStock();
    chosen_ = chosen;
    if (!shows)
        chosen_.intersect(isNew_);
    Q_EMIT chosenChanged();
}

void ImportViewModel::choose(const QStringList& ids, bool isChosen) {
    for (const QString& id : ids) {
        if (isChosen && photo(id) != nullptr)
            chosen_.insert(id);
        else if (!isChosen)
            chosen_.remove(id);
    }
    Q_EMIT chosenChanged();
}

qint64 ImportViewModel::chosenBytes() const {
    qint64 bytes = 0;
    for (const QString& id : chosen_)
        if (const Photo* chosen = photo(id))
            bytes = addByteCounts(bytes, chosen->bytes());
    return bytes;
}

void ImportViewModel::start(const QString& folder, bool byDate) {
    if (state_ != State::choosing || chosen_.isEmpty())
        return;
    folder_ = folder;
    copied_.clear();
    std::copy_if(shown_.begin(), shown_.end(), std::back_inserter(copied_),
                 [this](const Photo& photo) { return isChosen(photo.id()); });
    arrived_.clear();
    const std::uint64_t number = ++number_;
    setState(State::copying);
    stop_ = runInBackground(
        this,
        [photos = copied_, ledger = found_.ledger, folder, byDate](const std::stop_token& stop) {
            return prepare(photos, *ledger, folder, byDate, stop);
        },
        [this, number](BackgroundResult<Prepared> result) {
            if (number != number_)
                return;
            try {
                Prepared prepared = result.take();
                throwIfStopped(stop_.get_token()); // it was cancelled since
                enqueue(std::move(prepared.plan), std::move(prepared.to));
            } catch (const CancellationError&) {
                setState(State::choosing);
            } catch (const Error& error) {
                fail(error);
            }
        });
}

void ImportViewModel::enqueue(ImportPlan plan, std::shared_ptr<LocalFileSystem> to) {
    if (plan.items.empty()) { // they lay here already
        takeEnd();
        return;
    }
    job_ = queue_.enqueue(importRequest(files_, std::move(to), std::move(plan), found_.ledger));
    Q_EMIT stateChanged();
}

const CopyJob* ImportViewModel::job() const {
    const int index = queue_.indexOf(job_);
    return index < 0 ? nullptr : &queue_.jobs()[static_cast<std::size_t>(index)];
}

void ImportViewModel::cancelCopy() {
    stop_.request_stop();
    queue_.cancel(job_);
}

void ImportViewModel::takeEnd() {
    if (state_ != State::copying && state_ != State::copied)
        return;
    // The ledger tells of earlier copies, too, of what was to be fetched once more.
    QSet<QString> missing;
    if (job() != nullptr)
        for (const CopyItem& item : queue_.recordOf(job_).rest)
            if (!item.isContinued)
                missing.insert(item.item.path);
    arrived_.clear();
    std::copy_if(copied_.begin(), copied_.end(), std::back_inserter(arrived_),
                 [&](const Photo& photo) {
                     return isFetched(photo, *found_.ledger) &&
                            std::none_of(photo.files.begin(), photo.files.end(),
                                         [&missing](const FileItem& file) {
                                             return missing.contains(file.path);
                                         });
                 });
    setState(State::copied);
}

void ImportViewModel::removeFromPhone() {
    if (state_ != State::copied || arrived_.empty())
        return;
    const std::uint64_t number = ++number_;
    removedSoFar_ = 0;
    setState(State::removing);
    const auto tell = tellLatest<qint64>(this, [this, number](qint64 photosDone) {
        if (number_ != number)
            return;
        removedSoFar_ = photosDone;
        Q_EMIT stateChanged();
    });
    removals_[number] = runInBackground(
        this,
        [files = files_, photos = arrived_, ledger = found_.ledger,
         tell](const std::stop_token& stop) {
            return removeImported(*files, photos, *ledger, tell, stop);
        },
        [this, number](BackgroundResult<ImportRemoval> result) {
            takeRemoval(result.take(), number);
        });
}

void ImportViewModel::cancelRemoval() {
    if (const auto current = removals_.find(number_); current != removals_.end())
        current->second.request_stop();
}

void ImportViewModel::takeRemoval(const ImportRemoval& removal, std::uint64_t number) {
    removals_.erase(number);
    const bool isShown = number == number_;
    if (isShown) {
        removal_ = removal;
        arrived_.clear();
        setState(State::removed);
    }
    Q_EMIT removalEnded(removal, isShown);
}

void ImportViewModel::chooseMore() {
    if (state_ == State::removed) {
        lookAgain();
        return;
    }
    job_ = {};
    takeStock();
    setState(State::choosing);
}

} // namespace tessary
