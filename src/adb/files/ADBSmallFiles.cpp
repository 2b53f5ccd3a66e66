#include "adb/files/ADBSmallFiles.h"

#include "adb/files/ADBEdits.h"
#include "adb/files/ADBListing.h"
#include "base/text/PathNames.h"
#include "phone/NameRules.h"
#include "phone/PartNames.h"

#include <QSet>

#include <algorithm>
#include <exception>

namespace tessary {

ADBSmallFiles::ADBSmallFiles(ADBSession& session, const QString& folder,
                             const std::vector<SmallFile>& files, const Call& call)
    : session_(session),
      folder_(folder),
      files_(files),
      stop_(call.stop),
      folderPath_(phonePath(folder)),
      part_(phonePath(joinPath(folder, newPartName(call.partOwner)))) {}

QByteArray ADBSmallFiles::finalPath(std::size_t place) const {
    return folderPath_ + '/' + files_[place].name.toUtf8();
}

QByteArray ADBSmallFiles::partPath(std::size_t place) const {
    return part_ + '/' + files_[place].name.toUtf8();
}

/// After a failure; what is left is for a later visit when the link is lost.
ADBSmallFiles::~ADBSmallFiles() {
    if (!hasPart_)
        return;
    try {
        session_.endSync(); // what is still on its way would make the folder again
        ADBSession::finish(ADBSession::finishLimit,
                           [&](const std::stop_token& stop) { removePart(stop); });
    } catch (...) {
        // the failure that led here is the one to report
    }
}

std::vector<std::optional<FileItem>>
ADBSmallFiles::write(const std::function<bool(std::size_t)>& isWanted,
                     const ByteProgress& progress) {
    const Places places = free();
    if (places.empty())
        return std::vector<std::optional<FileItem>>(files_.size());
    hasPart_ = true;
    session_.run({"mkdir", part_}, ADBSession::patience, stop_);
    Places moved;
    std::exception_ptr failure;
    try {
        send(places, progress);
        for (const std::size_t place : arrived(places))
            if (isWanted(place))
                moved.push_back(place);
        moveOut(moved);
    } catch (const Error&) {
        // Who refuses a file ends the stream, and is not always heard saying so.
        failure = std::current_exception();
        session_.endSync();
    }
    try {
        auto made = inPlace(moved);
        removePart(stop_);
        hasPart_ = false;
        return made;
    } catch (const Error&) {
        if (failure)
            std::rethrow_exception(failure);
        throw;
    }
}

/// Those of `moved` that have got their names.
std::vector<std::optional<FileItem>> ADBSmallFiles::inPlace(const Places& moved) {
    std::vector<std::optional<FileItem>> made(files_.size());
    std::vector<ADBSyncClient::Question> questions;
    for (const std::size_t place : moved) {
        questions.push_back({partPath(place), false});
        questions.push_back({finalPath(place), false});
    }
    const auto facts = session_.facts(questions, stop_);
    for (std::size_t n = 0; n < moved.size(); ++n) {
        const auto& there = facts[2 * n + 1];
        const QString& name = files_[moved[n]].name;
        // What is in our folder still was kept from its name by something that has it.
        if (!facts[2 * n] && there && there->isFile())
            made[moved[n]] = itemOf(name, joinPath(folder_, name), *there);
    }
    return made;
}

/// Those whose name nothing has, on the phone or among them: of two that the phone may take for one
/// the second would go over the first.
ADBSmallFiles::Places ADBSmallFiles::free() {
    std::vector<ADBSyncClient::Question> questions{{folderPath_, true}};
    for (std::size_t place = 0; place < files_.size(); ++place) {
        ADBEdits::requireName(files_[place].name);
        questions.push_back({finalPath(place), false});
    }
    const auto facts = session_.facts(questions, stop_);
    ADBEdits::requireFolder(folder_, facts.front());
    Places places;
    QSet<QString> given;
    for (std::size_t place = 0; place < files_.size(); ++place) {
        const QString key = phoneNames.key(files_[place].name);
        if (facts[place + 1] || given.contains(key))
            continue;
        given.insert(key);
        places.push_back(place);
    }
    return places;
}

void ADBSmallFiles::send(const Places& places, const ByteProgress& progress) {
    qint64 before = 0;
    for (std::size_t begin = 0; begin < places.size(); begin += ADBSyncClient::mostTogether) {
        const std::size_t end = std::min(begin + ADBSyncClient::mostTogether, places.size());
        std::vector<ADBSyncClient::SmallFile> group;
        qint64 bytes = 0;
        for (std::size_t n = begin; n < end; ++n) {
            const SmallFile& file = files_[places[n]];
            bytes += file.content.size();
            group.push_back(
                {partPath(places[n]), file.content, ADBEdits::secondsOf(file.modified)});
        }
        const auto sent = [&](std::uint64_t done) {
            if (progress)
                progress(before + static_cast<qint64>(done));
        };
        session_.sync(stop_).sendTogether(group, ADBEdits::newFileMode, sent,
                                          {stop_, ADBSession::patience});
        before += bytes;
    }
}

/// Those that the phone has whole.
ADBSmallFiles::Places ADBSmallFiles::arrived(const Places& places) {
    std::vector<ADBSyncClient::Question> questions;
    for (const std::size_t place : places)
        questions.push_back({partPath(place), false});
    const auto facts = session_.facts(questions, stop_);
    Places whole;
    for (std::size_t n = 0; n < places.size(); ++n)
        if (facts[n] && facts[n]->isFile() &&
            facts[n]->size == static_cast<std::uint64_t>(files_[places[n]].content.size()))
            whole.push_back(places[n]);
    return whole;
}

void ADBSmallFiles::moveOut(const Places& places) {
    constexpr qsizetype longestLine = 30'000; // bytes before they are quoted
    for (std::size_t begin = 0; begin < places.size();) {
        QByteArrayList words{"mv", "-n"};
        qsizetype length = 0;
        for (; begin < places.size() && length < longestLine; ++begin) {
            words.append(partPath(places[begin]));
            length += words.last().size();
        }
        words.append(folderPath_ + '/');
        // What it says of one of them is seen by looking.
        (void)session_.tryRun(words, ADBSession::longPatience, stop_);
    }
}

/// Takes away what is left of the files here.
void ADBSmallFiles::removePart(const std::stop_token& stop) {
    (void)session_.tryRun({"rm", "-rf", part_}, ADBSession::endPatience, stop);
}

} // namespace tessary
