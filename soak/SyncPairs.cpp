#include "SyncPairs.h"

#include "Story.h"

#include <QDir>
#include <QTimer>

namespace tessary {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

SyncPairs::SyncPairs(Program& program, Content& content, Dice& dice, Story& story)
    : program_(program), content_(content), dice_(dice), story_(story) {
    QObject::connect(&program.sync, &SyncManager::syncDidComplete,
                     [this](const QUuid& id) { compare(id); });
}

void SyncPairs::add(SoakPhone& phone, const QString& folder) {
    for (const SyncMode mode : {SyncMode::biDirectional, SyncMode::toPhone, SyncMode::toComputer}) {
        const QString name = u"Sync%1"_s.arg(static_cast<int>(mode));
        SyncPair pair;
        pair.deviceUDID = phone.udid();
        pair.deviceName = phone.name();
        pair.appBundleID = phone.app().isEmpty() ? SyncPair::deviceStorage : phone.app();
        pair.remoteFolderPath = u'/' + name;
        pair.localFolderPath = folder + u'/' + name;
        pair.syncMode = mode;
        pair.moveFilesEnabled = mode == SyncMode::toComputer;
        const QString remote = phone.folder() + pair.remoteFolderPath;
        QDir().mkpath(pair.localFolderPath);
        QDir().mkpath(remote);
        program_.sync.addSyncPair(pair);
        pairs_.push_back(
            std::make_unique<Pair>(Pair{pair.id, phone, pair.localFolderPath, remote, mode}));
    }
}

void SyncPairs::editFolder(const QString& folder, bool mayDelete) {
    const int files = static_cast<int>(Content::read(folder).size());
    for (int steps = dice_.between(0, 5); steps > 0; --steps) {
        const QString path = content_.anyFile(folder);
        if (path.isEmpty() || dice_.happens(40))
            content_.fillUp(folder, files + 1);
        else if (mayDelete && dice_.happens(30))
            QFile::remove(path);
        else if (mayDelete && dice_.happens(20))
            QFile::rename(path,
                          QFileInfo(path).path() + u"/renamed "_s + QFileInfo(path).fileName());
        else
            content_.change(path);
    }
    while (mayDelete && Content::read(folder).size() > 25)
        QFile::remove(content_.anyFile(folder));
}

/// In ways after which it is known what has to come out.
void SyncPairs::edit(Pair& pair) {
    pair.isOpen = true;
    switch (pair.mode) {
    case SyncMode::biDirectional:
        editFolder(pair.local, true);
        editFolder(pair.remote, true);
        break;
    case SyncMode::toPhone:
        editFolder(pair.local, true);
        if (const QString path = content_.anyFile(pair.remote); !path.isEmpty())
            QFile::remove(path);
        break;
    case SyncMode::toComputer:
        if (pair.moved.size() > 25) {
            QDir(pair.local).removeRecursively();
            QDir().mkpath(pair.local);
            pair.moved.clear();
        }
        editFolder(pair.remote, false);
        for (const auto& [path, seed] : Content::read(pair.remote))
            pair.moved[path] = seed;
        break;
    }
}

void SyncPairs::run(const Pair& pair) {
    const auto answer = [this](const SyncQuestion& question,
                               std::function<void(SyncAnswer)> whenDone) {
        const bool yes = dice_.happens(60);
        story_.tell("answer", u"%1 for %2 files"_s.arg(yes).arg(question.candidates.size()));
        QTimer::singleShot(dice_.between(0, 200),
                           [whenDone = std::move(whenDone),
                            answer = yes ? SyncAnswer::deleteAll(question)
                                         : SyncAnswer::keepAll()] { whenDone(answer); });
    };
    program_.sync.syncPair(pair.id, program_.devices, answer);
}

void SyncPairs::start(SoakPhone& phone) {
    std::vector<Pair*> own;
    for (const auto& pair : pairs_)
        if (&pair->phone == &phone && !program_.sync.isRunningOrWaiting(pair->id))
            own.push_back(pair.get());
    if (own.empty())
        return;
    Pair& pair = *dice_.oneOf(own);
    edit(pair);
    story_.tell("sync", u"%1, %2"_s.arg(phone.name(), rawValue(pair.mode)));
    run(pair);
}

void SyncPairs::cancel() {
    program_.sync.cancelAll();
}

void SyncPairs::runInPeace(const Pair& pair) {
    run(pair);
    Program::await(
        "a sync in peace", [this] { return !program_.sync.isRunning(); }, 120s);
    if (!problem_.isEmpty())
        throw Broken(problem_);
    const SyncStatus status = program_.sync.pair(pair.id)->status;
    if (status.kind != SyncStatus::Kind::completed)
        throw Broken(u"a sync of %1 in peace ended with: %2"_s.arg(pair.local, status.message));
    if (const SyncReport* const report = program_.sync.lastReport(pair.id);
        report != nullptr && !report->skipped.empty())
        throw Broken(u"a sync of %1 left %2 out: %3"_s.arg(
            pair.local, report->skipped.front().path, report->skipped.front().reason.logText()));
}

QString SyncPairs::difference(const Pair& pair) {
    const Tree here = Content::read(pair.local);
    const Tree there = Content::read(pair.remote);
    if (pair.mode == SyncMode::toComputer)
        return there.empty() ? Content::firstMissing(pair.moved, here) : there.begin()->first;
    const QString missing = Content::firstMissing(here, there);
    return missing.isEmpty() && pair.mode == SyncMode::biDirectional
               ? Content::firstMissing(there, here)
               : missing;
}

/// A run of this pair has just gone well, and nothing has been edited since it began. What it had
/// to leave out is for a later one.
void SyncPairs::compare(const QUuid& id) {
    const SyncReport* const report = program_.sync.lastReport(id);
    if (report != nullptr && !report->skipped.empty())
        return;
    for (const auto& pair : pairs_) {
        if (pair->id != id || !problem_.isEmpty())
            continue;
        story_.tell("synced", pair->phone.name());
        try {
            if (const QString path = difference(*pair); !path.isEmpty())
                problem_ =
                    u"after a sync %1 and %2 differ in %3"_s.arg(pair->local, pair->remote, path);
        } catch (const Broken& broken) {
            problem_ = QString::fromUtf8(broken.what());
        }
    }
}

void SyncPairs::finish() {
    for (const auto& pair : pairs_) {
        if (!std::exchange(pair->isOpen, false))
            continue;
        runInPeace(*pair);
        if (dice_.happens(70))
            continue;
        runInPeace(*pair);
        if (program_.sync.lastReport(pair->id)->hasChanges())
            throw Broken(u"a second sync of %1 had something to do"_s.arg(pair->local));
    }
}

} // namespace tessary
