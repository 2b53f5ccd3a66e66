#pragma once

#include "phone/NameRules.h"
#include "transfer/copy/CopyTypes.h"

#include <QHash>
#include <QSet>

#include <chrono>
#include <variant>

namespace tessary {

/// Decides, by the target's own rules, which names a copy gives in one folder. Pure.
class TargetFolder {
public:
    TargetFolder(QString path, NameRules rules, std::chrono::milliseconds dateStep)
        : path_(std::move(path)), rules_(rules), dateStep_(dateStep) {}

    [[nodiscard]] const QString& path() const {
        return path_;
    }
    [[nodiscard]] const NameRules& rules() const {
        return rules_;
    }
    /// What was there before the copy.
    void addExisting(const FileItem& item);
    /// A name that something unreadable has: nothing is copied over it.
    void addUnreadable(const QString& name, const Error& error);

    struct Make { ///< under a name that is free
        QString name;
    };
    struct Replace {
        FileItem existing;
    };
    struct Merge { ///< into a folder that is there
        FileItem existing;
    };
    struct Stay {                       ///< what is there stays, as was answered
        std::optional<FileItem> same{}; ///< or because it is taken for what comes
    };
    using Decision = std::variant<Make, Replace, Merge, Stay, Error>;

    struct Rules {
        ClashPolicy policy;
        /// Files that are there with the same size and date are not copied again.
        bool skipsSame = false;
        /// broughtAs() of what earlier runs made: of the same size, where it lost its date.
        const EntryMarks* brought = nullptr; ///< may be null
        /// The path, when it lies on the target itself, of what is copied: a copy never replaces
        /// what it comes from.
        QString ownPath{};
    };
    /// The name is taken from then on. `item` is what comes, under the name that it wants.
    [[nodiscard]] Decision place(const CopyItem& item, const Rules& rules);

private:
    [[nodiscard]] Decision numbered(const CopyItem& item, const Rules& rules);
    [[nodiscard]] Decision answered(const CopyItem& item, const FileItem& existing,
                                    const Rules& rules);
    [[nodiscard]] bool isTakenForSame(const CopyItem& item, const FileItem& existing,
                                      const Rules& rules) const;

    const QString path_;
    const NameRules rules_;
    const std::chrono::milliseconds dateStep_;
    QHash<QString, FileItem> existing_; ///< by key
    QHash<QString, Error> unreadable_;
    QSet<QString> given_; ///< keys of what this copy put here, or left as it is
};

} // namespace tessary
