#pragma once

#include "phone/PhoneFileSystem.h"
#include "support/FileBytes.h"
#include "support/MemoryFiles.h"
#include "support/MemoryRequests.h"

#include <QCryptographicHash>

#include <algorithm>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <vector>

namespace tessary {

/// A phone in memory that is as strict as the strictest real one: names by its own rules, a write
/// of exactly as many bytes as were announced, only what its capabilities say, and a check of every
/// FileItem that comes back. Faults are switched on; every request is kept. Thread-safe, but for
/// the options, which are set before it is used.
class MemoryFileSystem final : public PhoneFileSystem, public MemoryRequests, public MemoryFiles {
public:
    using Options = MemoryOptions;

    MemoryFileSystem() : MemoryFileSystem(Options{}) {}
    explicit MemoryFileSystem(Options options) : MemoryFiles(std::move(options)) {}

    [[nodiscard]] QString identity() const override {
        return options_.identity;
    }
    [[nodiscard]] QString displayName() const override {
        return options_.displayName;
    }
    [[nodiscard]] FileTreeRoot rootOf(const QString&) const override {
        return {QStringLiteral("/"), options_.displayName};
    }
    [[nodiscard]] QString canonicalPath(const QString& path) const override {
        return QLatin1Char('/') +
               path.split(QLatin1Char('/'), Qt::SkipEmptyParts).join(QLatin1Char('/'));
    }
    [[nodiscard]] std::shared_ptr<PhoneQueue> queue() const override {
        return options_.queue;
    }
    [[nodiscard]] FileSystemCapabilities capabilities(const Call&) override {
        return options_.capabilities;
    }
    [[nodiscard]] NameRules nameRules(const QString&, const Call&) override {
        return options_.rules;
    }

    void list(const QString& folder, const ListingReceiver& receiver, const Call& call) override {
        const Step step = begin(Operation::list, folder, call);
        std::vector<FileItem> rows;
        std::vector<UnreadableEntry> unreadable;
        qsizetype cutAfter = -1;
        {
            const std::scoped_lock lock(treeMutex_);
            const Node& node = folderAt(folder);
            for (const auto& child : node.children) {
                if (child->unreadable)
                    unreadable.push_back({pathOf(*child), *child->unreadable});
                else
                    rows.push_back(itemOf(*child));
            }
            for (const CutListing& cut : cutListings())
                if (cut.folder == folder)
                    cutAfter = cut.rows;
        }
        if (cutAfter >= 0)
            rows.resize(std::min(rows.size(), static_cast<std::size_t>(cutAfter)));
        for (std::size_t first = 0; first < rows.size(); first += options_.rowsAtOnce) {
            throwIfStopped(call.stop);
            if (first > 0)
                callRowsHook();
            const std::size_t last = std::min(rows.size(), first + options_.rowsAtOnce);
            receiver.rows({rows.begin() + static_cast<std::ptrdiff_t>(first),
                           rows.begin() + static_cast<std::ptrdiff_t>(last)});
        }
        if (cutAfter >= 0)
            throw Error(PhoneError::listingBroken, {folder});
        for (UnreadableEntry& entry : unreadable)
            if (receiver.unreadable)
                receiver.unreadable(std::move(entry));
    }

    [[nodiscard]] std::optional<FileItem> find(const QString& path, const Call& call) override {
        const Step step = begin(Operation::find, path, call);
        const std::scoped_lock lock(treeMutex_);
        const Node* const node = exactly(path);
        if (node == nullptr)
            return std::nullopt;
        if (node->unreadable)
            throw *node->unreadable;
        return itemOf(*node);
    }

    qint64 read(const FileItem& file, ByteRange range, const ByteSink& sink,
                const Call& call) override {
        Step step = begin(Operation::read, file.path, call, {}, range);
        if (range.offset != 0 && !options_.capabilities.readsRanges)
            throw std::logic_error("a read from an offset without readsRanges");
        QByteArray content;
        {
            const std::scoped_lock lock(treeMutex_);
            const Node& node = same(file);
            if (node.isDirectory)
                throw Error(PhoneError::notAFile, {file.path});
            content = node.content.mid(range.offset, range.length < 0 ? -1 : range.length);
        }
        step.garbleIfDue(content);
        qint64 done = 0;
        while (done < content.size()) {
            throwIfStopped(call.stop);
            const qint64 count =
                step.allowed(done, std::min<qint64>(content.size() - done,
                                                    static_cast<qint64>(options_.pieceSize)));
            sink({reinterpret_cast<const std::byte*>(content.constData()) + done,
                  static_cast<std::size_t>(count)});
            done += count;
            step.noteBytes(done);
        }
        (void)step.allowed(done, 1);
        return done;
    }

    FileItem write(const NewFile& file, const ByteSource& source, const ByteProgress& progress,
                   const Call& call) override {
        const QString path = joinPath(file.folder, file.name);
        Step step = begin(Operation::write, path, call);
        requireWritable(path);
        {
            const std::scoped_lock lock(treeMutex_);
            requireFree(folderAt(file.folder), file.name, nullptr);
            requireRoom(path, options_.takesOtherSizes ? 0 : file.size);
        }
        if (options_.capabilities.largestFile > 0 && file.size > options_.capabilities.largestFile)
            throw Error(PhoneError::tooLarge, {path});
        QByteArray content;
        Bytes piece(options_.pieceSize);
        while (const std::size_t count = source(piece)) {
            throwIfStopped(call.stop);
            (void)step.allowed(content.size(), static_cast<qint64>(count));
            content.append(reinterpret_cast<const char*>(piece.data()),
                           static_cast<qsizetype>(count));
            step.noteBytes(content.size());
            if (progress)
                progress(content.size());
            const std::scoped_lock lock(treeMutex_);
            requireRoom(path, content.size());
        }
        (void)step.allowed(content.size(), 1);
        throwIfStopped(call.stop);
        if (content.size() != file.size && !options_.takesOtherSizes)
            throw Error(PhoneError::wrongSize, {path, content.size(), file.size});
        step.garbleIfDue(content);
        content.truncate(options_.keepsAtMost);
        const std::scoped_lock lock(treeMutex_);
        Node& folder = folderAt(file.folder);
        requireFree(folder, file.name, nullptr);
        Node& node = addNode(folder, path);
        node.content = content;
        node.modified = options_.datesItself ? QDateTime::currentDateTime()
                                             : file.modified.value_or(QDateTime::currentDateTime());
        return itemOf(node);
    }

    [[nodiscard]] std::vector<std::optional<QByteArray>>
    readTogether(const std::vector<FileItem>& files, const Call& call) override {
        if (!options_.capabilities.readsTogether)
            throw std::logic_error("files are read together without readsTogether");
        std::vector<std::optional<QByteArray>> contents;
        for (const FileItem& file : files)
            contents.push_back(attempted([&] {
                QByteArray content = readBytes(*this, file, {}, call);
                if (content.size() != file.size)
                    throw Error(PhoneError::wrongSize, {file.path});
                return content;
            }));
        return contents;
    }
    std::vector<std::optional<FileItem>>
    writeTogether(const QString& folder, const std::vector<SmallFile>& files,
                  const std::function<bool(std::size_t)>& isWanted, const ByteProgress& progress,
                  const Call& call) override {
        if (!options_.capabilities.writesTogether)
            throw std::logic_error("files are written together without writesTogether");
        std::vector<std::optional<FileItem>> made;
        qint64 before = 0;
        for (std::size_t n = 0; n < files.size(); ++n) {
            const SmallFile& file = files[n];
            made.push_back(isWanted(n) ? attempted([&] {
                return write(
                    {folder, file.name, file.content.size(), file.modified}, sourceOf(file.content),
                    [&](qint64 done) { progress(before + done); }, call);
            })
                                       : std::nullopt);
            before += file.content.size();
        }
        return made;
    }

    FileItem makeFolder(const QString& parent, const QString& name, const Call& call) override {
        const QString path = joinPath(parent, name);
        const Step step = begin(Operation::makeFolder, path, call);
        requireWritable(path);
        const std::scoped_lock lock(treeMutex_);
        Node& folder = folderAt(parent);
        requireFree(folder, name, nullptr);
        Node& node = addNode(folder, path);
        node.isDirectory = true;
        return itemOf(node);
    }

    void remove(const FileItem& item, const Call& call) override {
        const Step step = begin(Operation::remove, item.path, call);
        requireWritable(item.path);
        const std::scoped_lock lock(treeMutex_);
        Node& node = same(item);
        if (!node.children.empty())
            throw Error(PhoneError::folderNotEmpty, {item.path});
        takeOut(node);
    }

    void removeTree(const FileItem& item, const Call& call) override {
        const Step step = begin(Operation::removeTree, item.path, call);
        requireWritable(item.path);
        const std::scoped_lock lock(treeMutex_);
        takeOut(same(item));
    }

    FileItem rename(const FileItem& item, const QString& newName, TakenName taken,
                    const Call& call) override {
        const Step step = begin(Operation::rename, item.path, call, newName);
        requireWritable(item.path);
        if (!options_.capabilities.renames)
            throw Error(PhoneError::notSupported, {item.path});
        if (taken == TakenName::replaced && !options_.capabilities.renamesOntoTaken)
            throw std::logic_error("a rename onto a taken name without renamesOntoTaken");
        const std::scoped_lock lock(treeMutex_);
        Node& node = same(item);
        if (taken == TakenName::replaced)
            if (Node* const old = taking(*node.parent, newName); old != nullptr && old != &node) {
                if (old->isDirectory || node.isDirectory)
                    throw Error(PhoneError::taken, {newName});
                takeOut(*old);
            }
        requireFree(*node.parent, newName, &node);
        node.name = newName;
        return itemOf(node);
    }

    FileItem move(const FileItem& item, const QString& newFolder, const Call& call) override {
        const Step step = begin(Operation::move, item.path, call, newFolder);
        requireWritable(item.path);
        if (!options_.capabilities.moves)
            throw Error(PhoneError::notSupported, {item.path});
        const std::scoped_lock lock(treeMutex_);
        Node& node = same(item);
        Node& folder = folderAt(newFolder);
        for (const Node* above = &folder; above != nullptr; above = above->parent)
            if (above == &node)
                throw Error(PhoneError::insideItself, {item.path});
        requireFree(folder, node.name, nullptr);
        std::unique_ptr<Node> taken = takeOut(node);
        taken->parent = &folder;
        folder.children.push_back(std::move(taken));
        return itemOf(*folder.children.back());
    }

    void flush() override {
        const Step step = begin(Operation::flush, {}, {});
    }

    void setModified(const FileItem& file, const QDateTime& date, const Call& call) override {
        const Step step = begin(Operation::setModified, file.path, call);
        if (!options_.capabilities.setsDates)
            throw Error(PhoneError::notSupported, {file.path});
        const std::scoped_lock lock(treeMutex_);
        same(file).modified = date;
    }

    [[nodiscard]] std::optional<std::uint64_t> freeBytes(const QString& folder,
                                                         const Call& call) override {
        const Step step = begin(Operation::freeBytes, folder, call);
        const std::scoped_lock lock(treeMutex_);
        if (!options_.capacity)
            return std::nullopt;
        const std::uint64_t used = usedBytes(root_);
        return *options_.capacity - std::min(*options_.capacity, used);
    }

    [[nodiscard]] std::optional<QByteArray> hash(const FileItem& file, const Call& call) override {
        const Step step = begin(Operation::hash, file.path, call);
        if (!options_.capabilities.hasHashes)
            return std::nullopt;
        const std::scoped_lock lock(treeMutex_);
        return QCryptographicHash::hash(same(file).content, QCryptographicHash::Sha256);
    }

private:
    [[nodiscard]] Step begin(Operation operation, const QString& path, const Call& call,
                             const QString& other = {}, ByteRange range = {}) {
        return {*this,
                options_.queue,
                {.operation = operation, .path = path, .other = other, .range = range},
                call};
    }
    template <typename Work>
    static auto attempted(const Work& work) -> std::optional<decltype(work())> {
        try {
            return work();
        } catch (const Error& error) {
            if (endsEverything(error))
                throw;
            return std::nullopt;
        }
    }
};

} // namespace tessary
