#include "base/local/PartFile.h"
#include "support/MemoryFileSystem.h"
#include "support/QtPrinters.h"
#include "support/StrangeDisk.h"
#include "sync/run/SyncRun.h"

#include <QTimeZone>
#include <gtest/gtest.h>

#include <map>

namespace tessary {
namespace {

using Files = std::map<QString, QByteArray>;

/// A pair whose computer's folder lies on a disk that fails.
class SyncDiskFaultsTest : public testing::Test {
protected:
    SyncDiskFaultsTest() {
        pair_.deviceUDID = QStringLiteral("ABC");
        pair_.appBundleID = SyncPair::deviceStorage;
        pair_.remoteFolderPath = QStringLiteral("/Sync");
    }
    void SetUp() override {
        disk_.emplace(StrangeDisk::Options{});
        if (!disk_->isMounted())
            GTEST_SKIP() << "this machine mounts nothing for its users";
    }

    /// A folder and a phone that are new, and in step.
    void begin(const Files& files) {
        pair_.localFolderPath = disk_->path() + QStringLiteral("/pair%1").arg(++pairs_);
        QDir().mkpath(pair_.localFolderPath);
        phone_.emplace(MemoryFileSystem::Options{.queue = std::make_shared<PhoneQueue>()});
        phone_->addFolder(pair_.remoteFolderPath);
        for (const auto& [name, content] : files)
            there(name, content);
        run();
    }
    void here(const QString& name, const QByteArray& content) {
        QFile file(pair_.localFolderPath + QLatin1Char('/') + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        ASSERT_TRUE(file.flush() && file.setFileTime(later(), QFileDevice::FileModificationTime));
    }
    void there(const QString& name, const QByteArray& content) {
        phone_->addFile(pair_.remoteFolderPath + QLatin1Char('/') + name, content, later());
    }
    void removeThere(const QString& name) {
        phone_->removeQuietly(pair_.remoteFolderPath + QLatin1Char('/') + name);
    }
    SyncReport run() {
        LocalFileSystem folder(pair_.localFolderPath);
        SyncComputer computer = syncComputer(folder);
        computer.trash = {};
        SyncRunEvents events;
        events.ask = [](const SyncQuestion& question) { return SyncAnswer::deleteAll(question); };
        return SyncRun({pair_,
                        QStringLiteral("HOST"),
                        QStringLiteral("Desk"),
                        std::move(computer),
                        *phone_,
                        [this] { return later(); },
                        {},
                        {}},
                       std::move(events), {})
            .run();
    }

    /// What is in both folders, files of ours aside.
    [[nodiscard]] Files filesHere() const {
        Files files;
        const QDir folder(pair_.localFolderPath);
        for (const QString& name : folder.entryList(QDir::Files)) {
            QFile file(folder.filePath(name));
            if (!name.startsWith(PartFile::namePrefix) && file.open(QIODevice::ReadOnly))
                files[name] = file.readAll();
        }
        return files;
    }
    [[nodiscard]] Files filesThere() {
        Files files;
        for (const QString& path : phone_->tree()) {
            const QString name = path.section(QLatin1Char('/'), -1);
            if (!name.isEmpty() && name != SyncManifest::fileName &&
                !name.startsWith(PartFile::namePrefix))
                files[name] = phone_->content(path);
        }
        return files;
    }
    [[nodiscard]] static bool holds(const Files& files, const QByteArray& content) {
        return std::any_of(files.begin(), files.end(),
                           [&](const auto& file) { return file.second == content; });
    }
    [[nodiscard]] static std::string told(const Files& files) {
        QStringList lines;
        for (const auto& [name, content] : files)
            lines += QStringLiteral("%1=%2[%3]")
                         .arg(name, QString::fromUtf8(content.left(12)))
                         .arg(content.size());
        return lines.join(QLatin1Char(' ')).toStdString();
    }

    std::optional<StrangeDisk> disk_;

private:
    QDateTime later() {
        return QDateTime::fromSecsSinceEpoch(clock_ += 5, QTimeZone::utc());
    }

    std::optional<MemoryFileSystem> phone_;
    SyncPair pair_;
    qint64 clock_ = 1'700'000'000;
    int pairs_ = 0;
};

TEST_F(SyncDiskFaultsTest, anyRequestMayFailAndTheNextRunMakesItGood) {
    const QByteArray old(3000, 'o');
    const QByteArray editedHere(90'000, 'h');
    const QByteArray editedThere(80'000, 't');
    const QByteArray bothHere(4000, 'b');
    const QByteArray bothThere(5000, 'c');
    const QByteArray newHere(6000, 'n');
    const QByteArray newThere(140'000, 'w');
    for (const int error : {EIO, ENOSPC, EMFILE}) {
        int failing = 1;
        // One error at each request; others, whose ways through the code are the same, at some.
        const int step = error == EIO ? 1 : 5;
        for (bool hasFailed = true; hasFailed; failing += step) {
            SCOPED_TRACE(QStringLiteral("%1 at request %2")
                             .arg(QLatin1StringView(::strerrorname_np(error)))
                             .arg(failing)
                             .toStdString());
            begin({{QStringLiteral("a"), old},
                   {QStringLiteral("b"), old + "2"},
                   {QStringLiteral("c"), old + "3"},
                   {QStringLiteral("gone"), old + "4"}});
            here(QStringLiteral("a"), editedHere);
            there(QStringLiteral("b"), editedThere);
            here(QStringLiteral("c"), bothHere);
            there(QStringLiteral("c"), bothThere);
            removeThere(QStringLiteral("gone"));
            here(QStringLiteral("d"), newHere);
            there(QStringLiteral("e"), newThere);

            disk_->failRequest(failing, error);
            const SyncReport report = run();
            hasFailed = disk_->requests() >= failing;
            disk_->failRequest(0, 0);
            const Files hereThen = filesHere();
            const Files thereThen = filesThere();
            for (const QByteArray& content :
                 {editedHere, editedThere, bothHere, bothThere, newHere, newThere})
                EXPECT_TRUE(holds(hereThen, content) || holds(thereThen, content))
                    << "lost: " << content.left(1).toStdString();
            for (const auto& [name, content] : hereThen)
                EXPECT_NE(content.size(), 0) << name.toStdString();
            EXPECT_TRUE(hereThen == thereThen || report.failure || !report.skipped.empty())
                << "done: " << told(hereThen) << " and " << told(thereThen);

            EXPECT_EQ(run().outcome, SyncReport::Outcome::done);
            const Files after = filesHere();
            EXPECT_EQ(told(after), told(filesThere()));
            EXPECT_EQ(after, filesThere());
            for (const QByteArray& content :
                 {editedHere, editedThere, bothHere, bothThere, newHere, newThere})
                EXPECT_TRUE(holds(after, content)) << "lost: " << content.left(1).toStdString();
            if (HasFailure())
                return;
        }
        EXPECT_GT(failing, 40);
    }
}

} // namespace
} // namespace tessary
