#include "FuzzTarget.h"
#include "app/updates/UpdateInfo.h"

using namespace tessary;

/// What the server that announces updates sends.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray body(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto update = parseUpdateManifest(body);
    if (!update)
        return 0;
    require(!update->version.isEmpty());
    require(!isNewerVersion(update->version, update->version));
    const QString other = QStringLiteral("1.10.2");
    require(!isNewerVersion(update->version, other) || !isNewerVersion(other, update->version));
    return 0;
}
