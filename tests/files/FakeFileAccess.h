#pragma once

#include "core/CancellationError.h"
#include "core/TessaryError.h"
#include "files/DevicePath.h"
#include "files/FileAccess.h"

#include <QFile>
#include <QStringList>

#include <algorithm>
#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>

namespace tessary {

/// Holds whoever passes through until it is opened, or until they are asked to stop.
class Gate {
public:
    void pass(const std::stop_token& stop) {
        std::unique_lock lock(mutex_);
        ++waiting_;
        changed_.notify_all();
        changed_.wait_for(lock, stop, std::chrono::seconds(60), [this] { return isOpen_; });
        --waiting_;
        throwIfStopped(stop);
    }
    void open() {
        const std::scoped_lock lock(mutex_);
        isOpen_ = true;
        changed_.notify_all();
    }
    [[nodiscard]] int waiting() const {
        const std::scoped_lock lock(mutex_);
        return waiting_;
    }

private:
    mutable std::mutex mutex_;
    std::condition_variable_any changed_;
    bool isOpen_ = false;
    int waiting_ = 0;
};

/// A scripted device in memory, rooted at "/root". Thread-safe.
class FakeFileAccess : public FileAccess {
public:
    /// Called before each operation, named "list /root/a", "delete b.txt", …: may wait or throw.
    using Script = std::function<void(const QString& operation, const std::stop_token&)>;

    void setScript(Script script) {
        const std::scoped_lock lock(mutex_);
        script_ = std::move(script);
    }
    void setItems(const QString& folder, std::vector<FileItem> items) {
        const std::scoped_lock lock(mutex_);
        folders_[folder] = std::move(items);
    }
    /// Files and, where a name ends in "/", folders (which are empty themselves).
    void fill(const QString& folder, const QStringList& names) {
        const std::scoped_lock lock(mutex_);
        std::vector<FileItem>& items = folders_[folder];
        for (const QString& name : names)
            add(folder, items, name);
    }
    void remove(const QString& folder) {
        const std::scoped_lock lock(mutex_);
        folders_.erase(folder);
        std::erase_if(folders_[parentPath(folder)],
                      [&](const FileItem& item) { return item.path == folder; });
    }
    [[nodiscard]] QStringList log() const {
        const std::scoped_lock lock(mutex_);
        return log_;
    }
    [[nodiscard]] int count(const QString& operation) const {
        return static_cast<int>(log().count(operation));
    }
    void setOutcome(TransferOutcome outcome) {
        const std::scoped_lock lock(mutex_);
        outcome_ = std::move(outcome);
    }
    /// What uploads and downloads of a file report, in this order; (done, total).
    void setProgress(std::vector<std::pair<qint64, qint64>> progress) {
        const std::scoped_lock lock(mutex_);
        progress_ = std::move(progress);
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
        const QString clean =
            path.size() > 1 && path.endsWith(QLatin1Char('/')) ? path.chopped(1) : path;
        return clean.startsWith(QLatin1StringView("/root")) ? clean : QStringLiteral("/root");
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
        return outcome(progress);
    }
    void uploadFile(const QString& localFile, const QString& remoteParentPath,
                    const FileProgressCallback& progress, const std::stop_token& stop) override {
        begin(QStringLiteral("upload ") + lastComponent(localFile), stop);
        report(progress);
        fill(canonicalPath(remoteParentPath), {lastComponent(localFile)});
    }
    TransferOutcome uploadDirectory(const QString& localFolder, const QString&,
                                    const TransferProgressCallback& progress,
                                    const std::stop_token& stop) override {
        begin(QStringLiteral("upload folder ") + lastComponent(localFolder), stop);
        return outcome(progress);
    }
    void createFolder(const QString& name, const QString& parent,
                      const std::stop_token& stop) override {
        begin(QStringLiteral("create ") + name, stop);
        fill(parent, {name + QLatin1Char('/')});
    }
    void deleteItem(const FileItem& item, const std::stop_token& stop) override {
        begin(QStringLiteral("delete ") + item.name, stop);
        const std::scoped_lock lock(mutex_);
        std::erase_if(folders_[parentPath(item.path)],
                      [&](const FileItem& other) { return other.path == item.path; });
    }
    void renameItem(const FileItem& item, const QString& newName,
                    const std::stop_token& stop) override {
        begin(QStringLiteral("rename %1 to %2").arg(item.name, newName), stop);
        const QString folder = parentPath(item.path);
        deleteItem(item, stop);
        fill(folder, {newName});
    }
    void moveItem(const FileItem& item, const QString& newParentPath,
                  const std::stop_token& stop) override {
        begin(QStringLiteral("move %1 to %2").arg(item.name, newParentPath), stop);
        deleteItem(item, stop);
        fill(newParentPath, {item.name});
    }
    QString stageItemForDrag(const FileItem& item) override {
        begin(QStringLiteral("stage ") + item.name, {});
        const std::scoped_lock lock(mutex_);
        return stagingFolder_ + QLatin1Char('/') + item.name;
    }
    void setStagingFolder(const QString& folder) {
        const std::scoped_lock lock(mutex_);
        stagingFolder_ = folder;
    }
    QStringList programsHolding() override {
        return {};
    }

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
        std::vector<std::pair<qint64, qint64>> steps;
        {
            const std::scoped_lock lock(mutex_);
            steps = progress_;
        }
        for (const auto& [done, total] : steps)
            if (progress)
                progress(done, total);
    }
    TransferOutcome outcome(const TransferProgressCallback& progress) {
        const std::scoped_lock lock(mutex_);
        progress(outcome_.progress);
        return outcome_;
    }
    void add(const QString& folder, std::vector<FileItem>& items, QString name) {
        const bool isFolder = name.endsWith(QLatin1Char('/'));
        if (isFolder)
            name.chop(1);
        const QString path = joinPath(folder, name);
        items.emplace_back(name, path, isFolder, isFolder ? 0 : 10, std::nullopt);
        if (isFolder)
            folders_[path];
    }

    mutable std::mutex mutex_;
    Script script_;
    std::map<QString, std::vector<FileItem>> folders_{{QStringLiteral("/root"), {}}};
    QStringList log_;
    TransferOutcome outcome_;
    std::vector<std::pair<qint64, qint64>> progress_;
    QString stagingFolder_;
};

} // namespace tessary
