#pragma once

#include "phone/records/FileItem.h"

#include <QByteArray>
#include <QDateTime>
#include <QHash>
#include <QString>

#include <mutex>
#include <optional>
#include <vector>

namespace tessary {

/// A file that was fetched from a phone.
struct ImportRecord {
    QString path; ///< on the phone
    qint64 size = 0;
    std::optional<QDateTime> modified;
    QString copy;                ///< where it went here, absolute; it may have been renamed since
    QByteArray sha256;           ///< of its content; empty when that was not compared
    bool isJustCompared = false; ///< by this program, with the phone's own; not stored

    bool operator==(const ImportRecord&) const = default;
};

/// What was fetched from one phone, whatever has become of the copies: a file that only ever grows,
/// one JSON object a line. Several programs may write to it at a time. A line that makes no sense,
/// as the last one after a power cut, counts as none: the file that it was about is found beside
/// its copy. Thread-safe.
class ImportLedger {
public:
    /// Where this user's ledgers are kept.
    [[nodiscard]] static QString usersFolder();

    /// Reads what is known of the phone. `folder` is made when something is added. LocalError when
    /// there is something that cannot be read.
    ImportLedger(const QString& folder, const QString& udid);

    /// The record of a file: of one size, and of one date but for whole hours (phones that move to
    /// another time zone), under its path; or else of the same name and date in another folder of
    /// the phone. No value for what was never fetched, or has changed since. It says nothing of the
    /// content: another photo may be as large, and of that date.
    [[nodiscard]] std::optional<ImportRecord> find(const FileItem& file) const;

    /// Adds records, for good once this returns. LocalError::cannotWrite, ::cannotMakeFolder.
    void add(const std::vector<ImportRecord>& records);

    /// Absolute.
    [[nodiscard]] const QString& file() const {
        return file_;
    }

private:
    void remember(ImportRecord record);

    const QString file_;
    mutable std::mutex mutex_;
    QHash<QString, std::vector<ImportRecord>> records_; ///< by name; guarded by mutex_
};

} // namespace tessary
