#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <stdexcept>

namespace tessary {

/// A folder of a test's own, deleted with everything in it. Paths are relative to it and may name
/// folders that are still missing.
class TemporaryFolder {
public:
    TemporaryFolder() {
        if (!folder_.isValid())
            throw std::runtime_error("no temporary folder");
    }

    [[nodiscard]] QString path() const {
        return folder_.path();
    }
    [[nodiscard]] QString path(const QString& relative) const {
        return folder_.filePath(relative);
    }

    /// Writes a file, and the folders above it. Returns its absolute path.
    QString write(const QString& relative, const QByteArray& content) const {
        makeFolder(relative + QStringLiteral("/.."));
        QFile file(path(relative));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            throw std::runtime_error("cannot write " + file.fileName().toStdString());
        return file.fileName();
    }
    /// A file of this many zeros that takes no room on the disk.
    QString writeSparse(const QString& relative, qint64 size) const {
        write(relative, {});
        if (!QFile::resize(path(relative), size))
            throw std::runtime_error("cannot resize " + path(relative).toStdString());
        return path(relative);
    }
    QString makeFolder(const QString& relative) const {
        if (!QDir().mkpath(QDir::cleanPath(path(relative))))
            throw std::runtime_error("cannot make " + path(relative).toStdString());
        return path(relative);
    }

    /// A file's content; a null array when there is none.
    [[nodiscard]] QByteArray read(const QString& relative) const {
        QFile file(path(relative));
        if (!file.open(QIODevice::ReadOnly))
            return {};
        const QByteArray content = file.readAll();
        return content.isNull() ? QByteArray("") : content;
    }
    [[nodiscard]] bool has(const QString& relative) const {
        return QFileInfo::exists(path(relative));
    }
    /// The names in a folder, hidden ones too, sorted.
    [[nodiscard]] QStringList names(const QString& relative = QString()) const {
        return QDir(path(relative))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                       QDir::Name);
    }

private:
    QTemporaryDir folder_;
};

} // namespace tessary
