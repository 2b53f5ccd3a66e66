#include "base/values/TessaryError.h"

#include <array>

namespace tessary {

namespace {

/// What the description of each case begins with, in the order of the cases.
constexpr std::array prefixes{
    QLatin1StringView("Device not found: "),
    QLatin1StringView("Lockdown error: "),
    QLatin1StringView("Failed to start service: "),
    QLatin1StringView("House Arrest error: "),
    QLatin1StringView(""),
    QLatin1StringView("InstProxy error: "),
    QLatin1StringView("File I/O error: "),
    QLatin1StringView("Transfer was cancelled"),
};

} // namespace

TessaryError::TessaryError(Case kind, QString message, AFCError afc)
    : kind_(kind), message_(std::move(message)), afc_(afc), utf8_(description().toUtf8()) {}

TessaryError TessaryError::deviceNotFound(const QString& text) {
    return {Case::deviceNotFound, text};
}

TessaryError TessaryError::lockdownFailed(const QString& text) {
    return {Case::lockdownFailed, text};
}

TessaryError TessaryError::serviceStartFailed(const QString& text) {
    return {Case::serviceStartFailed, text};
}

TessaryError TessaryError::houseArrestFailed(const QString& text) {
    return {Case::houseArrestFailed, text};
}

TessaryError TessaryError::afcError(AFCError error) {
    return {Case::afcError, QString(), error};
}

TessaryError TessaryError::instProxyFailed(const QString& text) {
    return {Case::instProxyFailed, text};
}

TessaryError TessaryError::fileIOError(const QString& text) {
    return {Case::fileIOError, text};
}

TessaryError TessaryError::transferCancelled() {
    return {Case::transferCancelled, QString()};
}

QString TessaryError::description() const {
    if (kind_ == Case::afcError)
        return tessary::description(afc_);
    return prefixes[static_cast<std::size_t>(kind_)] + message_;
}

} // namespace tessary
