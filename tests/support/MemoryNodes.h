#pragma once

#include "base/text/PathNames.h"
#include "phone/PhoneError.h"

#include <QByteArray>
#include <QDateTime>
#include <QStringList>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace tessary {

/// Files and folders in memory, in the order in which they were made. Names may be anything.
class MemoryNodes {
protected:
    MemoryNodes() {
        root_.isDirectory = true;
    }

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

    [[nodiscard]] static QString pathOf(const Node& node) {
        if (node.parent == nullptr)
            return QStringLiteral("/");
        return joinPath(pathOf(*node.parent), node.name);
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

    Node root_;

private:
    std::uint32_t lastHandle_ = 0;
};

} // namespace tessary
