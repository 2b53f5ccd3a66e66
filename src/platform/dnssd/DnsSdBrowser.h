#pragma once

#include "base/threads/SerialQueue.h"
#include "platform/dnssd/ServiceBrowser.h"

#include <memory>

namespace tessary {

/// Browses through the DNS-SD service of this computer, on a thread of its own.
class DnsSdBrowser final : public ServiceBrowser {
public:
    explicit DnsSdBrowser(QString type);
    ~DnsSdBrowser() override;

    void start(Changed changed) override;
    void cancel() override;

private:
    struct State;

    std::shared_ptr<State> state_; ///< shared with the thread, which may hang in the library
    SerialQueue queue_;
};

} // namespace tessary
