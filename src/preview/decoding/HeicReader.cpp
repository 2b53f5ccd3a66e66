#include "preview/decoding/PictureReader.h"

#include "base/values/FreeWith.h"

#include <libheif/heif.h>

#include <algorithm>
#include <memory>

namespace tessary {

namespace {

constexpr qint64 maxPixels = 64'000'000;

using Context = std::unique_ptr<heif_context, FreeWith<heif_context_free>>;
using Handle = std::unique_ptr<heif_image_handle, FreeWith<heif_image_handle_release>>;
using Decoded = std::unique_ptr<heif_image, FreeWith<heif_image_release>>;

void check(const heif_error& error) {
    if (error.code != heif_error_Ok)
        throw PictureError(error.message != nullptr ? error.message : "the picture is damaged");
}

QSize sizeOf(const heif_image_handle& handle) {
    return {heif_image_handle_get_width(&handle), heif_image_handle_get_height(&handle)};
}

/// The small picture that the file brings along, when it is large enough.
Handle smallPicture(const heif_image_handle& handle, int maxSide) {
    heif_item_id id = 0;
    if (heif_image_handle_get_list_of_thumbnail_IDs(&handle, &id, 1) != 1)
        return {};
    heif_image_handle* found = nullptr;
    if (heif_image_handle_get_thumbnail(&handle, id, &found).code != heif_error_Ok)
        return {};
    Handle small(found);
    const QSize size = sizeOf(*small);
    return std::max(size.width(), size.height()) >= maxSide ? std::move(small) : Handle();
}

} // namespace

bool isHeic(const QByteArray& bytes) {
    constexpr qsizetype typeAt = 4; // after the length of the first box
    if (bytes.mid(typeAt, 4) != "ftyp")
        return false;
    const QByteArray brand = bytes.mid(typeAt + 4, 4);
    for (const char* known : {"heic", "heix", "hevc", "hevx", "mif1", "msf1", "heim", "heis"})
        if (brand == known)
            return true;
    return false;
}

Picture readHeic(const QByteArray& bytes, int maxSide) {
    const Context context(heif_context_alloc());
    if (!context)
        throw PictureError("no memory");
    check(heif_context_read_from_memory_without_copy(
        context.get(), bytes.constData(), static_cast<std::size_t>(bytes.size()), nullptr));
    heif_image_handle* primary = nullptr;
    check(heif_context_get_primary_image_handle(context.get(), &primary));
    Handle handle(primary);
    Picture picture;
    picture.fullSize = sizeOf(*handle);
    checkSize(picture.fullSize, maxPixels);
    if (Handle small = smallPicture(*handle, maxSide)) {
        checkSize(sizeOf(*small), maxPixels);
        handle = std::move(small);
    }
    heif_image* pixels = nullptr;
    check(heif_decode_image(handle.get(), &pixels, heif_colorspace_RGB,
                            heif_chroma_interleaved_RGBA, nullptr));
    const Decoded decoded(pixels);
    const QSize size(heif_image_get_width(pixels, heif_channel_interleaved),
                     heif_image_get_height(pixels, heif_channel_interleaved));
    checkSize(size, maxPixels);
    int stride = 0;
    const uint8_t* rows = heif_image_get_plane_readonly(pixels, heif_channel_interleaved, &stride);
    if (rows == nullptr || stride < 4 * size.width())
        throw PictureError("the picture is damaged");
    const QImage view(rows, size.width(), size.height(), stride, QImage::Format_RGBA8888);
    picture.image =
        view.scaled(fitted(size, maxSide), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    // The pixels go with `decoded`.
    picture.image.detach();
    if (picture.image.isNull())
        throw PictureError("no memory");
    return picture;
}

} // namespace tessary
