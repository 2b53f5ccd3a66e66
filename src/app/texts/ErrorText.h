#pragma once

#include "base/values/Error.h"

#include <QString>

namespace tessary {

/// A failure in words for the person with the phone, in the language of the interface. Names in it
/// come from phones and disks: they are made printable.
struct ErrorText {
    QString what;    ///< what happened
    QString advice;  ///< what to do; empty when there is nothing to do
    QString details; ///< the protocol's numbers, in English; empty without any

    /// What happened and what to do, one after the other.
    [[nodiscard]] QString text() const;

    bool operator==(const ErrorText&) const = default;
};

/// The words for an error: those of its code, or, where a protocol's own code is on top, of what
/// that comes to. For the main thread.
[[nodiscard]] ErrorText errorText(const Error& error);

/// Why one item was left out, to stand beside its name: "it is a link; links are not followed".
/// For the main thread.
[[nodiscard]] QString reasonText(const Error& error);

} // namespace tessary
