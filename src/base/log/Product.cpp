#include "base/log/Product.h"

namespace tessary {

QString productVersion() {
    return QStringLiteral(TESSARY_VERSION);
}

} // namespace tessary
