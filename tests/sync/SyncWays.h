#pragma once

#include "adb/files/ADBFileSystem.h"
#include "adb/server/ADBServerConnection.h"
#include "mtp/files/MTPFileSystem.h"
#include "support/ADBFixture.h"
#include "support/Application.h"
#include "support/IPhoneFiles.h"
#include "support/PluggedPhone.h"
#include "sync/SyncFolders.h"
#include "sync/run/SyncRun.h"

namespace tessary {

/// Runs between the folders of a SyncFolders. A part of fixtures that have the phone.
class SyncWay : protected SyncFolders {
protected:
    SyncWay(const QString& udid, const QString& app) {
        pair_.deviceUDID = udid;
        pair_.appBundleID = app;
        pair_.remoteFolderPath = QStringLiteral("/Sync");
        pair_.localFolderPath = localFolder();
    }

    /// A connection of its own, as every program has one.
    [[nodiscard]] virtual std::unique_ptr<PhoneFileSystem> open() = 0;
    /// Forgets what the phone was asked so far.
    virtual void forgetRequests() {}
    /// How many it has been asked since.
    [[nodiscard]] virtual std::size_t requestCount() {
        return 0;
    }
    /// Files of the phone that were read or written since, by their last name.
    [[nodiscard]] virtual QStringList openedFiles() {
        return {};
    }

    /// One run of a program of its own.
    SyncReport run() {
        const auto phone = open();
        LocalFileSystem disk(pair_.localFolderPath);
        SyncComputer computer = syncComputer(disk);
        if (!flushes_)
            computer.flush = [] {};
        SyncRunEvents events;
        events.ask = [this](const SyncQuestion& question) {
            questions_.push_back(question);
            return confirms_ ? SyncAnswer::deleteAll(question) : SyncAnswer::keepAll();
        };
        events.progress = [this](const SyncProgress& progress) { last_ = progress; };
        return SyncRun({pair_,
                        QStringLiteral("HOST"),
                        QStringLiteral("Desk"),
                        std::move(computer),
                        *phone,
                        [] { return QDateTime::currentDateTime(); },
                        {},
                        {}},
                       events, {})
            .run();
    }
    SyncReport goodRun() {
        SyncReport report = run();
        EXPECT_EQ(report.outcome, SyncReport::Outcome::done)
            << (report.failure ? report.failure->what() : "");
        for (const SyncSkippedItem& item : report.skipped)
            ADD_FAILURE() << item.path.toStdString() << ": " << item.reason.what();
        return report;
    }
    /// A further run transfers nothing and reads nothing but the record.
    void expectQuietRun() {
        const Files before = hereFiles();
        forgetRequests();
        EXPECT_FALSE(goodRun().hasChanges());
        for (const QString& name : openedFiles())
            EXPECT_EQ(name, QString(SyncManifest::fileName));
        EXPECT_EQ(hereFiles(), before);
    }

    /// For a run that is to break off somewhere.
    void prepareManyChanges() {
        flushes_ = false;
        clear();
        here(QStringLiteral("old"), "old");
        (void)goodRun();
        here(QStringLiteral("old"), "old, edited", 50);
        here(QStringLiteral("up"), QByteArray(3000, 'u'));
        onPhone(QStringLiteral("down"), QByteArray(3000, 'd'));
        here(QStringLiteral("both"), "one");
        onPhone(QStringLiteral("both"), "another");
    }
    /// A run in peace brings them all across.
    void expectManyChanges() {
        (void)goodRun();
        EXPECT_EQ(hereFiles(), phoneFiles());
        for (const QByteArray& content :
             {QByteArray(3000, 'u'), QByteArray(3000, 'd'), QByteArray("one"),
              QByteArray("another"), QByteArray("old, edited")})
            EXPECT_TRUE(holds(content)) << content.left(8).constData();
    }

    SyncPair pair_;
    bool confirms_ = true;
    bool flushes_ = true; ///< waits for this computer's disk
    std::vector<SyncQuestion> questions_;
    SyncProgress last_;
};

/// By MTP.
class SyncByMTP : public testing::Test, protected SyncWay {
protected:
    SyncByMTP() : SyncWay(QStringLiteral("mtp"), SyncPair::deviceStorage) {
        clear();
    }
    QString phoneFolder() override {
        return phone_.disk.path(QStringLiteral("0/Sync"));
    }
    std::unique_ptr<PhoneFileSystem> open() override {
        return std::make_unique<MTPFileSystem>(bus_, identityOf(phone_.info),
                                               std::make_shared<PhoneQueue>());
    }
    void forgetRequests() override {
        phone_.android.clearRequestLog();
    }
    std::size_t requestCount() override {
        return phone_.android.requestLog().size();
    }
    /// What was read is told by number only: the record takes one request.
    QStringList openedFiles() override {
        const std::size_t reads = phone_.requests(MTPOperationCode::getObject) +
                                  phone_.requests(MTPOperationCode::getPartialObject);
        EXPECT_LE(reads, 1U);
        EXPECT_EQ(phone_.requests(MTPOperationCode::sendObject), 0U);
        return {};
    }

    VirtualUSBBus bus_;
    PluggedPhone phone_{bus_};
};

/// By the real adb server.
class SyncByADB : public ADBFixture, protected SyncWay {
protected:
    explicit SyncByADB(ADBDConfig config = {})
        : ADBFixture(std::move(config)), SyncWay(serial(), SyncPair::deviceStorage) {
        clear();
    }
    QString phoneFolder() override {
        return disk_.path(QStringLiteral("phone/Sync"));
    }
    std::unique_ptr<PhoneFileSystem> open() override {
        return std::make_unique<ADBFileSystem>(identity(), std::make_shared<PhoneQueue>(),
                                               serverConnection());
    }
    void forgetRequests() override {
        adbd_->clearLog();
    }
    std::size_t requestCount() override {
        return adbd_->requests().size();
    }
};

/// By the real library for iPhones.
class SyncByAFC : public Application, public testing::Test, protected SyncWay {
protected:
    SyncByAFC() : SyncWay(VirtualIPhoneConfig().udid, PluggedIPhone::bundleId) {
        clear();
    }
    QString phoneFolder() override {
        return iphone_.disk.path(iphone_.inDocuments(QStringLiteral("Sync")));
    }
    std::unique_ptr<PhoneFileSystem> open() override {
        return std::make_unique<AFCFileSystem>(iphone_.identity(), IPhoneFiles::notes(),
                                               std::make_shared<PhoneQueue>());
    }
    void forgetRequests() override {
        iphone_.phone.log().clear();
    }
    std::size_t requestCount() override {
        return iphone_.phone.log().requests().size();
    }
    QStringList openedFiles() override {
        QStringList opened;
        for (const VirtualIPhoneRequest& request : iphone_.phone.log().requests())
            if (request.request == QLatin1StringView("afc.fileOpen"))
                opened.append(request.detail.section(u'/', -1).section(u' ', 0, 0));
        return opened;
    }

    IPhoneFiles iphone_;
};

} // namespace tessary
