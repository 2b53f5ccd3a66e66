#pragma once

#include <QString>
#include <QStringList>

namespace tessary {

/// Why an attached device cannot be read at the moment. A value; texts are in English.
struct DeviceTrouble {
    enum class Kind {
        heldByProgram, ///< another program uses it: `programs`, as far as they are known
        notPermitted,  ///< this user may not open USB devices
        refused,       ///< it wants to be unlocked, or to trust this computer first
        notAnswering,  ///< it stays silent, or answers nonsense
        adbMissing,    ///< it is read over MTP although Turbo mode was chosen
    };
    Kind kind = Kind::notAnswering;
    QStringList programs;
    QString message; ///< what is wrong, one sentence
    QString advice;  ///< what to do about it; may be empty

    bool operator==(const DeviceTrouble&) const = default;
};

} // namespace tessary
