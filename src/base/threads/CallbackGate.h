#pragma once

#include <functional>
#include <memory>
#include <mutex>

namespace tessary {

/// Where another thread finds a caller's callback for as long as its call runs: what arrives later
/// goes nowhere.
template <typename... Arguments>
class CallbackGate {
public:
    using Callback = std::function<void(Arguments...)>;

    /// `callback` must outlive the gate.
    explicit CallbackGate(const Callback& callback) : inner_(std::make_shared<Inner>(&callback)) {}
    /// Waits for a call that is under way.
    ~CallbackGate() {
        const std::scoped_lock lock(inner_->mutex);
        inner_->callback = nullptr;
    }
    CallbackGate(const CallbackGate&) = delete;
    CallbackGate& operator=(const CallbackGate&) = delete;

    /// What leads to the callback until the gate goes; empty when the callback is.
    [[nodiscard]] Callback entrance() const {
        if (!*inner_->callback)
            return {};
        return [inner = inner_](Arguments... arguments) {
            const std::scoped_lock lock(inner->mutex);
            if (inner->callback != nullptr)
                (*inner->callback)(arguments...);
        };
    }

private:
    struct Inner {
        explicit Inner(const Callback* given) : callback(given) {}
        std::mutex mutex;
        const Callback* callback; ///< guarded by mutex
    };
    std::shared_ptr<Inner> inner_;
};

} // namespace tessary
