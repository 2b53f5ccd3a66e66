#pragma once

#include "support/FileServiceFixture.h"
#include "sync/old/run/AndroidSyncBackend.h"
#include "sync/old/run/DiskSyncFolder.h"
#include "sync/old/run/SyncRun.h"

#include <QDirIterator>

#include <algorithm>

namespace tessary {

/// Runs between the folder "mac" of this computer and the folder "Sync" of a virtual phone, which
/// lies on this computer's disk, too. A part of fixtures that have the phone.
class SyncFolders {
protected:
    using Files = std::map<QString, QByteArray>;

    /// `remote` is the path of the folder on the phone.
    SyncFolders(const QString& udid, const QString& app, const QString& remote) {
        pair_.deviceUDID = udid;
        pair_.appBundleID = app;
        pair_.remoteFolderPath = remote;
        pair_.localFolderPath = computer_.path(QStringLiteral("mac"));
    }
    virtual ~SyncFolders() = default;

    /// The phone's folder as this computer has it.
    [[nodiscard]] virtual QString phoneFolder() = 0;
    [[nodiscard]] virtual std::unique_ptr<SyncDeviceBackend>
    connect(const std::stop_token& stop) = 0;
    /// At every step of a run.
    virtual void duringRun() {}
    /// Around a run that should fetch nothing.
    virtual void beforeQuietRun() {}
    virtual void afterQuietRun() {}

    /// Empties both folders.
    void clear() {
        for (const QString& folder : {pair_.localFolderPath, phoneFolder()}) {
            QDir(folder).removeRecursively();
            QDir().mkpath(folder);
        }
    }
    void here(const QString& path, const QByteArray& content) {
        computer_.write(QStringLiteral("mac/") + path, content);
    }
    void removeHere(const QString& path) {
        QFile::remove(computer_.path(QStringLiteral("mac/") + path));
    }
    void onPhone(const QString& path, const QByteArray& content) {
        const QString full = phoneFolder() + QLatin1Char('/') + path;
        QDir().mkpath(QFileInfo(full).path());
        QFile file(full);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }
    static void setDate(const QString& path, const QDateTime& date) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite) &&
                    file.setFileTime(date, QFileDevice::FileModificationTime));
    }
    /// All that lies below a folder, the manifest aside.
    static Files below(const QString& folder) {
        Files files;
        QDirIterator walk(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (walk.hasNext()) {
            QFile file(walk.next());
            if (walk.fileName() == SyncManifest::fileName)
                continue;
            EXPECT_TRUE(file.open(QIODevice::ReadOnly));
            files[QDir(folder).relativeFilePath(file.fileName())] = file.readAll();
        }
        return files;
    }
    [[nodiscard]] Files hereFiles() const {
        return below(pair_.localFolderPath);
    }
    [[nodiscard]] Files phoneFiles() {
        return below(phoneFolder());
    }
    /// What a run left on the phone a moment ago stays there for some minutes.
    [[nodiscard]] Files phoneFilesButLeftovers() {
        Files files = phoneFiles();
        std::erase_if(files, [](const auto& file) {
            return file.first.contains(QLatin1StringView(".tessary-part-"));
        });
        return files;
    }
    [[nodiscard]] bool holds(const QByteArray& content) const {
        const Files files = hereFiles();
        return std::any_of(files.begin(), files.end(),
                           [&](const auto& file) { return file.second == content; });
    }
    SyncReport run(const std::stop_token& stop = {}) {
        DiskSyncFolder folder(pair_.localFolderPath);
        const auto backend = connect(stop);
        SyncRunEvents events;
        events.ask = [this](const SyncQuestion& question) {
            questions_.push_back(question);
            return answer_;
        };
        events.status = [this](const QString&) { duringRun(); };
        events.progress = [this](const SyncProgress& progress) {
            if (onProgress_)
                onProgress_(progress);
        };
        return SyncRun({pair_, QStringLiteral("HOST"), QStringLiteral("Desk"), folder, *backend,
                        [] { return QDateTime::currentDateTime(); }},
                       events, stop)
            .run();
    }
    /// A further run has nothing to do.
    void expectQuietRun() {
        const Files before = hereFiles();
        beforeQuietRun();
        const SyncReport report = run();
        EXPECT_FALSE(report.hasChanges()) << report.summary().toStdString();
        afterQuietRun();
        EXPECT_EQ(hereFiles(), before);
    }

    const TemporaryFolder computer_;
    SyncPair pair_;
    bool answer_ = false;
    std::vector<SyncQuestion> questions_;
    std::function<void(const SyncProgress&)> onProgress_;
};

/// By MTP.
class SyncByMTP : public FileServiceFixture, protected SyncFolders {
protected:
    SyncByMTP() : SyncFolders(phone().info.udid, SyncPair::deviceStorage, QStringLiteral("/Sync")) {
        clear();
    }
    QString phoneFolder() override {
        return phone().disk.path(QStringLiteral("0/Sync"));
    }
    std::unique_ptr<SyncDeviceBackend> connect(const std::stop_token& stop) override {
        return std::make_unique<AndroidSyncBackend>(*service_, phone().info, stop);
    }
    void beforeQuietRun() override {
        phone().android.clearRequestLog();
    }
    /// The phone was asked for the manifest's content alone.
    void afterQuietRun() override {
        EXPECT_EQ(phone().requests(MTPOperationCode::getObject) +
                      phone().requests(MTPOperationCode::getPartialObject),
                  1U);
        EXPECT_EQ(phone().requests(MTPOperationCode::sendObject), 1U);
        EXPECT_EQ(phone().requests(MTPOperationCode::openSession), 2U);
    }
};

} // namespace tessary
