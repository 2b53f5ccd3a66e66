#include "browser/model/BrowserCopies.h"

#include "base/text/ByteCount.h"
#include "base/text/PathNames.h"
#include "base/threads/Background.h"
#include "browser/model/FileBrowserViewModel.h"

#include <QDir>
#include <QFileInfo>
#include <QTimer>

#include <algorithm>

namespace tessary {

namespace {

using namespace std::chrono_literals;

/// Folders that take longer to count are copied without knowing whether they fit.
constexpr auto countingLimit = 3s;

/// Stops a count on time.
std::stop_token countingToken() {
    std::stop_source source;
    QTimer::singleShot(countingLimit, [source]() mutable { source.request_stop(); });
    return source.get_token();
}

/// Bytes that files take on the storage that a root of an Android phone stands for; no value while
/// nothing is known.
std::optional<qint64> usedBytesOf(const DeviceInfo& device, const QString& root) {
    const StorageVolume* found = device.volumes.empty() ? nullptr : &device.volumes.front();
    for (const StorageVolume& volume : device.volumes)
        if (root == QStringLiteral("/storage/") + volume.id)
            found = &volume;
    return found != nullptr && found->totalBytes > found->freeBytes
               ? std::optional(found->usedBytes())
               : std::nullopt;
}

TreeCopyRequest requestOf(std::shared_ptr<PhoneFileSystem> from,
                          std::shared_ptr<PhoneFileSystem> to, const std::vector<FileItem>& items,
                          const QString& folder) {
    TreeCopyRequest request{.from = std::move(from), .to = std::move(to), .folder = folder};
    for (const FileItem& item : items)
        request.items.push_back({item, item.name});
    return request;
}

/// What would be copied onto itself meets nobody else: its copy just gets another name.
void forgetOwnNames(PreparedCopy::Part& part) {
    if (part.request.from->identity() != part.request.to->identity())
        return;
    for (CheckedItem& item : part.check.items)
        if (item.existing && item.existing->path == item.item.item.path)
            item.existing.reset();
}

/// A local file or folder as a source. What cannot be opened is one, too: its copy says why, counts
/// it, and can be tried again.
LocalItem sourceAt(const QString& path) {
    try {
        return openLocalItem(path);
    } catch (const Error&) {
        const QString clean = QDir::cleanPath(path);
        return {std::make_shared<LocalFileSystem>(parentPath(clean), LocalLinks::filesFollowed),
                FileItem(lastComponent(clean), clean, false, 0, std::nullopt)};
    }
}

/// Local files and folders as sources, those of one folder together.
PreparedCopy sourcesAt(const QStringList& paths, const std::shared_ptr<PhoneFileSystem>& to,
                       const QString& target, bool moves) {
    PreparedCopy copy;
    for (const QString& path : paths) {
        LocalItem local = sourceAt(path);
        // What a link leads to is not the user's to lose when he takes the link elsewhere.
        const bool leaves = moves && !QFileInfo(QDir::cleanPath(path)).isSymLink();
        auto part = std::find_if(copy.parts.begin(), copy.parts.end(), [&](const auto& one) {
            return one.request.from->identity() == local.files->identity() &&
                   one.request.removesSource == leaves;
        });
        if (part == copy.parts.end())
            part = copy.parts.insert(
                part,
                {{.from = local.files, .to = to, .folder = target, .removesSource = leaves}, {}});
        part->request.items.push_back({local.item, local.item.name});
    }
    return copy;
}

} // namespace

qint64 PreparedCopy::neededBytes(const CopyAnswers& answers) const {
    qint64 needed = 0;
    for (const Part& part : parts)
        needed = addByteCounts(needed, part.check.neededBytes(answers));
    return needed;
}

std::optional<qint64> PreparedCopy::freeBytes() const {
    return parts.empty() ? std::nullopt : parts.front().check.freeBytes;
}

bool PreparedCopy::isPartial() const {
    return std::any_of(parts.begin(), parts.end(),
                       [](const Part& part) { return part.check.isPartial; });
}

void BrowserCopies::prepareDownload(const QStringList& ids, const QString& localFolder,
                                    Prepared whenReady) {
    if (!browser_.files())
        return;
    std::optional<qint64> mostBytes;
    if (browser_.activeDevice())
        mostBytes = usedBytesOf(*browser_.activeDevice(), browser_.rootPath());
    prepare(
        [files = browser_.files(), items = browser_.itemsWithIds(ids), localFolder] {
            PreparedCopy copy;
            copy.targetName = lastComponent(localFolder);
            if (!items.empty())
                copy.parts.push_back(
                    {requestOf(files, std::make_shared<LocalFileSystem>(localFolder), items,
                               localFolder),
                     {}});
            return copy;
        },
        mostBytes, std::move(whenReady));
}

QString BrowserCopies::targetOf(const QString& folder) const {
    return folder.isEmpty() ? browser_.currentPath() : browser_.files()->canonicalPath(folder);
}

void BrowserCopies::prepareUpload(const QStringList& localPaths, const QString& folder,
                                  Prepared whenReady, Afterwards afterwards) {
    if (!browser_.files())
        return;
    prepare(
        [files = browser_.files(), localPaths, target = targetOf(folder), afterwards] {
            PreparedCopy copy =
                sourcesAt(localPaths, files, target, afterwards == Afterwards::removeSource);
            copy.targetName = files->displayName();
            return copy;
        },
        std::nullopt, std::move(whenReady));
}

void BrowserCopies::prepareTransfer(const std::shared_ptr<PhoneFileSystem>& from,
                                    const std::vector<FileItem>& items, const QString& folder,
                                    Prepared whenReady, Afterwards afterwards) {
    if (!browser_.files() || items.empty())
        return;
    TreeCopyRequest request = requestOf(from, browser_.files(), items, targetOf(folder));
    request.removesSource = afterwards == Afterwards::removeSource;
    prepare(
        [request, files = browser_.files()] {
            PreparedCopy copy;
            copy.targetName = files->displayName();
            copy.parts.push_back({request, {}});
            return copy;
        },
        std::nullopt, std::move(whenReady));
}

void BrowserCopies::moveByCopy(const std::shared_ptr<PhoneFileSystem>& files,
                               const std::vector<FileItem>& items, const QString& folder) {
    if (items.empty())
        return;
    TreeCopyRequest request = requestOf(files, files, items, folder);
    request.removesSource = true;
    queue_.enqueue(std::move(request));
    browser_.changes().noteLastingChange(files->identity());
}

bool BrowserCopies::areBeingRead(const PhoneFileSystem& files,
                                 const std::vector<FileItem>& items) const {
    const auto touches = [&](const CopyItem& copied) {
        return std::ranges::any_of(items, [&](const FileItem& item) {
            return isAtOrBelow(copied.item.path, item.path) ||
                   isAtOrBelow(item.path, copied.item.path);
        });
    };
    return std::ranges::any_of(queue_.jobs(), [&](const CopyJob& job) {
        return !job.isFinished() && job.source == files.identity() &&
               std::ranges::any_of(queue_.recordOf(job.id).rest, touches);
    });
}

bool BrowserCopies::fillsShownFolder(const CopyJob& job) const {
    const auto files = browser_.files();
    // Folders of this computer are one tree, wherever a copy begins in it.
    const bool isToComputer = job.direction == CopyJob::Direction::toComputer ||
                              job.direction == CopyJob::Direction::onComputer;
    if (!files || (browser_.isLocal() ? !isToComputer : job.target != files->identity()))
        return false;
    const QString shown = browser_.currentPath();
    const QString folder = files->canonicalPath(job.targetFolder);
    const auto holdsShown = [&](const QString& path) {
        return isAtOrBelow(shown, files->canonicalPath(path));
    };
    const auto comesHere = [&](const CopyItem& item) {
        return holdsShown(joinPath(joinPath(folder, item.folder), item.name));
    };
    return shown == folder || std::ranges::any_of(job.made, holdsShown) ||
           std::ranges::any_of(queue_.recordOf(job.id).rest, comesHere);
}

bool BrowserCopies::cancel(const QUuid& id) {
    const int index = queue_.indexOf(id);
    if (index < 0 || queue_.jobs()[static_cast<std::size_t>(index)].isFinished())
        return false;
    queue_.cancel(id);
    return true;
}

/// Only what is there anew, and elsewhere too, can go again.
void BrowserCopies::noteForUndo(const QUuid& id, const PreparedCopy::Part& part,
                                const CopyAnswers& answers, bool makesAll) {
    const auto staysAlone = [&](const CheckedItem& item) {
        const ClashAnswer answer = answers.value(item.item.item.id(), ClashAnswer::keepBoth);
        return !item.existing || answer == ClashAnswer::keepBoth || answer == ClashAnswer::skip;
    };
    const bool isToComputer = part.request.to != browser_.files();
    const QString identity = browser_.files()->identity();
    if (makesAll && std::ranges::all_of(part.check.items, staysAlone))
        browser_.changes().noteCopy(id, identity, isToComputer ? part.request.to : nullptr);
    else
        browser_.changes().noteLastingChange(identity);
}

/// `open` is called in the background.
void BrowserCopies::prepare(std::function<PreparedCopy()> open, std::optional<qint64> mostBytes,
                            Prepared whenReady) {
    QHash<QString, qint64> onTheWay; // to every target of the queue
    for (const CopyJob& job : queue_.jobs())
        if (!onTheWay.contains(job.target))
            onTheWay.insert(job.target, queue_.bytesOnTheWayTo(job.target));
    ++preparing_;
    runInBackground(
        &browser_,
        [open = std::move(open), mostBytes, onTheWay,
         counting = countingToken()](const std::stop_token& stop) {
            PreparedCopy copy = open();
            for (PreparedCopy::Part& part : copy.parts) {
                part.check =
                    checkCopy(part.request,
                              {.bytesOnTheWay = onTheWay.value(part.request.to->identity()),
                               .mostBytes = mostBytes},
                              counting, stop);
                forgetOwnNames(part);
            }
            return copy;
        },
        [this, whenReady = std::move(whenReady)](BackgroundResult<PreparedCopy> result) {
            --preparing_;
            if (result.succeeded())
                whenReady(result.take());
        });
}

void BrowserCopies::start(const PreparedCopy& copy, const CopyAnswers& given, bool onlyNew) {
    CopyAnswers answers = given;
    for (const PreparedCopy::Part& part : copy.parts) {
        for (const CheckedItem& item : part.check.items)
            if (!answers.contains(item.item.item.id()))
                answers.insert(item.item.item.id(), ClashAnswer::keepBoth);
        TreeCopyRequest request = part.request;
        std::erase_if(request.items, [&](const CopyItem& item) {
            return answers.value(item.item.id(), ClashAnswer::keepBoth) == ClashAnswer::skip;
        });
        if (request.items.empty())
            continue;
        request.policy = policyFor(answers, ClashAnswer::replace);
        request.skipsSame = onlyNew;
        request.verifies = compares_ && compares_();
        const bool makesAll = !onlyNew && !request.removesSource;
        const QUuid id = queue_.enqueue(std::move(request));
        if (part.request.to == browser_.files() || part.request.from == browser_.files())
            noteForUndo(id, part, answers, makesAll);
    }
}

} // namespace tessary
