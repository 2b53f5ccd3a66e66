// What holds once a round is over.

#include "Round.h"

#include "Story.h"
#include "phone/PartNames.h"

#include <QDir>
#include <QElapsedTimer>

#include <algorithm>

namespace tessary {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// How long a job may take to end once its phone is gone, it was cancelled, or nothing stands in
/// its way any more. The libraries' own bounds are 30 s, and closing comes on top.
constexpr auto settleLimit = 120s;
constexpr auto listLimit = 60s;

const char* statusName(CopyJob::Status status) {
    switch (status) {
    case CopyJob::Status::queued:
        return "queued";
    case CopyJob::Status::paused:
        return "paused";
    case CopyJob::Status::running:
        return "running";
    case CopyJob::Status::done:
        return "done";
    case CopyJob::Status::incomplete:
        return "incomplete";
    case CopyJob::Status::failed:
        return "failed";
    case CopyJob::Status::cancelled:
        return "cancelled";
    }
    return "";
}

} // namespace

void Round::makePeace() {
    for (SoakPhone* phone : phones_) {
        phone->heal(dice_);
        phone->plug();
    }
}

/// Everything comes to an end: once all is well again, once the phones are gone, or once it was
/// cancelled.
void Round::settle() {
    QElapsedTimer clock;
    clock.start();
    const int way = dice_.between(0, 2);
    story_.tell("settle", QStringList{u"well"_s, u"gone"_s, u"cancelled"_s}[way]);
    if (way == 0) {
        makePeace();
    } else if (way == 1) {
        for (SoakPhone* phone : phones_) {
            phone->isDisturbed = true;
            phone->unplug();
        }
    } else {
        program_.copies.cancelAll();
        program_.browser.cancelEdits();
        program_.browser.cancelLoading();
        bench_.pairs.cancel();
    }
    program_.awaitIdleness(settleLimit);
    story_.raise("longest end of a round (ms)", clock.elapsed());
    for (const SoakPhone* phone : phones_)
        if (!phone->isPlugged())
            Program::await(
                "the end of a phone in the list", [&] { return !program_.device(*phone); },
                listLimit);
    makePeace();
    for (const SoakPhone* phone : phones_)
        Program::await(
            "a phone in the list",
            [&] {
                const auto device = program_.device(*phone);
                return device && device->isDataAccessible();
            },
            listLimit);
    program_.awaitIdleness(settleLimit);
}

void Round::checkJobs() {
    using Status = CopyJob::Status;
    for (const CopyJob& job : program_.copies.jobs()) {
        const Copy copy = copies_.value(job.id);
        const QString reason = job.error             ? job.error->logText()
                               : job.leftOut.empty() ? QString()
                                                     : job.leftOut.front().error.logText();
        const char* const status = statusName(job.status);
        story_.tell("job", QString::fromLatin1(status) + u' ' + job.sourcePath + u": "_s + reason);
        story_.add(qPrintable(u"jobs "_s + QString::fromLatin1(status)), 1);
        if ((job.status == Status::failed || job.status == Status::incomplete) &&
            !copy.phone->isDisturbed)
            throw Broken(u"a copy of %1 in peace failed: %2"_s.arg(job.sourcePath, reason));
        if (job.status != Status::done)
            continue;
        story_.add("bytes of completed jobs", job.doneBytes());
        if (!copy.sources.isEmpty() && job.made.size() != copy.sources.size())
            throw Broken(u"%1 things came of %2"_s.arg(job.made.size()).arg(copy.sources.size()));
        // Small files arrive together, in whatever order.
        const bool isUpload = job.direction == CopyJob::Direction::toPhone;
        const auto isCopy = [&](const QString& from, const QString& made) {
            const QString to = isUpload ? copy.phone->onDisk(made) : made;
            if (QFileInfo(from).isDir() != QFileInfo(to).isDir())
                return false;
            return QFileInfo(from).isDir()
                       ? Content::firstMissing(Content::read(from), Content::read(to)).isEmpty()
                       : Content::seedOf(from) == Content::seedOf(to);
        };
        for (const QString& from : copy.sources)
            if (std::none_of(job.made.begin(), job.made.end(),
                             [&](const QString& made) { return isCopy(from, made); }))
                throw Broken(u"%1 has no whole copy among %2"_s.arg(from, job.made.join(u", ")));
    }
}

/// No file is cut off, no temporary one is left where it could be removed, and nothing is lost.
void Round::checkFolders() {
    QStringList parts;
    (void)Content::read(bench_.folder, &parts);
    // A small file whose phone says that it is a large one can be gone on with, too.
    const bool hasLiar = std::any_of(phones_.begin(), phones_.end(),
                                     [](const SoakPhone* phone) { return phone->isDisturbed; });
    for (const QString& part : parts) {
        const auto name = partNameOf(QFileInfo(part).fileName(), {});
        if (!hasLiar || !name || name->kind != PartName::Kind::resumable)
            throw Broken(part + u" was left behind"_s);
        QFile::remove(part);
    }
    for (SoakPhone* phone : phones_) {
        // A copy that was cancelled does not wait for the phone to have removed its part.
        const auto leftParts = [&] {
            parts.clear();
            (void)Content::read(phone->folder(), &parts);
            return !parts.isEmpty();
        };
        QElapsedTimer sincePeace;
        for (sincePeace.start();
             leftParts() && !phone->isDisturbed && sincePeace.elapsed() < 60'000;)
            Program::turnFor(50ms);
        if (!parts.isEmpty() && !phone->isDisturbed)
            throw Broken(parts.front() + u" was left on the phone"_s);
        for (const QString& part : parts)
            QFile::remove(part);
        parts.clear();
        std::vector<quint64> left;
        for (const auto& [path, seed] : Content::read(phone->folder() + u"/Edits"_s))
            left.push_back(seed);
        for (const auto& [path, seed] : edits_[phone])
            if (!hasDeleted_ && std::find(left.begin(), left.end(), seed) == left.end())
                throw Broken(u"%1 of %2 was lost"_s.arg(path, phone->name()));
    }
}

/// The browser shows what is there, by itself if the phone has only just come back.
void Round::checkListing(SoakPhone& phone, const QString& path) {
    if (!program_.show(phone, path))
        throw Broken(phone.name() + u" is not in the list"_s);
    std::map<QString, qint64> there;
    for (const QFileInfo& info :
         QDir(phone.folder() + path)
             .entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
        there[info.fileName()] = info.isDir() ? 0 : info.size();
    QElapsedTimer sinceAsked;
    sinceAsked.start();
    const auto showsAll = [&] {
        // After a failure it is for the user to try again.
        if (program_.browser.state() == BrowserState::failed && sinceAsked.elapsed() > 2000) {
            program_.browser.reload();
            sinceAsked.start();
        }
        std::map<QString, qint64> shown;
        for (const FileItem& item : program_.browser.items())
            shown[item.name] = item.isDirectory ? 0 : item.size;
        return !program_.browser.isLoading() && program_.browser.state() == BrowserState::ready &&
               shown == there;
    };
    story_.tell("listing", phone.name() + path);
    Program::await("the true listing", showsAll, listLimit);
}

/// Some of it goes, by itself as far as the program can tell.
void Round::tidy() {
    program_.copies.clearFinished();
    preview_.request_stop();
    program_.browser.setSearchText({});
    const auto clear = [](const QString& folder) {
        QDir(folder).removeRecursively();
        QDir().mkpath(folder);
    };
    if (dice_.happens(40))
        clear(downloads_);
    if (dice_.happens(10))
        clear(outbox_);
    for (SoakPhone* phone : phones_) {
        phone->clearLogs();
        for (const char* folder : {"/Inbox", "/Camera", "/Edits"})
            if (dice_.happens(25))
                clear(phone->folder() + QString::fromLatin1(folder));
    }
    if (const QString path = bench_.content.anyFile(outbox_); !path.isEmpty())
        bench_.content.change(path);
    if (const QString path = bench_.content.anyFile(phones_.front()->folder() + u"/Camera"_s);
        !path.isEmpty())
        bench_.content.change(path);
}

} // namespace tessary
