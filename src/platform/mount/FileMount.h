#pragma once

#include <QDateTime>
#include <QString>

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace tessary {

/// What a mounted folder shows. Called on the mount's own threads, several at a time. Paths begin
/// with "/", which is the folder itself. Failures are std::system_error; whoever reads the folder
/// is told their errno.
class MountedFiles {
public:
    struct Entry {
        QString name;
        bool isFolder = false;
        qint64 size = 0; ///< bytes
        std::optional<QDateTime> modified;
    };

    /// A file that somebody has open.
    class Reader {
    public:
        virtual ~Reader() = default;

        /// Fills `into` with what lies at `offset`; less only at the end of the file. Blocks until
        /// the bytes are there, and gives up soon after `isGivenUp` says so.
        virtual std::size_t read(qint64 offset, std::span<std::byte> into,
                                 const std::function<bool()>& isGivenUp) = 0;
    };

    virtual ~MountedFiles() = default;

    virtual Entry entry(const QString& path) = 0;
    virtual std::vector<Entry> list(const QString& path) = 0;
    virtual std::unique_ptr<Reader> open(const QString& path) = 0;
};

/// A folder of this computer whose content a program makes up as it is read.
class FileMount {
public:
    /// Takes the folder away again. A read that does not end by itself would hold this up.
    virtual ~FileMount() = default;
};

/// Shows `files` in `folder`, an empty folder, to this user only and for reading only; also a
/// program that ends badly leaves no mount behind. `files` must outlive the result. Null where the
/// system cannot do this. Blocks for some milliseconds.
[[nodiscard]] std::unique_ptr<FileMount> mountFiles(MountedFiles& files, const QString& folder);

} // namespace tessary
