#include "devices/MultiplexerFeed.h"

#include "core/Background.h"
#include "core/EndInBackground.h"

#include <QPointer>

#include <utility>

namespace tessary {

MultiplexerFeed::MultiplexerFeed(Multiplexer* multiplexer, QObject* parent)
    : QObject(parent), multiplexer_(multiplexer) {}

MultiplexerFeed::~MultiplexerFeed() {
    stop();
}

void MultiplexerFeed::start() {
    if (multiplexer_ != nullptr && !watch_)
        subscribe();
}

void MultiplexerFeed::stop() {
    endInBackground(this, std::move(watch_));
    ++period_;
}

void MultiplexerFeed::subscribe() {
    const auto changed = [guard = QPointer<MultiplexerFeed>(this), period = period_] {
        MainThread::post([guard, period] {
            if (!guard || guard->period_ != period)
                return;
            Q_EMIT guard->eventCame();
            guard->refresh();
        });
    };
    runInBackground(
        this, [multiplexer = multiplexer_, changed] { return multiplexer->watch(changed); },
        [this, period = period_](BackgroundResult<std::unique_ptr<MultiplexerWatch>> result) {
            if (!result.succeeded())
                return;
            std::unique_ptr<MultiplexerWatch> watch = result.take();
            if (period == period_)
                std::swap(watch, watch_);
            endInBackground(this, std::move(watch)); // it waits for the library's thread
        });
}

void MultiplexerFeed::refresh() {
    if (multiplexer_ == nullptr)
        return;
    isOutdated_ = isReading_;
    if (isReading_)
        return;
    isReading_ = true;
    runInBackground(
        this, [multiplexer = multiplexer_] { return multiplexer->devices(); },
        [this, period = period_](BackgroundResult<std::vector<MultiplexerEntry>> result) {
            isReading_ = false;
            if (result.succeeded() && period == period_)
                entries_ = result.take();
            if (isOutdated_)
                refresh();
            Q_EMIT wasRead();
        });
}

} // namespace tessary
