#pragma once

#include "base/values/Error.h"
#include "phone/records/EntryMarks.h"
#include "phone/records/FileItem.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

namespace tessary {

/// What becomes of something whose name is taken at the target. Where a folder meets a folder,
/// `skip` leaves it out with all that is in it, `keepBoth` gives it a number, and everything else
/// merges the two and asks again for what is in them. A file and a folder never replace each other.
enum class ClashAnswer {
    skip,         ///< what is there stays
    keepBoth,     ///< the copy gets a number: "a (2).txt"
    replace,      ///< whatever their dates
    replaceOlder, ///< what is there goes when it is older, else it stays
    merge,        ///< of files both are kept
};

/// Two entries that want one name.
struct Clash {
    FileItem coming;
    FileItem existing;
};

/// Answers for each clash; called on the thread of the copy. It may ask a person: what it throws
/// ends the copy.
using ClashPolicy = std::function<ClashAnswer(const Clash&)>;

/// One thing that is to be copied.
struct CopyItem {
    FileItem item;
    QString name;     ///< of its copy
    QString folder{}; ///< below the target folder, "a/b"; empty: the target folder itself
    /// The name was given to it by an earlier run: a folder that has it is its own.
    bool isContinued = false;
};

/// What stands in EntryMarks for `made`, told from what came of any other source.
[[nodiscard]] FileItem broughtAs(const FileItem& source, FileItem made);

/// Whether two are the same as far as kind, size and date tell, dates going in such steps.
[[nodiscard]] bool areAlike(const FileItem& one, const FileItem& other,
                            std::chrono::milliseconds dateStep);

/// Something that was not copied, and why.
struct LeftOut {
    CopyItem item; ///< in the folder, by the name that this was given, where it belongs
    Error error;
};

/// How a copy ended.
struct CopyOutcome {
    enum class End {
        done,       ///< all that was asked for is there
        incomplete, ///< but for what was left out
        cancelled,
        failed, ///< by `failure`; what was copied before stays
    };

    qint64 files = 0; ///< copied
    qint64 folders = 0;
    qint64 bytes = 0;
    qint64 alreadyThere = 0; ///< files that stayed as they were there, by the answers given
    std::vector<LeftOut> leftOut;
    std::optional<Error> failure;
    bool isCancelled = false;
    /// Everything asked for, by the names that it was given: what to go on with. What a move has
    /// taken from its source is done with.
    std::vector<CopyItem> items;
    QStringList made;   ///< paths at the target of the things asked for, as far as they are there
    EntryMarks entries; ///< all that was made, whatever folder it lies in
    EntryMarks brought; ///< broughtAs() of each file

    [[nodiscard]] End end() const {
        if (failure)
            return End::failed;
        if (isCancelled)
            return End::cancelled;
        return leftOut.empty() ? End::done : End::incomplete;
    }
};

/// Is told of each file that a copy has brought, while it goes on. Called on the thread of the
/// copy.
class CopyWitness {
public:
    virtual ~CopyWitness() = default;

    /// `copy` is there under its name. `sha256` is that of its content; empty unless the copy
    /// verifies.
    virtual void copied(const CopyItem& item, const FileItem& copy, const QByteArray& sha256) = 0;
    /// Nothing more comes of this run, however it ended. What it returns is why the copy failed in
    /// spite of all files being there.
    [[nodiscard]] virtual std::optional<Error> ended() = 0;
};

} // namespace tessary
