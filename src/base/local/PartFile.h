#pragma once

#include "base/local/Unfinished.h"
#include "base/values/Bytes.h"

#include <QDateTime>
#include <QFile>
#include <QString>

#include <optional>

namespace tessary {

/// A local file that appears whole or not at all: it is written under a temporary name in the
/// target's folder and renamed over the target by commit(). Without commit() nothing is left of
/// it and an older file keeps its content. Used by one thread. Fails with
/// LocalError::folderInTheWay, ::cannotWrite and ::cannotRename.
class PartFile {
public:
    /// What the names of temporary files begin with.
    static constexpr QLatin1StringView namePrefix{".tessary-part-"};
    /// A name that no file has.
    [[nodiscard]] static QString newName();

    explicit PartFile(const QString& target);
    /// Removes the temporary file when it was not committed.
    ~PartFile();
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;

    void write(ByteView bytes);
    [[nodiscard]] qint64 size() const {
        return size_;
    }
    /// Dates the file, when a date is given, and puts it in the target's place.
    void commit(const std::optional<QDateTime>& modified);

private:
    const QString target_;
    QFile file_;
    Unfinished unfinished_;
    qint64 size_ = 0;
    bool isCommitted_ = false;
};

} // namespace tessary
