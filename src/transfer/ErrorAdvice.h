#pragma once

#include <QString>
#include <QStringList>

#include <exception>

namespace tessary {

class FileAccess;

/// A failure in words for the person with the phone: what happened, and what to do about it.
struct ErrorAdvice {
    QString message;
    QString advice; ///< empty when there is nothing to do

    /// Both, one after the other.
    [[nodiscard]] QString text() const {
        return advice.isEmpty() ? message : message + QLatin1Char(' ') + advice;
    }
};

/// The words for a failure of the file service. `holders` are the programs that hold the phone,
/// as far as they are known. Pure.
[[nodiscard]] ErrorAdvice adviceFor(const std::exception& error, const QStringList& holders = {});

/// The same; asks which programs hold the phone when, and only when, that is what failed. Blocking.
[[nodiscard]] ErrorAdvice adviceFor(const std::exception& error, FileAccess& files);

} // namespace tessary
