#include "app/texts/HttpWords.h"

#include <QtGlobal>

#include <array>

namespace tessary {

namespace {

constexpr const char* later = QT_TRANSLATE_NOOP("ErrorText", "Please try again later.");

/// In the order of the enum's cases.
constexpr std::array httpWords{
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The server did not answer in time."), nullptr,
               later},
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The server's answer is too long."), nullptr, later},
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The server's address is not a safe one."), nullptr,
               later},
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The server redirects without end."), nullptr, later},
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The server's answer was cut off."), nullptr, later},
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The server cannot be reached: %1"),
               QT_TRANSLATE_NOOP("ErrorText", "the server cannot be reached"), later},
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The server answered with the error %1."),
               QT_TRANSLATE_NOOP("ErrorText", "the server answered with an error"), later},
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The server's answer is not what it should be."),
               nullptr, later},
};
static_assert(httpWords.size() == static_cast<std::size_t>(HttpError::badContent) + 1);

} // namespace

ErrorWords wordsOf(HttpError error) {
    return httpWords[static_cast<std::size_t>(error)];
}

} // namespace tessary
