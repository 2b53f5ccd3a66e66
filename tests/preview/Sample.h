#pragma once

#include <QFile>

#include <stdexcept>

namespace tessary {

/// A file that nothing here could write.
inline QByteArray sample(const char* name) {
    QFile file(QStringLiteral(TESSARY_SAMPLES "/") + QString::fromLatin1(name));
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error(std::string("there is no sample ") + name);
    return file.readAll();
}

} // namespace tessary
