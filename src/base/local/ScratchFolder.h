#pragma once

#include "base/local/FileHandle.h"
#include "base/local/Unfinished.h"

#include <QString>

namespace tessary {

class PrivateFolder;

/// A fresh folder inside a PrivateFolder that goes with this object and all that is in it. A lock
/// on it says that its program runs: what a program leaves behind that was killed goes when the
/// next one is made there, once it is ten minutes old. The constructor throws
/// Error(LocalError::cannotMakeFolder).
class ScratchFolder {
public:
    explicit ScratchFolder(const PrivateFolder& in);
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    /// Absolute.
    [[nodiscard]] const QString& path() const {
        return path_;
    }
    [[nodiscard]] int descriptor() const {
        return folder_.get();
    }

private:
    FileHandle parent_;
    QByteArray name_;
    QString path_;
    FileHandle folder_;
    Unfinished unfinished_;
};

} // namespace tessary
