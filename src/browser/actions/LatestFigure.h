#pragma once

#include "base/threads/MainThread.h"

#include <QObject>
#include <QPointer>

#include <atomic>
#include <functional>
#include <memory>
#include <utility>

namespace tessary {

/// What a worker calls as often as it likes with a figure that grows: `tell` is called on the main
/// thread with the newest, once it has shown the one before, and no more when `context` is gone.
[[nodiscard]] inline std::function<void(qint64)> tellLatest(QObject* context,
                                                            std::function<void(qint64)> tell) {
    const auto isShown = std::make_shared<std::atomic<bool>>(true);
    return [self = QPointer(context), tell = std::move(tell), isShown](qint64 figure) {
        if (!isShown->exchange(false))
            return;
        MainThread::post([self, tell, isShown, figure] {
            *isShown = true;
            if (self)
                tell(figure);
        });
    };
}

} // namespace tessary
