#include "mtp/files/MTPThumbnail.h"

#include "mtp/objects/MTPFailures.h"

namespace tessary {

std::optional<QByteArray> readMTPThumbnail(MTPTree& tree, const FileItem& file, qint64 maxBytes,
                                           const std::stop_token& stop) {
    struct TooLarge {};
    const MTPFound found = tree.findListed(file, stop);
    if (found.object.isDirectory())
        return std::nullopt;
    QByteArray picture;
    const auto take = [&](ByteView bytes) {
        if (picture.size() + static_cast<qint64>(bytes.size()) > maxBytes)
            throw TooLarge();
        picture.append(reinterpret_cast<const char*>(bytes.data()),
                       static_cast<qsizetype>(bytes.size()));
    };
    MTPStreamOptions options;
    options.stop = stop;
    try {
        tree.client().getThumb(found.object.handle, take, options);
    } catch (const TooLarge&) {
        return std::nullopt;
    } catch (const MTPFailure& failure) {
        // Of most files there is none, and phones have many words for that.
        if (endsSession(failure))
            throw;
        return std::nullopt;
    }
    return picture.isEmpty() ? std::nullopt : std::optional(picture);
}

} // namespace tessary
