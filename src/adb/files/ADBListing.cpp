#include "adb/files/ADBListing.h"

#include "adb/files/ADBPhoneErrors.h"
#include "adb/protocol/ADBError.h"
#include "base/log/DiagnosticsLogger.h"
#include "base/text/PathNames.h"
#include "phone/NameRules.h"

#include <QHash>
#include <QSet>
#include <QTimeZone>

#include <algorithm>
#include <limits>

namespace tessary {

namespace {

constexpr std::size_t rowsAtOnce = 512;

/// Collects rows and hands them over in pieces.
class Rows {
public:
    explicit Rows(const ListingReceiver& receiver) : receiver_(receiver) {}

    void add(FileItem&& item) {
        rows_.push_back(std::move(item));
        if (rows_.size() >= rowsAtOnce)
            flush();
    }
    void addUnreadable(const QString& path, const Error& error) {
        if (receiver_.unreadable)
            receiver_.unreadable({path, error});
        else
            DiagnosticsLogger::shared().adb.standard("An entry cannot be read: %s",
                                                     {error.logText()});
    }
    void flush() {
        if (!rows_.empty())
            receiver_.rows(std::exchange(rows_, {}));
    }

private:
    const ListingReceiver& receiver_;
    std::vector<FileItem> rows_;
};

/// The sizes of files that 32 bits do not hold, by name, where records have no more than that.
QHash<QByteArray, std::uint64_t> largeFiles(ADBSession& session, const QByteArray& folder,
                                            const std::stop_token& stop) {
    QHash<QByteArray, std::uint64_t> sizes;
    if (session.sync(stop).features().hasNewList)
        return sizes;
    const ADBCommandResult found = session.tryRun(
        {"find", folder + '/', "-maxdepth", "1", "-type", "f", "-size", "+4294967295c", "-print0"},
        ADBSession::longPatience, stop);
    for (const QByteArray& path : found.output.split('\0')) {
        const QByteArray name = path.mid(path.lastIndexOf('/') + 1);
        if (!path.startsWith(folder + '/') || name.isEmpty())
            continue;
        if (const auto facts = session.facts(folder + '/' + name, false, stop))
            sizes.insert(name, facts->size);
    }
    return sizes;
}

/// A listing without one entry comes of a folder that cannot be read just as of an empty one.
void requireEmpty(ADBSession& session, const QString& folder, const std::stop_token& stop) {
    const QByteArray path = phonePath(folder);
    const auto facts = session.facts(path, true, stop);
    if (!facts)
        throw Error(PhoneError::notFound, {folder});
    if (!facts->isFolder())
        throw Error(PhoneError::notAFolder, {folder});
    if (!session.run({"ls", "-A", path + '/'}, ADBSession::patience, stop).trimmed().isEmpty())
        throw Error(PhoneError::listingBroken, {folder});
}

} // namespace

QByteArray phonePath(const QString& path) {
    if (!path.isValidUtf16() || path.contains(QChar(0)))
        throw Error(PhoneError::nameNotAllowed, {lastComponent(path)});
    return path.toUtf8();
}

FileItem itemOf(const QString& name, const QString& path, const ADBFacts& facts) {
    constexpr auto largest = static_cast<std::uint64_t>(std::numeric_limits<qint64>::max());
    constexpr std::int64_t lastSecond = 253'402'300'799; // of the year 9999
    const auto seconds = std::clamp(facts.modified, -lastSecond, lastSecond);
    return {name, path, facts.isFolder(),
            facts.isFolder() ? 0 : static_cast<qint64>(std::min(facts.size, largest)),
            QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC)};
}

void listADBFolder(ADBSession& session, const QString& folder, const ListingReceiver& receiver,
                   const std::stop_token& stop) {
    const QByteArray path = phonePath(folder);
    const QHash<QByteArray, std::uint64_t> large = largeFiles(session, path, stop);
    Rows rows(receiver);
    QSet<QByteArray> names;
    std::vector<std::pair<QString, ADBFacts>> links;
    bool isEmpty = true;
    const auto take = [&](const ADBFacts& listed, QByteArray&& bytes) {
        isEmpty = false;
        if (bytes == "." || bytes == "..")
            return;
        const auto before = names.size();
        names.insert(bytes);
        if (names.size() == before)
            return;
        const QString name = QString::fromUtf8(bytes);
        const QString place = joinPath(folder, name);
        if (!bytes.isValidUtf8())
            return rows.addUnreadable(
                place,
                {PhoneError::unreadable,
                 {place},
                 Error(ADBError::nameNotText, {QString::fromLatin1(bytes.toPercentEncoding())})});
        if (!isSafeName(name))
            return rows.addUnreadable(place, {PhoneError::nameNotAllowed, {name}});
        if (listed.error != 0)
            return rows.addUnreadable(
                place, phoneErrorOf(Error(ADBError::statFailed, {place, listed.error}), place));
        ADBFacts facts = listed;
        if (const auto size = large.constFind(bytes); size != large.cend())
            facts.size = *size;
        if (facts.isLink())
            links.emplace_back(name, facts);
        else if (facts.isFolder() || facts.isFile())
            rows.add(itemOf(name, place, facts));
        else
            rows.addUnreadable(place, {PhoneError::notAFile, {place}});
    };
    session.asking(stop, [&](ADBSyncClient& sync) {
        sync.list(path + '/', take, {stop, ADBSession::patience});
    });
    if (isEmpty)
        requireEmpty(session, folder, stop);
    if (!links.empty()) {
        // A link shows as what it leads to; one that leads nowhere as itself.
        std::vector<ADBSyncClient::Question> questions;
        for (const auto& [name, facts] : links)
            questions.push_back({phonePath(joinPath(folder, name)), true});
        const std::vector<ADBFacts> targets = session.asking(stop, [&](ADBSyncClient& sync) {
            return sync.stat(questions, {stop, ADBSession::patience});
        });
        for (std::size_t n = 0; n < links.size(); ++n) {
            const auto& [name, facts] = links[n];
            rows.add(
                itemOf(name, joinPath(folder, name), targets[n].error == 0 ? targets[n] : facts));
        }
    }
    rows.flush();
}

std::optional<QString> spellingInFolder(ADBSession& session, const QString& folder,
                                        const QString& wanted, const std::stop_token& stop) {
    const QString key = phoneNames.key(wanted);
    std::optional<QString> found;
    const auto take = [&](const ADBFacts&, QByteArray&& bytes) {
        const QString name = QString::fromUtf8(bytes);
        if (name == wanted || (found != wanted && phoneNames.key(name) == key))
            found = name;
    };
    session.asking(stop, [&](ADBSyncClient& sync) {
        sync.list(phonePath(folder) + '/', take, {stop, ADBSession::patience});
    });
    return found;
}

} // namespace tessary
