#pragma once

#include "base/values/Error.h"

#include <QString>

#include <optional>
#include <utility>
#include <vector>

namespace tessary {

/// Something that went wrong with what the user asked of a browser. A value without words: they are
/// made of it at the top.
struct BrowserProblem {
    enum class What {
        load,        ///< the folder `name` could not be read: `failures`
        notRead,     ///< the user gave the reading up
        notSearched, ///< the user stopped a search; what it had found is shown
        folderGone,  ///< the folder `name` is not there any more
        noSuchPath,  ///< nothing is at the path `name` that was typed
        unplugged,   ///< the phone is gone
        create,      ///< the folder `name` could not be made
        rename,      ///< `name` could not be renamed
        remove,      ///< `failed` of `total` entries could not be deleted
        move,        ///< the same for moving
        fetch,       ///< `name` could not be had as a file here, for a program or a drop
        dragFolder,  ///< folders are not copied for a drag, and `name` is one
        dragLong,    ///< `name` could not be copied while a drag lasts
        open,        ///< no program opened `name`
        apps,        ///< the apps of an iPhone could not be listed
        appsNotRead, ///< the user gave their listing up
        otherFolder, ///< a question was answered about a folder that is not shown any more
    };
    /// One entry and why.
    struct Failure {
        QString name;
        Error error;

        bool operator==(const Failure&) const = default;
    };

    What what = What::load;
    QString name;
    int failed = 1;
    int total = 1;
    std::vector<Failure> failures; ///< the first few

    [[nodiscard]] static BrowserProblem of(What what, const QString& name, const Error& error) {
        return {what, name, 1, 1, {{name, error}}};
    }
    bool operator==(const BrowserProblem&) const = default;
};

} // namespace tessary
