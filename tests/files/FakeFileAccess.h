#pragma once

#include "base/threads/CancellationError.h"
#include "base/values/TessaryError.h"
#include "phone/DevicePath.h"
#include "phone/FileAccess.h"
#include "support/Gate.h"

#include <QFile>
#include <QStringList>

#include <functional>
#include <map>
#include <mutex>

namespace tessary {

/// A scripted device in memory, rooted at "/root", whose folders can be listed and emptied.
/// Thread-safe.
class FakeFileAccess : public FileAccess {
public:
    /// Called before each operation, named "list /root/a", "delete b.txt", …: may wait or throw.
    using Script = std::function<void(const QString& operation, const std::stop_token&)>;

    void setScript(Script script) {
        const std::scoped_lock lock(mutex_);
        script_ = std::move(script);
    }
    /// This operation, or each, waits at the gate; until it is stopped, when it notices.
    void holdAt(Gate& gate, const QString& held = {}, bool noticesStop = true) {
        setScript([=, &gate](const QString& operation, const std::stop_token& stop) {
            if (held.isEmpty() || operation == held)
                gate.pass(noticesStop ? stop : std::stop_token());
        });
    }
    void setItems(const QString& folder, std::vector<FileItem> items) {
        const std::scoped_lock lock(mutex_);
        folders_[folder] = std::move(items);
    }
    /// Files and, where a name ends in "/", folders (which are empty themselves).
    void fill(const QString& folder, const QStringList& names) {
        const std::scoped_lock lock(mutex_);
        for (QString name : names) {
            const bool isFolder = name.endsWith(QLatin1Char('/'));
            if (isFolder)
                name.chop(1);
            const QString path = joinPath(folder, name);
            folders_[folder].emplace_back(name, path, isFolder, isFolder ? 0 : 10, std::nullopt);
            if (isFolder)
                folders_[path];
        }
    }
    [[nodiscard]] int count(const QString& operation) const {
        const std::scoped_lock lock(mutex_);
        return static_cast<int>(log_.count(operation));
    }
    QString identity() const override {
        return QStringLiteral("fake");
    }
    QString deviceName() const override {
        return QStringLiteral("Fake Phone");
    }
    BrowserRoot rootOf(const QString&) const override {
        return {QStringLiteral("/root"), QStringLiteral("Internal Storage")};
    }
    QString canonicalPath(const QString& path) const override {
        return path;
    }
    std::vector<FileItem> listDirectory(const QString& at, const std::stop_token& stop) override {
        begin(QStringLiteral("list ") + at, stop);
        const std::scoped_lock lock(mutex_);
        const auto found = folders_.find(at);
        if (found == folders_.end())
            throw TessaryError::fileIOError(QStringLiteral("There is no %1").arg(at));
        return found->second;
    }
    FileItem itemAt(const QString& path, const std::stop_token& stop) override {
        for (const FileItem& item : listDirectory(parentPath(path), stop))
            if (item.path == path)
                return item;
        throw TessaryError::fileIOError(QStringLiteral("There is no %1").arg(path));
    }
    void downloadFile(const FileItem& item, const QString& to, const FileProgressCallback& progress,
                      const std::stop_token& stop) override {
        begin(QStringLiteral("download ") + item.name, stop);
        report(progress);
        QFile file(to);
        if (!file.open(QIODevice::WriteOnly) ||
            file.write(QByteArray(static_cast<int>(item.size), 'x')) != item.size)
            throw TessaryError::fileIOError(file.errorString());
    }
    TransferOutcome downloadDirectoryContents(const FileItem& item, const QString&,
                                              const TransferProgressCallback& progress,
                                              const std::stop_token& stop) override {
        begin(QStringLiteral("download folder ") + item.name, stop);
        progress(outcome.progress);
        return outcome;
    }
    void uploadFile(const LocalSource& source, const QString&, const FileProgressCallback& progress,
                    const std::stop_token& stop) override {
        begin(QStringLiteral("upload ") + source.name, stop);
        report(progress);
    }
    TransferOutcome uploadDirectory(const LocalSource& source, const QString&,
                                    const TransferProgressCallback&,
                                    const std::stop_token& stop) override {
        begin(QStringLiteral("upload folder ") + source.name, stop);
        return {};
    }
    void createFolder(const QString& name, const QString&, const std::stop_token& stop) override {
        begin(QStringLiteral("create ") + name, stop);
    }
    void deleteItem(const FileItem& item, const std::stop_token& stop) override {
        begin(QStringLiteral("delete ") + item.name, stop);
        const std::scoped_lock lock(mutex_);
        std::erase_if(folders_[parentPath(item.path)],
                      [&](const FileItem& other) { return other.path == item.path; });
    }
    void renameItem(const FileItem& item, const QString&, const std::stop_token& stop) override {
        begin(QStringLiteral("rename ") + item.name, stop);
    }
    void moveItem(const FileItem& item, const QString&, const std::stop_token& stop) override {
        begin(QStringLiteral("move ") + item.name, stop);
    }
    QString stageItemForDrag(const FileItem& item, const std::stop_token& stop) override {
        begin(QStringLiteral("stage ") + item.name, stop);
        return staged;
    }
    QStringList programsHolding() override {
        return {};
    }

    QString staged;                                 ///< the local copy of whatever is staged
    TransferOutcome outcome;                        ///< of copies of folders; set before them
    std::vector<std::pair<qint64, qint64>> reports; ///< done, total of copies of a file; the same

private:
    void begin(const QString& operation, const std::stop_token& stop) {
        Script script;
        {
            const std::scoped_lock lock(mutex_);
            log_ << operation;
            script = script_;
        }
        throwIfStopped(stop);
        if (script)
            script(operation, stop);
    }
    void report(const FileProgressCallback& progress) {
        for (const auto& [done, total] : reports)
            if (progress)
                progress(done, total);
    }

    mutable std::mutex mutex_; ///< guards all below
    Script script_;
    std::map<QString, std::vector<FileItem>> folders_{{QStringLiteral("/root"), {}}};
    QStringList log_;
};

} // namespace tessary
