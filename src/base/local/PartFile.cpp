#include "base/local/PartFile.h"

#include <QUuid>

namespace tessary {

QString PartFile::newName() {
    constexpr qsizetype digits = 12;
    return namePrefix + QUuid::createUuid().toString(QUuid::Id128).left(digits);
}

} // namespace tessary
