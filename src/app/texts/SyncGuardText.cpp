#include "app/texts/SyncGuardText.h"

#include <QCoreApplication>

namespace tessary {

namespace {

/// The context of the sync's texts.
class Texts {
    Q_DECLARE_TR_FUNCTIONS(SyncTexts)
};

} // namespace

QString guardText(const SyncGuard& guard) {
    using Kind = SyncGuard::Kind;
    const auto count = static_cast<int>(guard.recorded);
    switch (guard.kind) {
    case Kind::nothing:
        break;
    case Kind::localEmpty:
        return Texts::tr("The folder on this computer is empty, although %Ln files were in it "
                         "after the last sync. Is its disk missing?",
                         nullptr, count);
    case Kind::deviceEmpty:
        return Texts::tr("The folder on the phone is empty, although %Ln files were in it after "
                         "the last sync. Is its memory card missing?",
                         nullptr, count);
    case Kind::manyDeletions:
        return Texts::tr("More than half of the %Ln files of the last sync would be deleted.",
                         nullptr, count);
    }
    return {};
}

} // namespace tessary
