#pragma once

#include "platform/http/HttpClient.h"

namespace tessary {

class QtHttpClient final : public HttpClient {
public:
    [[nodiscard]] HttpResponse get(const HttpRequest& request,
                                   const std::stop_token& stop) override;
};

} // namespace tessary
