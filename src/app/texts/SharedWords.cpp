#include "app/texts/SharedWords.h"

#include <QCoreApplication>

namespace tessary::words {

namespace {

/// The context of these texts.
class SharedWords {
    Q_DECLARE_TR_FUNCTIONS(SharedWords)
};

} // namespace

QString apps() {
    return SharedWords::tr("Apps");
}

QString openInFileManager() {
    return SharedWords::tr("Open in File Manager");
}

QString folderOnThisComputer() {
    return SharedWords::tr("Folder on this computer");
}

} // namespace tessary::words
