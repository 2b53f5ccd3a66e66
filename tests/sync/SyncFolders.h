#pragma once

#include "support/QtPrinters.h"
#include "support/TemporaryFolder.h"
#include "sync/plan/SyncManifest.h"

#include <QDirIterator>
#include <gtest/gtest.h>

#include <map>

namespace tessary {

/// The folder "mac" of this computer's disk and the folder "Sync" of a virtual phone, which lies on
/// this computer's disk, too. A part of fixtures that have the phone.
class SyncFolders {
protected:
    using Files = std::map<QString, QByteArray>;

    virtual ~SyncFolders() = default;

    /// The phone's folder as this computer has it.
    [[nodiscard]] virtual QString phoneFolder() = 0;
    [[nodiscard]] virtual QString localFolder() const {
        return computer_.path(QStringLiteral("mac"));
    }

    void clear() {
        for (const QString& folder : {localFolder(), phoneFolder()}) {
            QDir(folder).removeRecursively();
            QDir().mkpath(folder);
        }
    }
    static void write(const QString& path, const QByteArray& content, int secondsAgo = 0) {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size() &&
                    file.flush());
        if (secondsAgo > 0) {
            ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(-secondsAgo),
                                         QFileDevice::FileModificationTime));
        }
    }
    void here(const QString& path, const QByteArray& content, int secondsAgo = 100) {
        write(localFolder() + QLatin1Char('/') + path, content, secondsAgo);
    }
    void onPhone(const QString& path, const QByteArray& content, int secondsAgo = 100) {
        write(phoneFolder() + QLatin1Char('/') + path, content, secondsAgo);
    }
    void removeHere(const QString& path) {
        QFile::remove(localFolder() + QLatin1Char('/') + path);
    }
    void removeOnPhone(const QString& path) {
        QFile::remove(phoneFolder() + QLatin1Char('/') + path);
    }
    /// All that lies below a folder, files of ours aside.
    static Files below(const QString& folder) {
        Files files;
        QDirIterator walk(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (walk.hasNext()) {
            QFile file(walk.next());
            if (walk.fileName() == SyncManifest::fileName ||
                walk.filePath().contains(QStringLiteral("/.tessary-part-")))
                continue;
            EXPECT_TRUE(file.open(QIODevice::ReadOnly));
            files[QDir(folder).relativeFilePath(file.fileName())] = file.readAll();
        }
        return files;
    }
    /// Files that did not arrive, on either side.
    [[nodiscard]] QStringList parts() {
        QStringList found;
        for (const QString& folder : {localFolder(), phoneFolder()}) {
            QDirIterator walk(folder, {QStringLiteral(".tessary-part-*")},
                              QDir::Files | QDir::Dirs | QDir::Hidden,
                              QDirIterator::Subdirectories);
            while (walk.hasNext())
                found.append(walk.next());
        }
        return found;
    }
    [[nodiscard]] Files hereFiles() const {
        return below(localFolder());
    }
    [[nodiscard]] Files phoneFiles() {
        return below(phoneFolder());
    }
    [[nodiscard]] bool holds(const QByteArray& content) {
        for (const Files& files : {hereFiles(), phoneFiles()})
            for (const auto& [name, each] : files)
                if (each == content)
                    return true;
        return false;
    }

    const TemporaryFolder computer_;
};

} // namespace tessary
