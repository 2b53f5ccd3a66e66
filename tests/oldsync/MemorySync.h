#pragma once

#include "base/values/TessaryError.h"
#include "sync/old/run/SyncRun.h"

#include <QTimeZone>
#include <gtest/gtest.h>

#include <map>
#include <set>

namespace tessary {

struct MemoryFile {
    QByteArray content;
    QDateTime date;

    bool operator==(const MemoryFile&) const = default;
};

using MemoryTree = std::map<QString, MemoryFile>;

/// A computer's folder, a device's folder and a clock, in memory. Copies are worlds of their own.
struct MemoryWorld {
    MemoryTree mac;
    MemoryTree device;
    MemoryTree temporary;                ///< of the computer's folder, by absolute path
    std::map<QString, QString> unusable; ///< on the computer
    std::optional<QByteArray> macManifest;
    std::optional<QByteArray> deviceManifest;
    bool hasFolder = true;
    bool setsDates = false; ///< the device takes a file's date over
    bool samples = false;   ///< the device's files can be looked into without fetching them
    qint64 clock = 1'700'000'000;

    qint64 contentReads = 0;          ///< of files, manifests aside
    int calls = 0;                    ///< of anything that can fail
    int failAt = -1;                  ///< the call that fails
    bool failsLate = false;           ///< it has done its work by then
    std::function<void()> beforeCall; ///< somebody else at work
    std::set<QString> unflushed;      ///< files of the computer that a power cut would take
    bool isReplacing = false;         ///< the call under way removes or replaces a file

    [[nodiscard]] QDateTime now() {
        return QDateTime::fromSecsSinceEpoch(clock++, QTimeZone::utc());
    }
    /// Does a step that may fail before or after its work.
    template <typename Work>
    auto step(Work work, bool replaces = false) {
        isReplacing = replaces;
        if (beforeCall)
            beforeCall();
        const bool fails = calls++ == failAt;
        if (fails && !failsLate)
            throw TessaryError::fileIOError(QStringLiteral("injected"));
        if constexpr (std::is_void_v<decltype(work())>) {
            work();
            if (fails)
                throw TessaryError::fileIOError(QStringLiteral("injected"));
        } else {
            auto result = work();
            if (fails)
                throw TessaryError::fileIOError(QStringLiteral("injected"));
            return result;
        }
    }
    /// The same for steps that never throw.
    template <typename Work>
    void quietStep(Work work) noexcept {
        try {
            step(work);
        } catch (const TessaryError&) {
            // As the real ones: nothing or everything has happened.
        }
    }
};

inline SyncScan scanOf(const MemoryTree& tree) {
    SyncScan scan;
    for (const auto& [path, file] : tree) {
        scan.files[path] = {file.content.size(), syncDate(file.date), {}, {}};
        for (qsizetype n = path.indexOf(u'/'); n > 0; n = path.indexOf(u'/', n + 1))
            scan.folders.insert(path.left(n));
    }
    return scan;
}

inline std::optional<SyncFileEntry> statOf(const MemoryTree& tree, const QString& path) {
    const auto it = tree.find(path);
    if (it == tree.end())
        return std::nullopt;
    return SyncFileEntry{it->second.content.size(), syncDate(it->second.date), {}, {}};
}

/// Below a root, which nothing may leave.
inline QString below(const QString& root, const QString& path) {
    if (!path.startsWith(root))
        ADD_FAILURE() << "outside of the folder: " << path.toStdString();
    return path.mid(root.size());
}

class MemoryLocalFolder final : public SyncLocalFolder {
public:
    static inline const QString root = QStringLiteral("/mac/");

    explicit MemoryLocalFolder(MemoryWorld& world) : world_(world) {}

    bool exists() override {
        return world_.step([&] { return world_.hasFolder; });
    }
    void create() override {
        world_.step([&] { world_.hasFolder = true; });
    }
    SyncScan scan(const std::stop_token&) override {
        return world_.step([&] {
            SyncScan result = scanOf(world_.mac);
            result.unusable = world_.unusable;
            result.hasManifest = world_.macManifest.has_value();
            return result;
        });
    }
    std::optional<SyncFileEntry> stat(const QString& path) override {
        return world_.step([&] { return statOf(world_.mac, path); });
    }
    QString pathOf(const QString& path) const override {
        return root + path;
    }
    QString temporaryPathFor(const QString& path) override {
        return world_.step([&] { return root + path + QStringLiteral(".part"); });
    }
    qint64 temporarySize(const QString& path) override {
        return world_.step([&] { return world_.temporary.at(path).content.size(); });
    }
    bool hasSameContent(const QString& path, const QString& temporary,
                        const std::stop_token&) override {
        return world_.step([&] {
            ++world_.contentReads;
            return world_.mac.at(path).content == world_.temporary.at(temporary).content;
        });
    }
    void putInPlace(const QString& temporary, const QString& path, const QDateTime& date) override {
        world_.step(
            [&] {
                const auto node = world_.temporary.extract(temporary);
                world_.mac[path] = {node.mapped().content, date};
                world_.unflushed.insert(path);
            },
            true);
    }
    void flush(const QString& path) override {
        world_.step([&] { world_.unflushed.erase(path); });
    }
    void discard(const QString& temporary) noexcept override {
        world_.quietStep([&] { world_.temporary.erase(temporary); });
    }
    void copyTo(const QString& path, const QString& newPath, const std::stop_token&) override {
        world_.step([&] {
            ++world_.contentReads;
            EXPECT_FALSE(world_.mac.contains(newPath));
            world_.mac[newPath] = world_.mac.at(path);
        });
    }
    void remove(const QString& path) override {
        world_.step([&] { world_.mac.erase(path); }, true);
    }
    void removeEmptyFoldersAbove(const QString&) noexcept override {}
    void removeLeftover(const QString&) noexcept override {}
    std::optional<SyncManifest> loadManifest() override {
        std::optional<SyncManifest> manifest;
        world_.quietStep([&] { manifest = SyncManifest::decode(*world_.macManifest); });
        return manifest;
    }
    void saveManifest(const SyncManifest& manifest) override {
        world_.quietStep([&] { world_.macManifest = manifest.encode(); });
    }
    SyncNameRules nameRules() const override {
        return {};
    }

private:
    MemoryWorld& world_;
};

class MemoryBackend final : public SyncDeviceBackend {
public:
    static inline const QString root = QStringLiteral("/phone/dir/");

    explicit MemoryBackend(MemoryWorld& world) : world_(world) {}

    SyncScan scanDirectory(const QString& path) override {
        below(root, path + QLatin1Char('/'));
        return world_.step([&] {
            SyncScan result = scanOf(world_.device);
            result.hasManifest = world_.deviceManifest.has_value();
            return result;
        });
    }
    SyncScan scanFolder(const QString& path) override {
        const QString folder = below(root, path + QLatin1Char('/'));
        return world_.step([&] {
            SyncScan result;
            for (const auto& [name, file] : world_.device)
                if (name.startsWith(folder) && !name.mid(folder.size()).contains(u'/'))
                    result.files[name.mid(folder.size())] = {
                        file.content.size(), syncDate(file.date), {}, {}};
            return result;
        });
    }
    bool areFilesMatching(const QString& localFile, const QString& remotePath, qint64 localSize,
                          qint64 remoteSize) override {
        bool matches = false;
        if (world_.samples && localSize == remoteSize)
            world_.quietStep([&] {
                ++world_.contentReads;
                constexpr qsizetype sampleSize = 4096;
                matches = world_.mac.at(below(MemoryLocalFolder::root, localFile))
                              .content.left(sampleSize) ==
                          world_.device.at(below(root, remotePath)).content.left(sampleSize);
            });
        return matches;
    }
    void downloadFile(const QString& remotePath, const QString& localFile, qint64,
                      const FileProgressCallback& progress) override {
        world_.step([&] {
            ++world_.contentReads;
            below(MemoryLocalFolder::root, localFile);
            const auto it = world_.device.find(below(root, remotePath));
            if (it == world_.device.end())
                throw TessaryError::fileIOError(QStringLiteral("gone"));
            world_.temporary[localFile] = it->second;
            progress(it->second.content.size(), it->second.content.size());
        });
    }
    std::optional<SyncFileEntry> uploadFile(const QString& localFile, const QString& remotePath,
                                            bool mayReplace,
                                            const FileProgressCallback& progress) override {
        return world_.step(
            [&] {
                ++world_.contentReads;
                if (!mayReplace && world_.device.contains(below(root, remotePath)))
                    throw TessaryError::fileIOError(QStringLiteral("it is there already"));
                MemoryFile file = world_.mac.at(below(MemoryLocalFolder::root, localFile));
                if (!world_.setsDates)
                    file.date = world_.now();
                progress(file.content.size(), file.content.size());
                world_.device[below(root, remotePath)] = file;
                return statOf(world_.device, below(root, remotePath));
            },
            true);
    }
    void deleteRemoteFile(const QString& remotePath) override {
        const QString path = below(root, remotePath);
        EXPECT_FALSE(world_.mac.contains(path) && world_.unflushed.contains(path));
        world_.step([&] { world_.device.erase(below(root, remotePath)); }, true);
    }
    void cleanupEmptyRemoteDirectories(const QString& path, const QString&) override {
        below(root, path);
    }
    std::optional<SyncManifest> loadRemoteManifest(const QString&) override {
        std::optional<SyncManifest> manifest;
        if (world_.deviceManifest)
            world_.quietStep([&] { manifest = SyncManifest::decode(*world_.deviceManifest); });
        return manifest;
    }
    void saveRemoteManifest(const SyncManifest& manifest, const QString&) override {
        world_.quietStep([&] { world_.deviceManifest = manifest.encode(); });
    }
    std::optional<SyncFileEntry> statFile(const QString& remotePath) override {
        return world_.step([&] { return statOf(world_.device, below(root, remotePath)); });
    }
    SyncNameRules nameRules() const override {
        return {};
    }

private:
    MemoryWorld& world_;
};

inline SyncPair memoryPair() {
    SyncPair pair;
    pair.deviceUDID = QStringLiteral("ABC");
    pair.appBundleID = SyncPair::deviceStorage;
    pair.remoteFolderPath = QStringLiteral("/phone/dir");
    pair.localFolderPath = QStringLiteral("/mac");
    return pair;
}

/// One run; `events` may be empty.
inline SyncReport runOnce(MemoryWorld& world, const SyncPair& pair, SyncRunEvents events = {},
                          const std::stop_token& stop = {}) {
    MemoryLocalFolder local(world);
    MemoryBackend device(world);
    return SyncRun({pair, QStringLiteral("HOST"), QStringLiteral("Desk"), local, device,
                    [&world] { return world.now(); }},
                   std::move(events), stop)
        .run();
}

} // namespace tessary
