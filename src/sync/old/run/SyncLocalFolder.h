#pragma once

#include "sync/old/plan/SyncManifest.h"
#include "sync/old/plan/SyncScan.h"

#include <QDateTime>
#include <QString>

#include <chrono>
#include <optional>
#include <stop_token>

namespace tessary {

/// A temporary file that was written to within this time belongs to somebody who is at work.
inline constexpr std::chrono::minutes leftoverAge{10};

/// The local side of one run: a folder, and nothing outside it. Links are never followed. Blocking;
/// used by one thread. Failures are TessaryError::fileIOError.
class SyncLocalFolder {
public:
    virtual ~SyncLocalFolder() = default;

    /// False when nothing is there; a file in its place throws.
    [[nodiscard]] virtual bool exists() = 0;
    virtual void create() = 0;
    /// Everything below the folder; a folder that cannot be listed fails it.
    [[nodiscard]] virtual SyncScan scan(const std::stop_token& stop) = 0;
    /// A file as it is now; no value when no regular file is there.
    [[nodiscard]] virtual std::optional<SyncFileEntry> stat(const QString& relativePath) = 0;

    /// The absolute path of an entry.
    [[nodiscard]] virtual QString pathOf(const QString& relativePath) const = 0;
    /// An absolute path for a temporary file beside an entry; makes the folders above it.
    [[nodiscard]] virtual QString temporaryPathFor(const QString& relativePath) = 0;
    /// Bytes of a temporary file.
    [[nodiscard]] virtual qint64 temporarySize(const QString& temporaryPath) = 0;
    /// Whether an entry and a temporary file hold the same bytes.
    [[nodiscard]] virtual bool hasSameContent(const QString& relativePath,
                                              const QString& temporaryPath,
                                              const std::stop_token& stop) = 0;
    /// Dates a temporary file and renames it over an entry.
    virtual void putInPlace(const QString& temporaryPath, const QString& relativePath,
                            const QDateTime& date) = 0;
    /// Returns once an entry would survive a power cut: its content and the names that lead to it.
    virtual void flush(const QString& relativePath) = 0;
    /// Removes a temporary file that may be there. Never throws.
    virtual void discard(const QString& temporaryPath) noexcept = 0;
    /// Copies an entry, date included, to a name that nothing has.
    virtual void copyTo(const QString& relativePath, const QString& newRelativePath,
                        const std::stop_token& stop) = 0;
    virtual void remove(const QString& relativePath) = 0;
    /// Removes the folders above an entry that are empty, the root never. Never throws.
    virtual void removeEmptyFoldersAbove(const QString& relativePath) noexcept = 0;
    /// Removes a temporary file that an earlier run left, unless something still writes to it.
    /// Never throws.
    virtual void removeLeftover(const QString& relativePath) noexcept = 0;

    /// No value when there is none that can be read.
    [[nodiscard]] virtual std::optional<SyncManifest> loadManifest() = 0;
    /// Replaces the manifest, whole or not at all. Failures are logged only.
    virtual void saveManifest(const SyncManifest& manifest) = 0;

    [[nodiscard]] virtual SyncNameRules nameRules() const = 0;
};

} // namespace tessary
