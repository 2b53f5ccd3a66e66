#include "browser/actions/BrowserLoad.h"

#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "phone/FileSearch.h"

#include <algorithm>
#include <chrono>
#include <iterator>

namespace tessary {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// A folder that is read within this time is shown once, when it is whole.
constexpr auto firstPartAfter = 120ms;

/// Gathers the entries of a listing, and hands out what has come of one that takes its time. Each
/// part costs as much as all that is in it, so that the next one waits until there is twice as
/// much.
class Gathering {
public:
    Gathering(const QLocale& locale, const PartialListing& partial)
        : locale_(locale), partial_(partial) {}

    template <typename Wanted>
    void add(std::vector<FileItem>&& rows, Wanted isWanted) {
        std::copy_if(std::move_iterator(rows.begin()), std::move_iterator(rows.end()),
                     std::back_inserter(items_), isWanted);
        if (!partial_ || items_.size() < next_ || Clock::now() < earliest_)
            return;
        next_ = items_.size() * 2;
        earliest_ = Clock::now() + firstPartAfter;
        partial_(FileListing::make(items_, locale_));
    }
    [[nodiscard]] std::shared_ptr<const FileListing> take() {
        return FileListing::make(std::move(items_), locale_);
    }

private:
    const QLocale& locale_;
    const PartialListing& partial_;
    std::vector<FileItem> items_;
    std::size_t next_ = 1;
    Clock::time_point earliest_ = Clock::now() + firstPartAfter;
};

/// The nearest folder above `path` that is there.
QString livingFolderAbove(PhoneFileSystem& files, const QString& path,
                          const std::stop_token& stop) {
    const QString root = files.rootOf(path).path;
    QString folder = path;
    while (folder != root) {
        folder = parentPath(folder);
        const auto item = files.find(folder, stop);
        if (item && item->isDirectory)
            break;
    }
    return folder;
}

BrowserLoad failed(const QString& path, const Error& error) {
    BrowserLoad load;
    load.problem = BrowserProblem::of(BrowserProblem::What::load, path, error);
    load.isDeviceLost = isDeviceLost(error);
    return load;
}

} // namespace

BrowserLoad loadFolder(PhoneFileSystem& files, const QString& path, const QLocale& locale,
                       const PartialListing& partial, const std::stop_token& stop) {
    throwIfStopped(stop);
    BrowserLoad load;
    try {
        Gathering gathering(locale, partial);
        files.list(path,
                   {[&](std::vector<FileItem>&& rows) {
                        gathering.add(std::move(rows), [](const FileItem&) { return true; });
                    },
                    [&](UnreadableEntry&&) { ++load.unreadable; }},
                   stop);
        load.listing = gathering.take();
        return load;
    } catch (const Error& error) {
        if (!error.is(PhoneError::notFound))
            return failed(path, error);
    }
    try {
        load.livingFolder = livingFolderAbove(files, path, stop);
        load.problem =
            BrowserProblem{BrowserProblem::What::folderGone, lastComponent(path), 1, 1, {}};
        return load;
    } catch (const Error& error) {
        return failed(path, error);
    }
}

BrowserLoad loadSearch(PhoneFileSystem& files, const QString& path, const SearchBelow& search,
                       const QLocale& locale, const PartialListing& partial,
                       const std::stop_token& stop) {
    throwIfStopped(stop);
    BrowserLoad load;
    Gathering gathering(locale, partial);
    const auto isWanted = [&, top = files.canonicalPath(path).size()](const FileItem& item) {
        return search.withHidden ||
               files.canonicalPath(item.path).indexOf(QLatin1StringView("/."), top) < 0;
    };
    try {
        searchFiles(
            files, path, NamePattern(search.name),
            {[&](std::vector<FileItem>&& rows) { gathering.add(std::move(rows), isWanted); },
             [&](UnreadableEntry&&) { ++load.unreadable; }},
            stop);
        load.listing = gathering.take();
        return load;
    } catch (const Error& error) {
        return failed(path, error);
    }
}

} // namespace tessary
