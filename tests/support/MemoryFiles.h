#pragma once

#include "phone/PhoneFileSystem.h"
#include "support/MemoryNodes.h"

#include <QStringList>

#include <algorithm>
#include <limits>
#include <memory>
#include <mutex>
#include <optional>
#include <stdexcept>

namespace tessary {

/// What kind of phone a MemoryFileSystem is.
struct MemoryOptions {
    QString identity = QStringLiteral("memory");
    QString displayName = QStringLiteral("Memory");
    NameRules rules{.ignoresCase = true, .ignoresUnicodeForm = true};
    FileSystemCapabilities capabilities{.setsDates = true, .readsRanges = true};
    std::optional<std::uint64_t> capacity{}; ///< bytes of all files; no value: without end
    bool givesHandles = false;               ///< items carry handles, and twins are possible
    /// A write may bring more or fewer bytes than announced, as on a computer's disk.
    bool takesOtherSizes = false;
    qsizetype keepsAtMost = std::numeric_limits<qsizetype>::max(); ///< of a file, without a word
    bool listsDates = true;
    bool datesItself = false; ///< a new file is of now, whatever date it is to have
    std::size_t rowsAtOnce = 3;
    std::size_t pieceSize = 1000; ///< bytes
    std::shared_ptr<PhoneQueue> queue{};
};

/// What lies on a phone in memory, and its rules: names, handles, room. Around them a test puts
/// there what it likes. Thread-safe, but for what is protected.
class MemoryFiles : private MemoryNodes {
public:
    explicit MemoryFiles(MemoryOptions options) : options_(std::move(options)) {}

    // Folders above are made. Nothing of this is part of the log.

    void addFolder(const QString& path) {
        const std::scoped_lock lock(treeMutex_);
        makeNodes(path);
    }
    /// A file, in the place of one that has the very path; twins by addTwin().
    void addFile(const QString& path, const QByteArray& content,
                 std::optional<QDateTime> modified = {}) {
        const std::scoped_lock lock(treeMutex_);
        Node* const there = exactly(path);
        Node& node = there != nullptr ? *there : addNode(makeNodes(parentPath(path)), path);
        node.content = content;
        node.modified = std::move(modified);
    }
    /// One more file of a name that is there. They are told apart by handle only.
    void addTwin(const QString& path, const QByteArray& content,
                 std::optional<QDateTime> modified = {}) {
        const std::scoped_lock lock(treeMutex_);
        Node& node = addNode(makeNodes(parentPath(path)), path);
        node.content = content;
        node.modified = std::move(modified);
    }
    /// An entry that listings report as unreadable.
    void addUnreadable(const QString& path, const Error& error) {
        const std::scoped_lock lock(treeMutex_);
        addNode(makeNodes(parentPath(path)), path).unreadable = error;
    }
    /// An item with a hostile name, listed as it stands: "..", "a/b".
    void addHostile(const QString& folder, const QString& name, const QByteArray& content,
                    bool isDirectory = false) {
        const std::scoped_lock lock(treeMutex_);
        Node& node = addNode(makeNodes(folder), QStringLiteral("stand-in"));
        node.name = name;
        node.content = content;
        node.isDirectory = isDirectory;
    }
    void removeQuietly(const QString& path) {
        const std::scoped_lock lock(treeMutex_);
        if (Node* const node = exactly(path))
            takeOut(*node);
    }

    /// A file's content; a null array when there is none.
    [[nodiscard]] QByteArray content(const QString& path) const {
        const std::scoped_lock lock(treeMutex_);
        const Node* const node = exactly(path);
        if (node == nullptr || node->isDirectory)
            return {};
        return node->content.isNull() ? QByteArray("") : node->content;
    }
    [[nodiscard]] bool has(const QString& path) const {
        const std::scoped_lock lock(treeMutex_);
        return exactly(path) != nullptr;
    }
    /// The item at a path as a listing shows it.
    [[nodiscard]] FileItem item(const QString& path) const {
        const std::scoped_lock lock(treeMutex_);
        const Node* const node = exactly(path);
        if (node == nullptr)
            throw std::runtime_error("nothing is at " + path.toStdString());
        return itemOf(*node);
    }
    /// Every path, sorted; folders end in "/".
    [[nodiscard]] QStringList tree() const {
        const std::scoped_lock lock(treeMutex_);
        QStringList paths;
        collect(root_, paths);
        paths.sort();
        return paths;
    }

    /// A file whose reading brings other bytes than its size announces.
    void announce(const QString& path, qint64 size) {
        const std::scoped_lock lock(treeMutex_);
        Node* const node = exactly(path);
        if (node == nullptr)
            throw std::runtime_error("nothing is at " + path.toStdString());
        node->announced = size;
    }

protected:
    using MemoryNodes::addNode;
    using MemoryNodes::exactly;
    using MemoryNodes::folderAt;
    using MemoryNodes::Node;
    using MemoryNodes::pathOf;
    using MemoryNodes::root_;
    using MemoryNodes::takeOut;
    using MemoryNodes::usedBytes;

    // All below is called with the lock held.

    [[nodiscard]] FileItem itemOf(const Node& node) const {
        return {node.parent == nullptr ? options_.displayName : node.name,
                pathOf(node),
                node.isDirectory,
                node.isDirectory ? 0 : node.announced.value_or(node.content.size()),
                options_.listsDates ? node.modified : std::nullopt,
                options_.givesHandles && node.parent != nullptr ? std::optional(node.handle)
                                                                : std::nullopt};
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

    const MemoryOptions options_;
    mutable std::mutex treeMutex_; ///< guards the tree
};

} // namespace tessary
