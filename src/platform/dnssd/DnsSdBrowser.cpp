#include "platform/dnssd/DnsSdBrowser.h"

#include "base/local/FileHandle.h"
#include "base/log/DiagnosticsLogger.h"
#include "platform/dnssd/DnsServiceRef.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <mutex>
#include <system_error>
#include <utility>

namespace tessary {

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds retryPause = 3s;
/// A network that announces more is not to be believed.
constexpr std::size_t maxServices = 256;

} // namespace

struct DnsSdBrowser::State {
    explicit State(QString serviceType) : type(std::move(serviceType)) {
        std::array<int, 2> ends{-1, -1};
        if (::pipe(ends.data()) != 0)
            throw std::system_error(errno, std::generic_category(), "pipe");
        for (const int end : ends)
            ::fcntl(end, F_SETFD, FD_CLOEXEC);
        wakeOut = FileHandle(ends[0]);
        wakeIn = FileHandle(ends[1]);
    }

    void report() {
        if (reported == results)
            return;
        reported = results;
        const std::scoped_lock lock(mutex);
        if (changed)
            changed(results);
    }
    /// Waits for an answer on a socket, or, without one (-1), for the pause to end. False at the
    /// end of the browsing.
    bool await(int socket) const {
        std::array<pollfd, 2> waited{pollfd{wakeOut.get(), POLLIN, 0}, pollfd{socket, POLLIN, 0}};
        const int limit = socket < 0 ? static_cast<int>(retryPause.count()) : -1;
        while (::poll(waited.data(), waited.size(), limit) < 0 && errno == EINTR) {
        }
        return !isCancelled;
    }
    void apply(DNSServiceFlags flags, const ServiceEndpoint& service) {
        auto& services = results.services;
        const auto known = std::find(services.begin(), services.end(), service);
        if ((flags & kDNSServiceFlagsAdd) == 0) {
            if (known != services.end())
                services.erase(known);
        } else if (known == services.end() && services.size() < maxServices) {
            services.push_back(service);
        }
    }

    const QString type;
    // The ends of a pipe that ends every wait:
    FileHandle wakeOut;
    FileHandle wakeIn;
    std::atomic<bool> isCancelled = false;
    std::mutex mutex; ///< guards `changed`, also while it is called
    Changed changed;

    // On the browser's thread:
    ServiceResults results;
    std::optional<ServiceResults> reported;
    bool isFailed = false;
};

namespace {

/// The DNS-SD library's way of writing a domain or type ends in a dot.
QString withoutDot(const char* text) {
    QString result = QString::fromUtf8(text);
    if (result.endsWith(QLatin1Char('.')))
        result.chop(1);
    return result;
}

} // namespace

DnsSdBrowser::DnsSdBrowser(QString type)
    : state_(std::make_shared<State>(std::move(type))), queue_("tessary-dnssd") {}

DnsSdBrowser::~DnsSdBrowser() {
    cancel();
}

void DnsSdBrowser::cancel() {
    state_->isCancelled = true;
    const char byte = 0;
    (void)!::write(state_->wakeIn.get(), &byte, 1);
    const std::scoped_lock lock(state_->mutex);
    state_->changed = nullptr;
}

void DnsSdBrowser::start(Changed changed) {
    {
        const std::scoped_lock lock(state_->mutex);
        state_->changed = std::move(changed);
    }
    queue_.post([state = state_] {
        const auto found = [](DNSServiceRef, DNSServiceFlags flags, std::uint32_t interfaceIndex,
                              DNSServiceErrorType error, const char* name, const char* type,
                              const char* domain, void* context) {
            auto& self = *static_cast<State*>(context);
            if (error != kDNSServiceErr_NoError || !name || !type || !domain)
                self.isFailed = true;
            else
                self.apply(flags, {QString::fromUtf8(name), withoutDot(type), withoutDot(domain),
                                   interfaceIndex});
        };
        do {
            DNSServiceRef raw = nullptr;
            DNSServiceErrorType error =
                DNSServiceBrowse(&raw, 0, kDNSServiceInterfaceIndexAny,
                                 state->type.toUtf8().constData(), nullptr, found, state.get());
            const DnsServiceRef question(error == kDNSServiceErr_NoError ? raw : nullptr);
            state->results = {question != nullptr, {}};
            state->isFailed = false;
            state->report();
            while (question && !state->isFailed &&
                   state->await(DNSServiceRefSockFD(question.get()))) {
                error = DNSServiceProcessResult(question.get());
                state->isFailed = state->isFailed || error != kDNSServiceErr_NoError;
                if (!state->isFailed)
                    state->report();
            }
            if (state->isFailed) {
                DiagnosticsLogger::shared().adb.info("DNS-SD browsing broke off.");
                state->results = {};
                state->report();
            }
        } while (state->await(-1));
    });
}

} // namespace tessary
