#pragma once

#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "phone/PhoneFileSystem.h"
#include "phone/PhoneQueue.h"

#include <QCryptographicHash>
#include <QStringList>

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
class MemoryFileSystem final : public PhoneFileSystem {
public:
    enum class Operation {
        list,
        find,
        read,
        write,
        makeFolder,
        remove,
        removeTree,
        rename,
        move,
        setModified,
        freeBytes,
        thumbnail,
        hash,
    };

    /// A request as the phone saw it.
    struct Request {
        Operation operation{};
        QString path{};    ///< of what is read, made, removed or changed
        QString other{};   ///< the new name of a rename, the new folder of a move
        qint64 bytes = 0;  ///< that went across, for read and write
        ByteRange range{}; ///< of a read

        [[nodiscard]] bool is(Operation wanted, const QString& at) const {
            return operation == wanted && path == at;
        }
    };

    struct Options {
        QString identity = QStringLiteral("memory");
        QString displayName = QStringLiteral("Memory");
        NameRules rules{.ignoresCase = true, .ignoresUnicodeForm = true};
        FileSystemCapabilities capabilities{.setsDates = true, .readsRanges = true};
        std::optional<std::uint64_t> capacity{}; ///< bytes of all files; no value: without end
        bool givesHandles = false;               ///< items carry handles, and twins are possible
        /// A write may bring more or fewer bytes than announced, as on a computer's disk.
        bool takesOtherSizes = false;
        std::size_t rowsAtOnce = 3;
        std::size_t pieceSize = 1000; ///< bytes
        std::shared_ptr<PhoneQueue> queue{};
    };

    MemoryFileSystem() : MemoryFileSystem(Options{}) {}
    explicit MemoryFileSystem(Options options) : options_(std::move(options)) {
        root_.isDirectory = true;
    }

    // --- What is on it; folders above are made. Not part of the log. ---

    void addFolder(const QString& path) {
        const std::scoped_lock lock(mutex_);
        makeNodes(path);
    }
    /// A file, in the place of one that has the very path; twins by addTwin().
    void addFile(const QString& path, const QByteArray& content,
                 std::optional<QDateTime> modified = {}) {
        const std::scoped_lock lock(mutex_);
        Node* const there = exactly(path);
        Node& node = there != nullptr ? *there : addNode(makeNodes(parentPath(path)), path);
        node.content = content;
        node.modified = std::move(modified);
    }
    /// One more file of a name that is there. They are told apart by handle only.
    void addTwin(const QString& path, const QByteArray& content,
                 std::optional<QDateTime> modified = {}) {
        const std::scoped_lock lock(mutex_);
        Node& node = addNode(makeNodes(parentPath(path)), path);
        node.content = content;
        node.modified = std::move(modified);
    }
    /// An entry that listings report as unreadable.
    void addUnreadable(const QString& path, const Error& error) {
        const std::scoped_lock lock(mutex_);
        addNode(makeNodes(parentPath(path)), path).unreadable = error;
    }
    /// An item with a hostile name, listed as it stands: "..", "a/b".
    void addHostile(const QString& folder, const QString& name, const QByteArray& content,
                    bool isDirectory = false) {
        const std::scoped_lock lock(mutex_);
        Node& node = addNode(makeNodes(folder), QStringLiteral("stand-in"));
        node.name = name;
        node.content = content;
        node.isDirectory = isDirectory;
    }
    void removeQuietly(const QString& path) {
        const std::scoped_lock lock(mutex_);
        if (Node* const node = exactly(path))
            takeOut(*node);
    }

    /// A file's content; a null array when there is none.
    [[nodiscard]] QByteArray content(const QString& path) const {
        const std::scoped_lock lock(mutex_);
        const Node* const node = exactly(path);
        if (node == nullptr || node->isDirectory)
            return {};
        return node->content.isNull() ? QByteArray("") : node->content;
    }
    [[nodiscard]] bool has(const QString& path) const {
        const std::scoped_lock lock(mutex_);
        return exactly(path) != nullptr;
    }
    /// The item at a path as a listing shows it.
    [[nodiscard]] FileItem item(const QString& path) const {
        const std::scoped_lock lock(mutex_);
        const Node* const node = exactly(path);
        if (node == nullptr)
            throw std::runtime_error("nothing is at " + path.toStdString());
        return itemOf(*node);
    }
    /// Every path, sorted; folders end in "/".
    [[nodiscard]] QStringList tree() const {
        const std::scoped_lock lock(mutex_);
        QStringList paths;
        collect(root_, paths);
        paths.sort();
        return paths;
    }

    // --- Faults ---

    /// The n-th request from now on (the next is 1) fails before it does anything.
    void failCall(int n, const Error& error) {
        const std::scoped_lock lock(mutex_);
        faults_.push_back({.afterCalls = n, .error = error});
    }
    /// Requests of a kind for a path fail, this many times.
    void fail(Operation operation, const QString& path, const Error& error, int times = 1'000'000) {
        const std::scoped_lock lock(mutex_);
        faults_.push_back(
            {.operation = operation, .path = path, .error = error, .timesLeft = times});
    }
    /// The next read or write of a path fails when this many bytes are across.
    void failAfterBytes(Operation operation, const QString& path, qint64 bytes,
                        const Error& error) {
        const std::scoped_lock lock(mutex_);
        faults_.push_back(
            {.operation = operation, .path = path, .error = error, .timesLeft = 1, .bytes = bytes});
    }
    /// Listings of a folder break off after this many rows.
    void cutListing(const QString& folder, int rows) {
        const std::scoped_lock lock(mutex_);
        cutListings_.push_back({folder, rows});
    }
    /// From the n-th request on (the next is 1) every one fails with PhoneError::unplugged.
    void loseLink(int atCall = 1) {
        const std::scoped_lock lock(mutex_);
        lostAt_ = calls_ + atCall;
    }
    void restoreLink() {
        const std::scoped_lock lock(mutex_);
        lostAt_.reset();
    }
    /// A file whose reading brings other bytes than its size announces.
    void announce(const QString& path, qint64 size) {
        const std::scoped_lock lock(mutex_);
        Node* const node = exactly(path);
        if (node == nullptr)
            throw std::runtime_error("nothing is at " + path.toStdString());
        node->announced = size;
    }
    /// Called before each request is carried out, without any lock: for changes behind a copy's
    /// back, and for tests that hold a request up. What it throws, the request throws.
    void beforeEach(std::function<void(const Request&)> hook) {
        beforeEachCall([hook = std::move(hook)](const Request& request, const Call&) {
            if (hook)
                hook(request);
        });
    }
    /// The same for what can be stopped meanwhile.
    void beforeEachCall(std::function<void(const Request&, const Call&)> hook) {
        const std::scoped_lock lock(mutex_);
        hook_ = std::move(hook);
    }

    // --- What was asked ---

    [[nodiscard]] std::vector<Request> requests() const {
        const std::scoped_lock lock(mutex_);
        return log_;
    }
    [[nodiscard]] int count(Operation operation) const {
        const std::scoped_lock lock(mutex_);
        return static_cast<int>(
            std::count_if(log_.begin(), log_.end(), [operation](const Request& request) {
                return request.operation == operation;
            }));
    }
    /// Bytes that all requests of a kind brought across.
    [[nodiscard]] qint64 bytes(Operation operation) const {
        const std::scoped_lock lock(mutex_);
        qint64 sum = 0;
        for (const Request& request : log_)
            if (request.operation == operation)
                sum += request.bytes;
        return sum;
    }
    void forgetRequests() {
        const std::scoped_lock lock(mutex_);
        log_.clear();
    }

    // --- PhoneFileSystem ---

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
    [[nodiscard]] NameRules nameRules(const QString&) override {
        return options_.rules;
    }

    void list(const QString& folder, const ListingReceiver& receiver, const Call& call) override {
        const Step step(*this, {.operation = Operation::list, .path = folder}, call);
        std::vector<FileItem> rows;
        std::vector<UnreadableEntry> unreadable;
        qsizetype cutAfter = -1;
        {
            const std::scoped_lock lock(mutex_);
            const Node& node = folderAt(folder);
            for (const auto& child : node.children) {
                if (child->unreadable)
                    unreadable.push_back({pathOf(*child), *child->unreadable});
                else
                    rows.push_back(itemOf(*child));
            }
            for (const CutListing& cut : cutListings_)
                if (cut.folder == folder)
                    cutAfter = cut.rows;
        }
        if (cutAfter >= 0)
            rows.resize(std::min(rows.size(), static_cast<std::size_t>(cutAfter)));
        for (std::size_t first = 0; first < rows.size(); first += options_.rowsAtOnce) {
            throwIfStopped(call.stop);
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
        const Step step(*this, {.operation = Operation::find, .path = path}, call);
        const std::scoped_lock lock(mutex_);
        const Node* const node = exactly(path);
        if (node == nullptr)
            return std::nullopt;
        if (node->unreadable)
            throw *node->unreadable;
        return itemOf(*node);
    }

    qint64 read(const FileItem& file, ByteRange range, const ByteSink& sink,
                const Call& call) override {
        Step step(*this, {.operation = Operation::read, .path = file.path, .range = range}, call);
        if (range.offset != 0 && !options_.capabilities.readsRanges)
            throw std::logic_error("a read from an offset without readsRanges");
        QByteArray content;
        {
            const std::scoped_lock lock(mutex_);
            const Node& node = same(file);
            if (node.isDirectory)
                throw Error(PhoneError::notAFile, {file.path});
            content = node.content.mid(range.offset, range.length < 0 ? -1 : range.length);
        }
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
        Step step(*this, {.operation = Operation::write, .path = path}, call);
        requireWritable(path);
        {
            const std::scoped_lock lock(mutex_);
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
            const std::scoped_lock lock(mutex_);
            requireRoom(path, content.size());
        }
        (void)step.allowed(content.size(), 1);
        throwIfStopped(call.stop);
        if (content.size() != file.size && !options_.takesOtherSizes)
            throw Error(PhoneError::wrongSize, {path, content.size(), file.size});
        const std::scoped_lock lock(mutex_);
        Node& folder = folderAt(file.folder);
        requireFree(folder, file.name, nullptr);
        Node& node = addNode(folder, path);
        node.content = content;
        node.modified = file.modified.value_or(QDateTime::currentDateTime());
        return itemOf(node);
    }

    FileItem makeFolder(const QString& parent, const QString& name, const Call& call) override {
        const QString path = joinPath(parent, name);
        const Step step(*this, {.operation = Operation::makeFolder, .path = path}, call);
        requireWritable(path);
        const std::scoped_lock lock(mutex_);
        Node& folder = folderAt(parent);
        requireFree(folder, name, nullptr);
        Node& node = addNode(folder, path);
        node.isDirectory = true;
        return itemOf(node);
    }

    void remove(const FileItem& item, const Call& call) override {
        const Step step(*this, {.operation = Operation::remove, .path = item.path}, call);
        requireWritable(item.path);
        const std::scoped_lock lock(mutex_);
        Node& node = same(item);
        if (!node.children.empty())
            throw Error(PhoneError::folderNotEmpty, {item.path});
        takeOut(node);
    }

    void removeTree(const FileItem& item, const Call& call) override {
        const Step step(*this, {.operation = Operation::removeTree, .path = item.path}, call);
        requireWritable(item.path);
        const std::scoped_lock lock(mutex_);
        takeOut(same(item));
    }

    FileItem rename(const FileItem& item, const QString& newName, TakenName taken,
                    const Call& call) override {
        const Step step(
            *this, {.operation = Operation::rename, .path = item.path, .other = newName}, call);
        requireWritable(item.path);
        if (!options_.capabilities.renames)
            throw Error(PhoneError::notSupported, {item.path});
        if (taken == TakenName::replaced && !options_.capabilities.renamesOntoTaken)
            throw std::logic_error("a rename onto a taken name without renamesOntoTaken");
        const std::scoped_lock lock(mutex_);
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
        const Step step(
            *this, {.operation = Operation::move, .path = item.path, .other = newFolder}, call);
        requireWritable(item.path);
        if (!options_.capabilities.moves)
            throw Error(PhoneError::notSupported, {item.path});
        const std::scoped_lock lock(mutex_);
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

    void setModified(const FileItem& file, const QDateTime& date, const Call& call) override {
        const Step step(*this, {.operation = Operation::setModified, .path = file.path}, call);
        if (!options_.capabilities.setsDates)
            throw Error(PhoneError::notSupported, {file.path});
        const std::scoped_lock lock(mutex_);
        same(file).modified = date;
    }

    [[nodiscard]] std::optional<std::uint64_t> freeBytes(const QString& folder,
                                                         const Call& call) override {
        const Step step(*this, {.operation = Operation::freeBytes, .path = folder}, call);
        const std::scoped_lock lock(mutex_);
        if (!options_.capacity)
            return std::nullopt;
        const std::uint64_t used = usedBytes(root_);
        return *options_.capacity - std::min(*options_.capacity, used);
    }

    [[nodiscard]] std::optional<QByteArray> hash(const FileItem& file, const Call& call) override {
        const Step step(*this, {.operation = Operation::hash, .path = file.path}, call);
        if (!options_.capabilities.hasHashes)
            return std::nullopt;
        const std::scoped_lock lock(mutex_);
        return QCryptographicHash::hash(same(file).content, QCryptographicHash::Sha256);
    }

private:
    struct Node {
        QString name;
        bool isDirectory = false;
        QByteArray content;
        std::optional<QDateTime> modified;
        std::optional<Error> unreadable;
        std::optional<qint64> announced; ///< the size that is listed
        std::uint32_t handle = 0;
        Node* parent = nullptr;
        std::vector<std::unique_ptr<Node>> children;
    };

    struct Fault {
        std::optional<Operation> operation{};
        QString path{};
        int afterCalls = 0; ///< counts down; without an operation
        Error error;
        int timesLeft = 1;
        qint64 bytes = -1; ///< when this many are across; -1: before anything is done
    };

    struct CutListing {
        QString folder;
        int rows = 0;
    };

    /// One request: its turn with the phone, its entry in the log, and the faults that hit it.
    class Step {
    public:
        Step(MemoryFileSystem& files, Request request, const Call& call) : files_(files) {
            throwIfStopped(call.stop);
            if (files.options_.queue)
                turn_.emplace(files.options_.queue->take(call));
            std::function<void(const Request&, const Call&)> hook;
            std::optional<Error> failure;
            {
                const std::scoped_lock lock(files.mutex_);
                ++files.calls_;
                index_ = files.log_.size();
                files.log_.push_back(request);
                hook = files.hook_;
                failure = files.faultOf(request);
                cut_ = files.cutOf(request);
            }
            if (hook)
                hook(request, call);
            if (failure)
                throw *failure;
        }

        /// How many of the next bytes go across; throws when none may.
        [[nodiscard]] qint64 allowed(qint64 done, qint64 wanted) const {
            {
                const std::scoped_lock lock(files_.mutex_);
                if (files_.lostAt_ && files_.calls_ >= *files_.lostAt_)
                    throw Error(PhoneError::unplugged);
            }
            if (!cut_)
                return wanted;
            if (done >= cut_->bytes)
                throw cut_->error;
            return std::min(wanted, cut_->bytes - done);
        }
        void noteBytes(qint64 done) {
            const std::scoped_lock lock(files_.mutex_);
            if (index_ < files_.log_.size())
                files_.log_[index_].bytes = done;
        }

    private:
        MemoryFileSystem& files_;
        std::optional<PhoneQueue::Turn> turn_;
        std::size_t index_ = 0;
        std::optional<Fault> cut_;
    };

    // All below is called with the lock held.

    std::optional<Error> faultOf(const Request& request) {
        if (lostAt_ && calls_ >= *lostAt_)
            return Error(PhoneError::unplugged);
        std::optional<Error> found;
        for (Fault& fault : faults_) {
            const bool hits = fault.operation
                                  ? request.is(*fault.operation, fault.path) && fault.bytes < 0
                                  : --fault.afterCalls == 0;
            if (hits && fault.timesLeft > 0 && !found) {
                --fault.timesLeft;
                found = fault.error;
            }
        }
        return found;
    }
    std::optional<Fault> cutOf(const Request& request) {
        for (Fault& fault : faults_)
            if (fault.operation && fault.bytes >= 0 && fault.timesLeft > 0 &&
                request.is(*fault.operation, fault.path)) {
                --fault.timesLeft;
                return fault;
            }
        return std::nullopt;
    }

    [[nodiscard]] static QString pathOf(const Node& node) {
        if (node.parent == nullptr)
            return QStringLiteral("/");
        return joinPath(pathOf(*node.parent), node.name);
    }
    [[nodiscard]] FileItem itemOf(const Node& node) const {
        return {node.parent == nullptr ? options_.displayName : node.name,
                pathOf(node),
                node.isDirectory,
                node.isDirectory ? 0 : node.announced.value_or(node.content.size()),
                node.modified,
                options_.givesHandles && node.parent != nullptr ? std::optional(node.handle)
                                                                : std::nullopt};
    }
    /// The entry of the very path, also in what differs only by case.
    [[nodiscard]] Node* exactly(const QString& path) const {
        const Node* node = &root_;
        for (const QString& name : path.split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
            const auto found =
                std::find_if(node->children.begin(), node->children.end(),
                             [&name](const auto& child) { return child->name == name; });
            if (found == node->children.end())
                return nullptr;
            node = found->get();
        }
        return const_cast<Node*>(node);
    }
    [[nodiscard]] Node& folderAt(const QString& path) const {
        Node* const node = exactly(path);
        if (node == nullptr)
            throw Error(PhoneError::notFound, {path});
        if (!node->isDirectory)
            throw Error(PhoneError::notAFolder, {path});
        return *node;
    }
    [[nodiscard]] static Node* withHandle(const Node& folder, std::uint32_t handle) {
        for (const auto& child : folder.children) {
            if (child->handle == handle)
                return child.get();
            if (Node* const below = withHandle(*child, handle))
                return below;
        }
        return nullptr;
    }
    /// What an item that was listed once stands for now.
    [[nodiscard]] Node& same(const FileItem& item) const {
        if (item.path == QLatin1StringView("/"))
            throw Error(PhoneError::wholeStorage, {item.path});
        Node* const node = item.handle ? withHandle(root_, *item.handle) : exactly(item.path);
        if (node == nullptr)
            throw Error(PhoneError::notFound, {item.path});
        if (node->isDirectory != item.isDirectory || (item.handle && pathOf(*node) != item.path))
            throw Error(PhoneError::changed, {item.path});
        return *node;
    }
    /// What has a name by the phone's rules.
    [[nodiscard]] Node* taking(const Node& folder, const QString& name) const {
        const QString key = options_.rules.key(name);
        const auto found =
            std::find_if(folder.children.begin(), folder.children.end(),
                         [&](const auto& child) { return options_.rules.key(child->name) == key; });
        return found == folder.children.end() ? nullptr : found->get();
    }
    void requireFree(const Node& folder, const QString& name, const Node* except) const {
        if (!options_.rules.accepts(name))
            throw Error(PhoneError::nameNotAllowed, {name});
        const Node* const there = taking(folder, name);
        if (there == nullptr || there == except)
            return;
        if (there->name == name)
            throw Error(PhoneError::taken, {name});
        throw Error(PhoneError::sameName, {there->name, name});
    }
    void requireWritable(const QString& path) const {
        if (!options_.capabilities.writes)
            throw Error(PhoneError::writeProtected, {path});
    }
    void requireRoom(const QString& path, qint64 more) const {
        if (options_.capacity &&
            usedBytes(root_) + static_cast<std::uint64_t>(more) > *options_.capacity)
            throw Error(PhoneError::full, {path});
    }
    [[nodiscard]] static std::uint64_t usedBytes(const Node& node) {
        auto sum = static_cast<std::uint64_t>(node.content.size());
        for (const auto& child : node.children)
            sum += usedBytes(*child);
        return sum;
    }
    Node& addNode(Node& folder, const QString& path) {
        auto node = std::make_unique<Node>();
        node->name = lastComponent(path);
        node->handle = ++lastHandle_;
        node->parent = &folder;
        folder.children.push_back(std::move(node));
        return *folder.children.back();
    }
    Node& makeNodes(const QString& path) {
        Node* node = &root_;
        QString reached = QStringLiteral("/");
        for (const QString& name : path.split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
            reached = joinPath(reached, name);
            if (Node* const there = exactly(reached)) {
                node = there;
                continue;
            }
            node = &addNode(*node, reached);
            node->isDirectory = true;
        }
        return *node;
    }
    std::unique_ptr<Node> takeOut(Node& node) {
        auto& siblings = node.parent->children;
        const auto found = std::find_if(siblings.begin(), siblings.end(),
                                        [&node](const auto& one) { return one.get() == &node; });
        std::unique_ptr<Node> taken = std::move(*found);
        siblings.erase(found);
        return taken;
    }
    void collect(const Node& folder, QStringList& paths) const {
        for (const auto& child : folder.children) {
            paths << (child->isDirectory ? pathOf(*child) + QLatin1Char('/') : pathOf(*child));
            collect(*child, paths);
        }
    }

    const Options options_;
    mutable std::mutex mutex_; ///< guards all below
    Node root_;
    std::uint32_t lastHandle_ = 0;
    std::vector<Request> log_;
    int calls_ = 0;
    std::optional<int> lostAt_;
    std::vector<Fault> faults_;
    std::vector<CutListing> cutListings_;
    std::function<void(const Request&, const Call&)> hook_;
};

} // namespace tessary
