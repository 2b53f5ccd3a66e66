#include "base/threads/CancellationError.h"
#include "platform/dnssd/DnsSdBrowser.h"
#include "platform/dnssd/DnsServiceRef.h"

#include <arpa/inet.h>
#include <net/if.h>
#include <poll.h>

#include <array>
#include <chrono>

namespace tessary {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds patience = 5s; // with the network, for each question
constexpr int tick = 100;                          // ms, after which a stop request is noticed

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
    std::unique_ptr<ServiceBrowser> browse(const QString& type) override {
        return std::make_unique<DnsSdBrowser>(type);
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
