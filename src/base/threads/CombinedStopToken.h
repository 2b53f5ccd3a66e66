#pragma once

#include <stop_token>

namespace tessary {

/// A token that is stopped once either of two is.
class CombinedStopToken {
public:
    CombinedStopToken(const std::stop_token& one, const std::stop_token& other)
        : first_(one, Request{both_}), second_(other, Request{both_}) {}

    [[nodiscard]] std::stop_token token() const {
        return both_.get_token();
    }

private:
    struct Request {
        std::stop_source source;
        void operator()() {
            source.request_stop();
        }
    };

    std::stop_source both_;
    std::stop_callback<Request> first_;
    std::stop_callback<Request> second_;
};

} // namespace tessary
