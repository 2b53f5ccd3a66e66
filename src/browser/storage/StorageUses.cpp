#include "browser/storage/StorageUses.h"

#include "base/threads/Background.h"

#include <QPointer>

#include <algorithm>
#include <utility>

namespace tessary {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds betweenNews(300);

QString keyOf(const PhoneFileSystem& files, const QString& root) {
    return files.identity() + QLatin1Char('\n') + root;
}

} // namespace

StorageUses::StorageUses(QObject* parent) : QObject(parent) {
    deadline_.setSingleShot(true);
    deadline_.setInterval(longestLook);
    connect(&deadline_, &QTimer::timeout, this, &StorageUses::stop);
}

StorageUses::~StorageUses() {
    stop_.request_stop();
}

void StorageUses::look(std::shared_ptr<PhoneFileSystem> files, std::vector<Storage> storages) {
    std::erase_if(storages, [&](const Storage& storage) {
        const auto known = known_.constFind(keyOf(*files, storage.root));
        return known != known_.cend() && known->use.isWhole &&
               known->usedBytes == storage.usedBytes;
    });
    const auto sameRoot = [](const Storage& a, const Storage& b) { return a.root == b.root; };
    if (files == files_ && std::ranges::equal(storages, storages_, sameRoot))
        return;
    stop();
    if (storages.empty())
        return;
    files_ = std::move(files);
    storages_ = std::move(storages);
    deadline_.start();
    const auto tell = [self = QPointer(this)](const Storage& storage, const StorageUse& use,
                                              const std::stop_token& stop) {
        MainThread::post([self, storage, use, stop] {
            if (self && !stop.stop_requested())
                self->note(storage, use);
        });
    };
    stop_ = runInBackground(
        this,
        [phone = files_, all = storages_, tell](const std::stop_token& stop) {
            for (const Storage& storage : all) {
                auto next = Clock::now() + betweenNews;
                const auto progress = [&](const StorageUse& use) {
                    if (const auto now = Clock::now(); now >= next) {
                        next = now + betweenNews;
                        tell(storage, use, stop);
                    }
                };
                tell(storage, measureUse(*phone, storage.root, progress, stop), stop);
            }
        },
        // What went wrong shows in what is not known; whoever looks again tries again.
        [this, look = ++looks_](const BackgroundResult<void>&) {
            if (look == looks_)
                stop();
        });
}

void StorageUses::stop() {
    stop_.request_stop();
    deadline_.stop();
    storages_.clear();
    if (std::exchange(files_, nullptr))
        Q_EMIT changed();
}

std::optional<StorageUse> StorageUses::of(const PhoneFileSystem& files, const QString& root) const {
    const auto known = known_.constFind(keyOf(files, root));
    return known == known_.cend() ? std::nullopt : std::optional(known->use);
}

void StorageUses::note(const Storage& storage, const StorageUse& use) {
    Known& known = known_[keyOf(*files_, storage.root)];
    // A new look at what is known shows its figures when it has more than the one before.
    if (!use.isWhole && known.use.isWhole)
        return;
    known = {use, storage.usedBytes};
    Q_EMIT changed();
}

} // namespace tessary
