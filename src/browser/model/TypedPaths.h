#pragma once

#include "browser/actions/BrowserProblem.h"
#include "phone/PhoneFileSystem.h"

#include <QHash>
#include <QObject>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tessary {

/// What is at a path that was typed.
struct TypedPath {
    std::optional<FileItem> item;
    std::optional<BrowserProblem> problem; ///< without an item
};

/// The paths that a user types: what they may become, and what is there. Lives on the main thread.
class TypedPaths : public QObject {
public:
    using Found = std::function<void(const TypedPath& found, const QString& path)>;

    /// Folders of more names than this are not known; above it all are forgotten.
    static constexpr qsizetype mostNames = 50'000;

    /// What a listing has shown of a folder, in place of what was known about it.
    void note(const QString& folder, const std::vector<FileItem>& items);
    /// Another connection: its folders are not known yet.
    void clear();
    /// Of the folders seen so far, without asking the phone; as the path was typed up to the last
    /// "/". A relative path begins in `folder`.
    [[nodiscard]] QStringList completions(const PhoneFileSystem& files, const QString& typed,
                                          const QString& folder) const;
    /// Asks the phone what is at a path. `whenFound` is called on the main thread, unless another
    /// path was asked for meanwhile, or forget() was called.
    void lookUp(const std::shared_ptr<PhoneFileSystem>& files, const QString& typed,
                const QString& folder, Found whenFound);
    void forget() {
        ++number_;
    }

private:
    QHash<QString, QStringList> folders_; ///< the names of those in a folder
    qsizetype names_ = 0;                 ///< how many that are
    std::uint64_t number_ = 0;            ///< answers about older paths are dropped
};

} // namespace tessary
