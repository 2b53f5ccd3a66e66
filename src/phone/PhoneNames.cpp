#include "phone/PhoneNames.h"

#include "base/text/PathNames.h"
#include "base/values/TessaryError.h"

namespace tessary {

namespace {

void requireName(const QString& name, bool isShortEnough) {
    if (!isSafeName(name) || !isShortEnough)
        throw TessaryError::fileIOError(
            QStringLiteral("\"%1\" cannot be a name on the phone.").arg(name));
}

} // namespace

QString nameForPhones(const QString& name) {
    return name.normalized(QString::NormalizationForm_C)
        .toCaseFolded()
        .normalized(QString::NormalizationForm_C);
}

bool isSameToPhones(const QString& one, const QString& other) {
    return one == other || nameForPhones(one) == nameForPhones(other);
}

void requireNameForMTP(const QString& name) {
    constexpr qsizetype most = 254;
    requireName(name, name.size() <= most);
}

void requireNameForADB(const QString& name) {
    constexpr qsizetype most = 255;
    requireName(name, name.toUtf8().size() <= most);
}

void throwNotOnPhone(const QString& path) {
    throw TessaryError::fileIOError(
        QStringLiteral("There is no %1 on the phone. It may have been deleted or renamed: refresh "
                       "the folder.")
            .arg(path));
}

void throwSameToPhone(const QString& listed, const QString& wanted) {
    throw TessaryError::fileIOError(
        QStringLiteral("\"%1\" is on the phone, which takes \"%2\" for the same name. Rename one "
                       "of the two first.")
            .arg(listed, wanted));
}

} // namespace tessary
