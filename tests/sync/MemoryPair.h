#pragma once

#include "support/MemoryFileSystem.h"
#include "support/QtPrinters.h"
#include "sync/run/SyncRun.h"

#include <QTimeZone>
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <stdexcept>
#include <string>

namespace tessary {

/// The program is killed: nothing that it still does has an effect.
struct Killed : std::runtime_error {
    Killed() : std::runtime_error("killed") {}
};

/// What is on a side below its root, with files of ours.
struct MemoryFile {
    QByteArray content;
    QDateTime date;

    bool operator==(const MemoryFile&) const = default;
};
using MemoryTree = std::map<QString, MemoryFile>;

/// What the device of a MemoryPair can.
struct MemoryDevice {
    bool setsDates = true;
    bool listsDates = true;
    bool renames = true;
    bool renamesOntoTaken = false;
    bool hasHashes = false;
    std::chrono::milliseconds dateStep{1000};
};

/// A computer's folder and a phone's, in memory, with a clock and runs between them.
class MemoryPair {
public:
    static inline const QString localRoot = QStringLiteral("/home/me/Sync");
    static inline const QString deviceRoot = QStringLiteral("/Sync");

    explicit MemoryPair(const MemoryDevice& device = {})
        : listsDates(device.listsDates), local_(computerOptions()), device_(phoneOptions(device)) {
        local_.addFolder(localRoot);
        device_.addFolder(deviceRoot);
        pair.deviceUDID = QStringLiteral("ABC");
        pair.appBundleID = SyncPair::deviceStorage;
        pair.remoteFolderPath = deviceRoot;
        pair.localFolderPath = localRoot;
        const auto count = [this](const MemoryFileSystem::Request& request) {
            if (isDead || calls++ == killAt) {
                isDead = true;
                throw Killed();
            }
            if (beforeCall)
                beforeCall(request);
        };
        local_.beforeEach(count);
        device_.beforeEach(count);
    }

    [[nodiscard]] MemoryFileSystem& side(bool onDevice) {
        return onDevice ? device_ : local_;
    }
    [[nodiscard]] MemoryFileSystem& local() {
        return local_;
    }
    [[nodiscard]] MemoryFileSystem& device() {
        return device_;
    }
    [[nodiscard]] static QString path(bool onDevice, const QString& name) {
        return (onDevice ? deviceRoot : localRoot) + QLatin1Char('/') + name;
    }
    /// A moment of the clock, which goes on by more than the sync's tolerance.
    QDateTime later(qint64 seconds = 5) {
        clock += seconds;
        return QDateTime::fromSecsSinceEpoch(clock, QTimeZone::utc());
    }
    void put(bool onDevice, const QString& name, const QByteArray& content) {
        side(onDevice).addFile(path(onDevice, name), content, later());
    }
    void here(const char* name, const QByteArray& content) {
        put(false, QString::fromUtf8(name), content);
    }
    void there(const char* name, const QByteArray& content) {
        put(true, QString::fromUtf8(name), content);
    }
    /// Files of their names as their content, and a run that brings them across.
    void beginWith(std::initializer_list<const char*> names) {
        for (const char* name : names)
            here(name, name);
        (void)goodRun();
    }
    /// As another disk would be, or another card.
    void empty(bool onDevice) {
        for (const auto& [name, file] : all(onDevice))
            side(onDevice).removeQuietly(path(onDevice, name));
    }
    /// The phone keeps its record as it is.
    void refuseRecord() {
        beforeCall = [](const MemoryFileSystem::Request& request) {
            if (request.is(MemoryFileSystem::Operation::remove, path(true, SyncManifest::fileName)))
                throw Error(PhoneError::accessDenied, {request.path});
        };
    }
    void removeHere(const char* name) {
        local_.removeQuietly(path(false, QString::fromUtf8(name)));
    }
    void removeThere(const char* name) {
        device_.removeQuietly(path(true, QString::fromUtf8(name)));
    }

    /// All files of a side, manifest and parts included.
    [[nodiscard]] MemoryTree all(bool onDevice) {
        MemoryTree files;
        MemoryFileSystem& from = side(onDevice);
        const QString root = path(onDevice, QString());
        for (const QString& each : from.tree())
            if (!each.endsWith(u'/') && each.startsWith(root))
                files[each.mid(root.size())] = {from.content(each),
                                                from.item(each).modifiedDate.value_or(QDateTime())};
        return files;
    }
    /// Those of the user.
    [[nodiscard]] MemoryTree users(bool onDevice) {
        MemoryTree files = all(onDevice);
        std::erase_if(files, [](const auto& file) {
            const QString name = file.first.section(u'/', -1);
            return name == SyncManifest::fileName ||
                   name.startsWith(QLatin1StringView(".tessary-part-"));
        });
        return files;
    }
    /// "name=content" of a side's files.
    [[nodiscard]] std::string contents(bool onDevice) {
        QStringList lines;
        for (const auto& [name, file] : users(onDevice))
            lines.append(name + QLatin1Char('=') + QString::fromUtf8(file.content.left(20)));
        return lines.join(QLatin1Char(' ')).toStdString();
    }
    [[nodiscard]] std::string hereContents() {
        return contents(false);
    }
    [[nodiscard]] std::string thereContents() {
        return contents(true);
    }
    [[nodiscard]] bool holds(bool onDevice, const QByteArray& content) {
        const MemoryTree files = users(onDevice);
        return std::any_of(files.begin(), files.end(),
                           [&](const auto& file) { return file.second.content == content; });
    }
    [[nodiscard]] bool isAnywhere(const QByteArray& content) {
        return holds(false, content) || holds(true, content);
    }

    [[nodiscard]] SyncRun makeRun(const std::stop_token& stop = {}) {
        SyncRunEvents events;
        events.answer = saidBeforehand;
        events.ask = [this](const SyncQuestion& question) {
            questions.push_back(question);
            return answer ? answer(question) : SyncAnswer::stop();
        };
        events.progress = onProgress;
        SyncComputer computer{local_, [this] { local_.addFolder(localRoot); },
                              [this] {
                                  if (isDead)
                                      throw Killed();
                                  if (flushError)
                                      throw Error(*std::exchange(flushError, {}));
                                  flushed = users(false);
                              },
                              trash};
        return SyncRun({pair, QStringLiteral("HOST"), QStringLiteral("Desk"), std::move(computer),
                        device_, [this] { return later(runsLater); }, lockFile, decisions},
                       std::move(events), stop);
    }
    SyncReport run(const std::stop_token& stop = {}) {
        calls = 0;
        return makeRun(stop).run();
    }
    /// A run that goes well.
    SyncReport goodRun() {
        return runTo(SyncReport::Outcome::done);
    }
    SyncReport runTo(SyncReport::Outcome outcome) {
        SyncReport report = run();
        EXPECT_EQ(report.outcome, outcome) << (report.failure ? report.failure->what() : "");
        return report;
    }
    /// A further run transfers nothing and reads no content.
    void expectQuietRun() {
        const std::string hereBefore = hereContents();
        const std::string thereBefore = thereContents();
        device_.forgetRequests();
        const SyncReport report = goodRun();
        EXPECT_FALSE(report.hasChanges());
        for (const auto& request : device_.requests()) {
            EXPECT_NE(request.operation, MemoryFileSystem::Operation::write);
            if (request.operation == MemoryFileSystem::Operation::read) {
                EXPECT_TRUE(request.path.endsWith(SyncManifest::fileName))
                    << request.path.toStdString();
            }
        }
        EXPECT_EQ(hereContents(), hereBefore);
        EXPECT_EQ(thereContents(), thereBefore);
    }
    void confirmAll() {
        answer = [](const SyncQuestion& question) { return SyncAnswer::deleteAll(question); };
    }
    void keepAll() {
        answer = [](const SyncQuestion&) { return SyncAnswer::keepAll(); };
    }

    const bool listsDates;
    SyncPair pair;
    std::function<SyncAnswer(const SyncQuestion&)> answer;
    std::function<std::optional<SyncAnswer>(const SyncQuestion&)> saidBeforehand;
    SyncDecisions decisions;
    QString lockFile;
    std::function<void(const SyncProgress&)> onProgress;
    std::function<bool(const QString&)> trash;
    std::function<void(const MemoryFileSystem::Request&)> beforeCall;
    std::vector<SyncQuestion> questions;
    MemoryTree flushed;              ///< the computer's files at the last flush
    std::optional<Error> flushError; ///< the next flush fails with it
    qint64 clock = 1'700'000'000;
    /// From the last edit to a run, seconds. Below three an edit right after the run may leave the
    /// date that the run has seen.
    qint64 runsLater = 10;
    int calls = 0;   ///< of either side, since the run began
    int killAt = -1; ///< the call that the program does not live to see
    bool isDead = false;

private:
    static MemoryFileSystem::Options computerOptions() {
        MemoryFileSystem::Options options;
        options.rules = {};
        options.capabilities = {
            .renamesOntoTaken = true, .setsDates = true, .readsRanges = true, .hasHashes = true};
        options.capabilities.dateStep = std::chrono::milliseconds(1);
        options.takesOtherSizes = true;
        return options;
    }
    static MemoryFileSystem::Options phoneOptions(const MemoryDevice& device) {
        MemoryFileSystem::Options options;
        options.rules.ignoresCase = true;
        options.datesItself = !device.setsDates;
        options.listsDates = device.listsDates;
        options.capabilities = {.renames = device.renames,
                                .renamesOntoTaken = device.renamesOntoTaken,
                                .setsDates = device.setsDates,
                                .hasHashes = device.hasHashes};
        options.capabilities.dateStep = device.dateStep;
        options.queue = std::make_shared<PhoneQueue>();
        return options;
    }

    MemoryFileSystem local_;
    MemoryFileSystem device_;
};

} // namespace tessary
