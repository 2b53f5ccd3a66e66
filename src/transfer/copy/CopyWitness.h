#pragma once

#include "transfer/copy/CopyTypes.h"

#include <QByteArray>

namespace tessary {

/// Is told of each file that a copy has brought, while it goes on. Called on the thread of the
/// copy.
class CopyWitness {
public:
    virtual ~CopyWitness() = default;

    /// `copy` is there under its name. `sha256` is that of its content; empty unless the copy
    /// verifies.
    virtual void copied(const CopyItem& item, const FileItem& copy, const QByteArray& sha256) = 0;
    /// Nothing more comes of this run, however it ended. What it returns is why the copy failed in
    /// spite of all files being there.
    [[nodiscard]] virtual std::optional<Error> ended() = 0;
};

} // namespace tessary
