#pragma once

#include "adb/files/ADBSession.h"
#include "phone/PhoneFileSystem.h"

#include <QString>

namespace tessary {

/// Single changes of a phone's files by commands of its shell, each checked by looking at what it
/// should have changed. Made for one call. Paths are canonical. Errors of ADBSession, and
/// PhoneError.
class ADBEdits {
public:
    ADBEdits(ADBSession& session, std::stop_token stop)
        : session_(session), stop_(std::move(stop)) {}

    FileItem makeFolder(const QString& parent, const QString& name);
    void remove(const FileItem& item);
    /// Into another folder or to another name.
    FileItem rename(const FileItem& item, const QString& folder, const QString& name,
                    TakenName taken);
    void setModified(const FileItem& file, const QDateTime& date);
    FileItem write(const NewFile& file, const ByteSource& content, const ByteProgress& progress);
    /// What comes behind the first `keptBytes` of a file that is there. What has arrived stays when
    /// it fails.
    FileItem append(const FileItem& begun, qint64 keptBytes, const NewFile& whole,
                    const ByteSource& content, const ByteProgress& progress);

    /// Of smaller files nothing stays: they are sent by the sync service, in fewer steps.
    static constexpr qint64 appendsFrom = qint64{16} << 20;

    /// PhoneError::changed when something of another kind is there now, ::notFound for nothing.
    static void requireKind(const FileItem& item, const std::optional<ADBFacts>& facts);
    static void requireFolder(const QString& path, const std::optional<ADBFacts>& facts);
    static void requireName(const QString& name);

    /// The mode of a file that is made: a plain one, for its owner and group.
    static constexpr std::uint32_t newFileMode = 0100660;
    /// A date as the sync service takes it: now, when there is none.
    [[nodiscard]] static std::uint32_t secondsOf(const std::optional<QDateTime>& date);

private:
    /// What is at a new name's place when it can be had: nothing, or another spelling of `own`.
    [[nodiscard]] bool requireFree(const QString& folder, const QString& name,
                                   const std::optional<ADBFacts>& there, const QString& own);
    void removeRest(const QByteArray& path);
    [[nodiscard]] FileItem fill(const NewFile& file, qint64 keptBytes, const ByteSource& content,
                                const ByteProgress& progress);
    [[nodiscard]] FileItem respell(const FileItem& item, const QString& newPath);

    ADBSession& session_;
    const std::stop_token stop_;
};

} // namespace tessary
