#include "browser/model/FolderLoader.h"

#include "base/threads/Background.h"

#include <QPointer>

#include <utility>

namespace tessary {

FolderLoader::FolderLoader(std::function<std::chrono::milliseconds()> pause)
    : pause_(std::move(pause)) {
    again_.setSingleShot(true);
    connect(&again_, &QTimer::timeout, this, [this] {
        isAgainWanted_ = isRunning_;
        if (!isRunning_)
            Q_EMIT againDue();
    });
}

void FolderLoader::start(const Wanted& wanted, Done whenDone) {
    forgetAgain();
    stop();
    isRunning_ = true;
    stop_ = runInBackground(
        this,
        [wanted, locale = QLocale(),
         part = wanted.withParts ? partReceiver() : PartialListing()](const std::stop_token& stop) {
            return wanted.search
                       ? loadSearch(*wanted.files, wanted.path, *wanted.search, locale, part, stop)
                       : loadFolder(*wanted.files, wanted.path, locale, part, stop);
        },
        [this, number = number_,
         whenDone = std::move(whenDone)](BackgroundResult<BrowserLoad> result) {
            if (number == number_ && result.succeeded())
                finish(result.take(), whenDone);
        });
}

void FolderLoader::finish(const BrowserLoad& load, const Done& whenDone) {
    ++number_;
    isRunning_ = false;
    whenDone(load);
    if (!isRunning_ && isAgainWanted_)
        again_.start(pause_());
}

/// Where a reading leaves what it has so far: the main thread shows the newest part, however many
/// there were.
PartialListing FolderLoader::partReceiver() {
    return [self = QPointer(this), number = number_](std::shared_ptr<const FileListing> part) {
        MainThread::post([self, number, part = std::move(part)] {
            if (self && number == self->number_)
                Q_EMIT self->partCame(part);
        });
    };
}

void FolderLoader::stop() {
    ++number_;
    isRunning_ = false;
    stop_.request_stop();
}

void FolderLoader::againSoon(bool isUrgent) {
    if (isUrgent || !again_.isActive())
        again_.start(pause_());
}

void FolderLoader::forgetAgain() {
    again_.stop();
    isAgainWanted_ = false;
}

} // namespace tessary
