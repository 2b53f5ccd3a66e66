#include "phone/PhoneNames.h"

namespace tessary {

QString nameForPhones(const QString& name) {
    return name.normalized(QString::NormalizationForm_C)
        .toCaseFolded()
        .normalized(QString::NormalizationForm_C);
}

} // namespace tessary
