#pragma once

#include "phone/NameRules.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace tessary {

// Names of files of ours that are not whole yet, or that wait for a name that is still taken. All
// begin alike:
//
//     .tessary-part-<12 digits>               on its way
//     .tessary-part-by-<owner>-<12 digits>    the same, of an owner
//     .tessary-part-of-<32 digits>            on its way, and can be gone on with
//     .tessary-part-for-<name>                whole, and waits for the name
//     .tessary-part-for@<owner>-<name>        the same, of an owner
//     .tessary-part-for#<32 digits>           the same, of a name too long to stand here;
//     .tessary-part-for@<owner>#<32 digits>   its digits do
//     .tessary-part-was-<12 digits>-<name>    an item of the user's between two spellings of its
//                                             name
//
// An owner is who alone makes parts of that owner at a time: what bears its name when it begins was
// left behind by one that ended. See partOwner().

/// Whether a file is one of ours on its way, or a folder holds such: no listing, copy or sync takes
/// it for the user's.
[[nodiscard]] bool isPartName(const QString& name);

/// Whether it is one that is not whole, or a folder of such: nobody needs to see it. What waits for
/// its name is whole, and may be the only one.
[[nodiscard]] bool isUnfinishedName(const QString& name);

/// The name of an owner: 16 digits that stand for a text.
[[nodiscard]] QString partOwner(const QString& text);

/// A name that no file has.
[[nodiscard]] QString newPartName(const QString& owner = {});

/// What the copy of a file is called while it can be gone on with; `identity` is that of the file.
[[nodiscard]] QString resumablePartName(const QString& identity);

/// What a whole file is called while the old one of its name is removed: the only one of the two
/// may be this, so it is never removed while nothing has the name. Holds the name itself as far as
/// the target's rules let it.
[[nodiscard]] QString waitingName(const NameRules& rules, const QString& name,
                                  const QString& owner);

/// What a file or folder of the user's is called on its way to another spelling of its name, where
/// it would be in its own way: it is never removed. Nothing else has that name. One that is too
/// long for that is shortened.
[[nodiscard]] QString respellingName(const QString& newName);

/// What a name says that isPartName() holds for.
struct PartName {
    enum class Kind {
        arriving,  ///< on its way
        resumable, ///< on its way, and can be gone on with
        waiting,   ///< whole
        respelled, ///< the user's own
    };

    Kind kind = Kind::arriving;
    QString owner; ///< empty: none
    /// The name that it waits for; no value where none can be told.
    std::optional<QString> awaited;
};

/// `awaited` are names that may stand behind digits. A name that isPartName() does not hold for
/// has no value.
[[nodiscard]] std::optional<PartName> partNameOf(const QString& name, const QStringList& awaited);

} // namespace tessary
