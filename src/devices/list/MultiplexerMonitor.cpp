#include "devices/list/MultiplexerMonitor.h"

#include "base/threads/Background.h"
#include "base/threads/EndInBackground.h"

#include <QPointer>

#include <utility>

namespace tessary {

MultiplexerMonitor::MultiplexerMonitor(Multiplexer* multiplexer, QObject* parent)
    : QObject(parent), multiplexer_(multiplexer) {}

MultiplexerMonitor::~MultiplexerMonitor() {
    stop();
}

void MultiplexerMonitor::start() {
    if (multiplexer_ != nullptr && !watch_)
        subscribe();
}

void MultiplexerMonitor::stop() {
    endInBackground(std::move(watch_));
    ++period_;
}

void MultiplexerMonitor::subscribe() {
    const auto changed = [guard = QPointer<MultiplexerMonitor>(this), period = period_] {
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
            endInBackground(std::move(watch)); // it waits for the library's thread
        });
}

void MultiplexerMonitor::refresh() {
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
