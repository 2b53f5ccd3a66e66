#pragma once

#include <dns_sd.h>

#include <memory>
#include <type_traits>

namespace tessary {

struct DeallocateDnsService {
    void operator()(DNSServiceRef ref) const {
        DNSServiceRefDeallocate(ref);
    }
};

/// One question to the DNS-SD service, ended with it.
using DnsServiceRef = std::unique_ptr<std::remove_pointer_t<DNSServiceRef>, DeallocateDnsService>;

} // namespace tessary
