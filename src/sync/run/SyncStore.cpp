#include "sync/run/SyncStore.h"

#include "base/log/DiagnosticsLogger.h"
#include "phone/PartNames.h"
#include "transfer/copy/CopyErrors.h"
#include "transfer/copy/FileCopy.h"

#include <algorithm>
#include <cstring>

namespace tessary {

namespace {

/// Ends the reading of what grows beyond any manifest.
struct TooLong {};

/// The manifest's text; no value where there is none, or one that is too long for any.
std::optional<QByteArray> textOf(SyncSide& side, const Call& call) {
    auto file = side.findFile(SyncManifest::fileName, call);
    if (!file) {
        // A run that broke off may have left it there, short of its name.
        const NameRules rules = side.files().nameRules(side.pathOf({}), call);
        file = side.findFile(waitingName(rules, SyncManifest::fileName, call.partOwner), call);
    }
    if (!file)
        return std::nullopt;
    QByteArray json;
    const auto append = [&json](ByteView bytes) {
        if (json.size() + std::ssize(bytes) > SyncManifest::maxBytes)
            throw TooLong{};
        json.append(QByteArrayView(bytes));
    };
    try {
        side.files().read(*file, {}, append, call);
    } catch (const TooLong&) {
        return std::nullopt;
    }
    return json;
}

} // namespace

std::optional<SyncManifest> loadManifest(SyncSide& side, const Call& call) {
    // Without it a run knows nothing of what was deleted: a refusal has to come twice.
    for (int refusals = 0; refusals < 2; ++refusals) {
        try {
            const auto json = textOf(side, call);
            return json ? SyncManifest::decode(*json) : std::nullopt;
        } catch (const Error& error) {
            if (endsCopy(error))
                throw;
            DiagnosticsLogger::shared().transfer.error("sync record not read: %s",
                                                       {error.logText()});
        }
    }
    return std::nullopt;
}

void saveManifest(SyncSide& side, const SyncManifest& manifest, const Call& call) {
    const QByteArray json = manifest.encode();
    std::size_t done = 0;
    const auto content = [&](std::span<std::byte> into) {
        const std::size_t count =
            std::min(into.size(), static_cast<std::size_t>(json.size()) - done);
        std::memcpy(into.data(), json.constData() + done, count);
        done += count;
        return count;
    };
    const QString folder = side.makeFoldersAbove(SyncManifest::fileName, call);
    auto old = side.findFile(SyncManifest::fileName, call);
    if (old && !side.files().capabilities(call).renames) {
        // The next run does without it when this one ends here.
        side.files().remove(*old, call);
        old.reset();
    }
    (void)putFile(side.files(), {folder, SyncManifest::fileName, json.size(), {}, std::move(old)},
                  content, {}, {}, call);
}

} // namespace tessary
