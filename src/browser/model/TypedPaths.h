#pragma once

#include "browser/actions/TypedPath.h"
#include "browser/model/KnownFolders.h"

#include <QObject>

#include <cstdint>
#include <functional>
#include <memory>

namespace tessary {

/// The paths that a user types: what they may become, and what is there. Lives on the main thread.
class TypedPaths : public QObject {
public:
    using Found = std::function<void(const TypedPath& found, const QString& path)>;

    /// The folders of the connection, as its listings show them.
    [[nodiscard]] KnownFolders& known() {
        return known_;
    }
    /// Of the folders seen so far; as the path was typed up to the last "/". A relative path begins
    /// in `folder`.
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
    KnownFolders known_;
    std::uint64_t number_ = 0; ///< answers about older paths are dropped
};

} // namespace tessary
