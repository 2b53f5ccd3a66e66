#include "mtp/protocol/MTPTransportError.h"

namespace tessary {

MTPTransportError::MTPTransportError(Case kind) : kind_(kind) {}

MTPTransportError MTPTransportError::underlying(const QString& message) {
    MTPTransportError error(Case::underlying);
    error.message_ = message;
    return error;
}

MTPTransportError MTPTransportError::pipe(USBCode code) {
    MTPTransportError error(Case::underlying);
    error.code_ = code;
    return error;
}

MTPTransportError MTPTransportError::refusal(std::uint16_t response) {
    MTPTransportError error(Case::underlying);
    error.response_ = response;
    return error;
}

} // namespace tessary
