#pragma once

#include "base/threads/CancellationError.h"
#include "phone/PhoneFileSystem.h"
#include "phone/PhoneQueue.h"

#include <algorithm>
#include <functional>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace tessary {

/// What a phone in memory was asked, and what goes wrong with it. Thread-safe.
class MemoryRequests {
public:
    enum class Operation {
        list,
        find,
        read,
        write,
        makeFolder,
        remove,
        removeTree,
        rename,
        move,
        setModified,
        freeBytes,
        thumbnail,
        hash,
        flush,
    };

    /// A request as the phone saw it.
    struct Request {
        Operation operation{};
        QString path{};    ///< of what is read, made, removed or changed
        QString other{};   ///< the new name of a rename, the new folder of a move
        qint64 bytes = 0;  ///< that went across, for read and write
        ByteRange range{}; ///< of a read

        /// `at` is any path when it is empty.
        [[nodiscard]] bool is(Operation wanted, const QString& at) const {
            return operation == wanted && (at.isEmpty() || path == at);
        }
    };

    // --- Faults ---

    /// The n-th request from now on (the next is 1) fails before it does anything.
    void failCall(int n, const Error& error) {
        const std::scoped_lock lock(mutex_);
        faults_.push_back({.afterCalls = n, .error = error});
    }
    /// Requests of a kind for a path fail, this many times.
    void fail(Operation operation, const QString& path, const Error& error, int times = 1'000'000) {
        const std::scoped_lock lock(mutex_);
        faults_.push_back(
            {.operation = operation, .path = path, .error = error, .timesLeft = times});
    }
    /// The next reads or writes of a path, this many, fail when so many bytes are across.
    void failAfterBytes(Operation operation, const QString& path, qint64 bytes, const Error& error,
                        int times = 1) {
        const std::scoped_lock lock(mutex_);
        faults_.push_back({.operation = operation,
                           .path = path,
                           .error = error,
                           .timesLeft = times,
                           .bytes = bytes});
    }
    /// A byte of the next content that moves, either way, arrives as another one.
    void garbleNext() {
        const std::scoped_lock lock(mutex_);
        garblesNext_ = true;
    }
    void forgetFaults() {
        const std::scoped_lock lock(mutex_);
        faults_.clear();
    }
    /// Listings of a folder break off after this many rows.
    void cutListing(const QString& folder, int rows) {
        const std::scoped_lock lock(mutex_);
        cutListings_.push_back({folder, rows});
    }
    /// From the n-th request on (the next is 1) every one fails with PhoneError::unplugged.
    void loseLink(int atCall = 1) {
        const std::scoped_lock lock(mutex_);
        lostAt_ = calls_ + atCall;
    }
    void restoreLink() {
        const std::scoped_lock lock(mutex_);
        lostAt_.reset();
    }
    /// Called before each request is carried out, without any lock: for changes behind a copy's
    /// back, and for tests that hold a request up. What it throws, the request throws.
    void beforeEach(std::function<void(const Request&)> hook) {
        beforeEachCall([hook = std::move(hook)](const Request& request, const Call&) {
            if (hook)
                hook(request);
        });
    }
    /// The same for what can be stopped meanwhile.
    void beforeEachCall(std::function<void(const Request&, const Call&)> hook) {
        const std::scoped_lock lock(mutex_);
        hook_ = std::move(hook);
    }

    /// Called, without any lock, before a listing hands out more rows.
    void betweenRows(std::function<void()> hook) {
        const std::scoped_lock lock(mutex_);
        rowsHook_ = std::move(hook);
    }

    // --- What was asked ---

    [[nodiscard]] std::vector<Request> requests() const {
        const std::scoped_lock lock(mutex_);
        return log_;
    }
    [[nodiscard]] int count(Operation operation) const {
        const std::scoped_lock lock(mutex_);
        return static_cast<int>(
            std::count_if(log_.begin(), log_.end(), [operation](const Request& request) {
                return request.operation == operation;
            }));
    }
    /// Bytes that all requests of a kind brought across.
    [[nodiscard]] qint64 bytes(Operation operation) const {
        const std::scoped_lock lock(mutex_);
        qint64 sum = 0;
        for (const Request& request : log_)
            if (request.operation == operation)
                sum += request.bytes;
        return sum;
    }
    void forgetRequests() {
        const std::scoped_lock lock(mutex_);
        log_.clear();
    }

protected:
    struct Fault {
        std::optional<Operation> operation{};
        QString path{};
        int afterCalls = 0; ///< counts down; without an operation
        Error error;
        int timesLeft = 1;
        qint64 bytes = -1; ///< when this many are across; -1: before anything is done
    };

    struct CutListing {
        QString folder;
        int rows = 0;
    };

    /// One request: its turn with the phone, its entry in the log, and the faults that hit it.
    class Step {
    public:
        Step(MemoryRequests& files, const std::shared_ptr<PhoneQueue>& queue,
             const Request& request, const Call& call)
            : files_(files) {
            throwIfStopped(call.stop);
            if (queue)
                turn_.emplace(queue->take(call));
            std::function<void(const Request&, const Call&)> hook;
            std::optional<Error> failure;
            {
                const std::scoped_lock lock(files.mutex_);
                ++files.calls_;
                index_ = files.log_.size();
                files.log_.push_back(request);
                hook = files.hook_;
                failure = files.faultOf(request);
                cut_ = files.cutOf(request);
            }
            if (hook)
                hook(request, call);
            if (failure)
                throw *failure;
        }

        /// How many of the next bytes go across; throws when none may.
        [[nodiscard]] qint64 allowed(qint64 done, qint64 wanted) const {
            {
                const std::scoped_lock lock(files_.mutex_);
                if (files_.lostAt_ && files_.calls_ >= *files_.lostAt_)
                    throw Error(PhoneError::unplugged);
            }
            if (!cut_)
                return wanted;
            if (done >= cut_->bytes)
                throw cut_->error;
            return std::min(wanted, cut_->bytes - done);
        }
        void garbleIfDue(QByteArray& content) {
            const std::scoped_lock lock(files_.mutex_);
            if (!content.isEmpty() && std::exchange(files_.garblesNext_, false))
                content[0] = static_cast<char>(~content[0]);
        }
        void noteBytes(qint64 done) {
            const std::scoped_lock lock(files_.mutex_);
            if (index_ < files_.log_.size())
                files_.log_[index_].bytes = done;
        }

    private:
        MemoryRequests& files_;
        std::optional<PhoneQueue::Turn> turn_;
        std::size_t index_ = 0;
        std::optional<Fault> cut_;
    };

    void callRowsHook() const {
        std::function<void()> hook;
        {
            const std::scoped_lock lock(mutex_);
            hook = rowsHook_;
        }
        if (hook)
            hook();
    }
    [[nodiscard]] std::vector<CutListing> cutListings() const {
        const std::scoped_lock lock(mutex_);
        return cutListings_;
    }

private:
    // Called with the lock held.

    std::optional<Error> faultOf(const Request& request) {
        if (lostAt_ && calls_ >= *lostAt_)
            return Error(PhoneError::unplugged);
        std::optional<Error> found;
        for (Fault& fault : faults_) {
            const bool hits = fault.operation
                                  ? request.is(*fault.operation, fault.path) && fault.bytes < 0
                                  : --fault.afterCalls == 0;
            if (hits && fault.timesLeft > 0 && !found) {
                --fault.timesLeft;
                found = fault.error;
            }
        }
        return found;
    }
    std::optional<Fault> cutOf(const Request& request) {
        for (Fault& fault : faults_)
            if (fault.operation && fault.bytes >= 0 && fault.timesLeft > 0 &&
                request.is(*fault.operation, fault.path)) {
                --fault.timesLeft;
                return fault;
            }
        return std::nullopt;
    }

    mutable std::mutex mutex_; ///< guards all below
    std::vector<Request> log_;
    int calls_ = 0;
    std::optional<int> lostAt_;
    bool garblesNext_ = false;
    std::vector<Fault> faults_;
    std::vector<CutListing> cutListings_;
    std::function<void()> rowsHook_;
    std::function<void(const Request&, const Call&)> hook_;
};

} // namespace tessary
