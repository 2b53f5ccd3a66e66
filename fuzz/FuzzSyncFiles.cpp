#include "FuzzTarget.h"
#include "sync/pair/SyncPairJson.h"
#include "sync/plan/SyncManifest.h"

#include <QJsonDocument>

using namespace tessary;

/// The manifest that lies in both folders of a pair, and the stored list of pairs.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray json(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (const auto manifest = SyncManifest::decode(json)) {
        for (const auto& [id, host] : manifest->hosts)
            for (const auto& [path, entry] : host.files)
                require(isSyncPath(path) && entry.size >= 0);
        require(SyncManifest::decode(manifest->encode()) == manifest);
        require(SyncManifest::merged(manifest, manifest) == *manifest);
    }
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (const auto pairs = decodeSyncPairs(document.array()))
        require(decodeSyncPairs(encodeSyncPairs(*pairs)).has_value());
    return 0;
}
