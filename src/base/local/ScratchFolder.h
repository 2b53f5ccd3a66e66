#pragma once

#include "base/local/FileHandle.h"
#include "base/local/Unfinished.h"

#include <QString>

namespace tessary {

class PrivateFolder;

/// A fresh folder inside a PrivateFolder that goes with this object and all that is in it. A lock
/// on it says that its program runs: what a program leaves behind that was killed is found by that,
/// see PrivateFolder::removeAbandoned(). The constructor throws
/// Error(LocalError::cannotMakeFolder).
class ScratchFolder {
public:
    /// What the names of such folders begin with.
    static constexpr const char* namePrefix = "scratch-";

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
