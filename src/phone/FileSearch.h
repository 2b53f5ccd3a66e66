#pragma once

#include "phone/PhoneFileSystem.h"

#include <QRegularExpression>

namespace tessary {

/// What a name is searched for. With "*", "?" or "[…]" it is a pattern of the whole name, as in a
/// shell; anything else is looked for within names. Case does not count. A value.
class NamePattern {
public:
    explicit NamePattern(const QString& text);

    [[nodiscard]] bool matches(const QString& name) const;

private:
    QString part_;                  ///< to be found within; empty where there is a pattern
    QRegularExpression expression_; ///< of the whole name
};

/// Walks a folder and everything below it, each folder before those in it. `receiver` gets what
/// fits, as it is found, and what cannot be read, which does not end the search. Blocking, a turn
/// of the phone's queue a folder. What ends everything else on the phone, or is thrown by the
/// receiver, ends it.
void searchFiles(PhoneFileSystem& files, const QString& folder, const NamePattern& pattern,
                 const ListingReceiver& receiver, const Call& call);

} // namespace tessary
