#include "base/local/FileHandle.h"
#include "base/log/DiagnosticsLogger.h"
#include "base/threads/CancellationError.h"
#include "base/threads/SerialQueue.h"
#include "base/values/FreeWith.h"
#include "platform/dnssd/ServiceBrowser.h"

#include <arpa/inet.h>
#include <dns_sd.h>
#include <net/if.h>
#include <poll.h>
#include <sys/eventfd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <mutex>
#include <system_error>
#include <type_traits>
#include <utility>

namespace tessary {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds patience = 5s; // with the network, for each question
constexpr int tick = 100;                          // ms, after which a stop request is noticed
constexpr std::chrono::milliseconds retryPause = 3s;
/// A network that announces more is not to be believed.
constexpr std::size_t maxServices = 256;

/// One question to the DNS-SD service, ended with it.
using DnsServiceRef =
    std::unique_ptr<std::remove_pointer_t<DNSServiceRef>, FreeWith<DNSServiceRefDeallocate>>;

/// The DNS-SD library's way of writing a domain or type ends in a dot.
QString withoutDot(const char* text) {
    QString result = QString::fromUtf8(text);
    if (result.endsWith(QLatin1Char('.')))
        result.chop(1);
    return result;
}

/// Browses on a thread of its own.
class DnsSdBrowser final : public ServiceBrowser {
public:
    DnsSdBrowser(QString type, ServiceNetwork::Changed changed)
        : state_(std::make_shared<State>(std::move(type), std::move(changed))),
          queue_("tessary-dnssd") {
        queue_.post([state = state_] { state->browse(); });
    }
    ~DnsSdBrowser() override {
        state_->isCancelled = true;
        (void)::eventfd_write(state_->wake.get(), 1);
        const std::scoped_lock lock(state_->mutex);
        state_->changed = nullptr;
    }

private:
    struct State {
        State(QString serviceType, ServiceNetwork::Changed listener)
            : type(std::move(serviceType)),
              wake(::eventfd(0, EFD_CLOEXEC)),
              changed(std::move(listener)) {
            if (!wake.isOpen())
                throw std::system_error(errno, std::generic_category(), "eventfd");
        }

        void report() {
            if (reported == results)
                return;
            reported = results;
            const std::scoped_lock lock(mutex);
            if (changed)
                changed(results);
        }
        /// Waits for an answer on a socket, or, without one (-1), for the pause to end. False at
        /// the end of the browsing.
        bool await(int socket) const {
            std::array<pollfd, 2> waited{pollfd{wake.get(), POLLIN, 0}, pollfd{socket, POLLIN, 0}};
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

        void browse() {
            const auto found = [](DNSServiceRef, DNSServiceFlags flags,
                                  std::uint32_t interfaceIndex, DNSServiceErrorType error,
                                  const char* name, const char* kind, const char* domain,
                                  void* context) {
                auto& self = *static_cast<State*>(context);
                if (error != kDNSServiceErr_NoError || !name || !kind || !domain)
                    self.isFailed = true;
                else
                    self.apply(flags, {QString::fromUtf8(name), withoutDot(kind),
                                       withoutDot(domain), interfaceIndex});
            };
            do {
                DNSServiceRef raw = nullptr;
                DNSServiceErrorType error =
                    DNSServiceBrowse(&raw, 0, kDNSServiceInterfaceIndexAny,
                                     type.toUtf8().constData(), nullptr, found, this);
                const DnsServiceRef question(error == kDNSServiceErr_NoError ? raw : nullptr);
                results = {question != nullptr, {}};
                isFailed = false;
                report();
                while (question && !isFailed && await(DNSServiceRefSockFD(question.get()))) {
                    error = DNSServiceProcessResult(question.get());
                    isFailed = isFailed || error != kDNSServiceErr_NoError;
                    if (!isFailed)
                        report();
                }
                if (isFailed) {
                    DiagnosticsLogger::shared().adb.info("DNS-SD browsing broke off.");
                    results = {};
                    report();
                }
            } while (await(-1));
        }

        const QString type;
        FileHandle wake; ///< ends every wait
        std::atomic<bool> isCancelled = false;
        std::mutex mutex; ///< guards `changed`, also while it is called
        ServiceNetwork::Changed changed;

        // On the browser's thread:
        ServiceResults results;
        std::optional<ServiceResults> reported;
        bool isFailed = false;
    };

    std::shared_ptr<State> state_; ///< shared with the thread, which may hang in the library
    SerialQueue queue_;
};

struct Target {
    QByteArray host; ///< empty while unknown
    std::uint16_t port = 0;
};

/// Waits until `isAnswered`, for as long as one is patient. Throws CancellationError.
template <typename Test>
void await(DNSServiceRef raw, DNSServiceErrorType error, std::chrono::milliseconds limit,
           const std::stop_token& stop, Test isAnswered) {
    if (error != kDNSServiceErr_NoError)
        return;
    const DnsServiceRef question(raw);
    const auto end = Clock::now() + limit;
    while (!isAnswered() && Clock::now() < end) {
        throwIfStopped(stop);
        pollfd answer{DNSServiceRefSockFD(raw), POLLIN, 0};
        if (::poll(&answer, 1, tick) > 0 && DNSServiceProcessResult(raw) != kDNSServiceErr_NoError)
            return;
    }
}

Target askTarget(const ServiceEndpoint& service, const std::stop_token& stop) {
    Target target;
    const auto answered = [](DNSServiceRef, DNSServiceFlags, std::uint32_t,
                             DNSServiceErrorType error, const char*, const char* host,
                             std::uint16_t port, std::uint16_t, const unsigned char*,
                             void* context) {
        if (error == kDNSServiceErr_NoError && host)
            *static_cast<Target*>(context) = {host, ntohs(port)};
    };
    DNSServiceRef question = nullptr;
    const DNSServiceErrorType error = DNSServiceResolve(
        &question, 0, service.interfaceIndex, service.name.toUtf8().constData(),
        service.type.toUtf8().constData(), service.domain.toUtf8().constData(), answered, &target);
    await(question, error, patience, stop, [&] { return !target.host.isEmpty(); });
    return target;
}

/// An address in figures; of IPv6 with the interface where that tells which network is meant.
QString textOf(std::uint16_t type, const void* data, std::size_t size,
               std::uint32_t interfaceIndex) {
    const bool isIPv6 = type == kDNSServiceType_AAAA;
    if (size != (isIPv6 ? sizeof(in6_addr) : sizeof(in_addr)))
        return {};
    std::array<char, INET6_ADDRSTRLEN> text{};
    if (!::inet_ntop(isIPv6 ? AF_INET6 : AF_INET, data, text.data(), text.size()))
        return {};
    const QString address = QString::fromLatin1(text.data());
    std::array<char, IF_NAMESIZE> network{};
    const bool isLocal = isIPv6 && IN6_IS_ADDR_LINKLOCAL(static_cast<const in6_addr*>(data));
    return isLocal && ::if_indextoname(interfaceIndex, network.data())
               ? address + QLatin1Char('%') + QString::fromLatin1(network.data())
               : address;
}

/// An address of a host, asked of the network itself: the system's own look-up may not know names
/// of the local network. `type` is kDNSServiceType_A or _AAAA.
QString askAddress(const QByteArray& host, std::uint16_t type, std::uint32_t interfaceIndex,
                   std::chrono::milliseconds limit, const std::stop_token& stop) {
    QString address;
    const auto answered = [](DNSServiceRef, DNSServiceFlags flags, std::uint32_t network,
                             DNSServiceErrorType error, const char*, std::uint16_t kind,
                             std::uint16_t, std::uint16_t size, const void* data, std::uint32_t,
                             void* context) {
        if (error == kDNSServiceErr_NoError && (flags & kDNSServiceFlagsAdd) != 0 &&
            (kind == kDNSServiceType_A || kind == kDNSServiceType_AAAA))
            *static_cast<QString*>(context) = textOf(kind, data, size, network);
    };
    DNSServiceRef question = nullptr;
    const DNSServiceErrorType error =
        DNSServiceQueryRecord(&question, 0, interfaceIndex, host.constData(), type,
                              kDNSServiceClass_IN, answered, &address);
    await(question, error, limit, stop, [&] { return !address.isEmpty(); });
    return address;
}

class DnsSdNetwork final : public ServiceNetwork {
public:
    std::unique_ptr<ServiceBrowser> browse(const QString& type, Changed changed) override {
        return std::make_unique<DnsSdBrowser>(type, std::move(changed));
    }
    std::optional<ServiceAddress> resolve(const ServiceEndpoint& service,
                                          const std::stop_token& stop) override {
        const Target target = askTarget(service, stop);
        if (target.host.isEmpty() || target.port == 0)
            return std::nullopt;
        // Most have an IPv4 address, and then at once.
        QString address =
            askAddress(target.host, kDNSServiceType_A, service.interfaceIndex, patience / 2, stop);
        if (address.isEmpty())
            address = askAddress(target.host, kDNSServiceType_AAAA, service.interfaceIndex,
                                 patience, stop);
        return address.isEmpty() ? std::nullopt
                                 : std::optional(ServiceAddress{address, target.port});
    }
};

} // namespace

std::shared_ptr<ServiceNetwork> makeSystemServiceNetwork() {
    return std::make_shared<DnsSdNetwork>();
}

} // namespace tessary
