#include "base/threads/MainThread.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>

#include <deque>
#include <mutex>

namespace tessary {

namespace {

/// What was posted and not yet called, and the object whose events wake the main thread.
class Mailbox : public QObject {
public:
    /// Made with the first application object and never released: worker threads may outlive it.
    static Mailbox& shared() {
        static Mailbox& mailbox = *new Mailbox;
        return mailbox;
    }

    void post(std::function<void()> work) {
        const std::scoped_lock lock(mutex_);
        waiting_.push_back(std::move(work));
        wake();
    }

    bool event(QEvent* event) override {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        std::function<void()> work;
        {
            const std::scoped_lock lock(mutex_);
            isAwake_ = false;
            if (waiting_.empty())
                return true;
            work = std::move(waiting_.front());
            waiting_.pop_front();
            // Before the call: should it open a dialog, the rest goes on in that one's loop.
            if (!waiting_.empty())
                wake();
        }
        work();
        return true;
    }

private:
    /// With the lock held.
    void wake() {
        if (isAwake_)
            return;
        isAwake_ = true;
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }

    std::mutex mutex_;
    std::deque<std::function<void()>> waiting_; ///< guarded by mutex_
    bool isAwake_ = false;                      ///< an event is on its way; guarded by mutex_
};

/// So that it belongs to the main thread, whoever posts first.
void makeMailbox() {
    Mailbox::shared();
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(makeMailbox)

bool MainThread::isCurrent() {
    const QCoreApplication* application = QCoreApplication::instance();
    return application != nullptr && application->thread() == QThread::currentThread();
}

void MainThread::assertCurrent() {
    if (!isCurrent())
        qFatal("called on another thread than the main one");
}

void MainThread::post(std::function<void()> work) {
    Mailbox::shared().post(std::move(work));
}

} // namespace tessary
