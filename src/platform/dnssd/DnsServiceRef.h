#pragma once

#include "base/values/FreeWith.h"

#include <dns_sd.h>

#include <memory>
#include <type_traits>

namespace tessary {

/// One question to the DNS-SD service, ended with it.
using DnsServiceRef =
    std::unique_ptr<std::remove_pointer_t<DNSServiceRef>, FreeWith<DNSServiceRefDeallocate>>;

} // namespace tessary
