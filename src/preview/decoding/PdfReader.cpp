#include "preview/decoding/PictureReader.h"

#include <poppler-qt6.h>

#include <algorithm>
#include <cmath>

namespace tessary {

namespace {

constexpr double pointsPerInch = 72;
constexpr double longestPage = 20'000; // points; larger ones are plans nobody has on a phone

} // namespace

Picture readPdfPage(const QByteArray& bytes, int number, int maxSide) {
    Poppler::setDebugErrorFunction([](const QString&, const QVariant&) {}, {});
    const auto document = Poppler::Document::loadFromData(bytes);
    if (!document || document->isLocked())
        throw PictureError("the document is damaged or locked");
    const int pages = document->numPages();
    if (number < 0 || number >= pages)
        throw PictureError("the document has no such page");
    const auto page = document->page(number);
    if (!page)
        throw PictureError("the page is damaged");
    const QSizeF size = page->pageSizeF();
    const double longest = std::max(size.width(), size.height());
    // Written so that no-number is refused too.
    if (!(size.width() > 0 && size.height() > 0 && longest <= longestPage))
        throw PictureError("the page has no sensible size");
    document->setRenderHint(Poppler::Document::Antialiasing);
    document->setRenderHint(Poppler::Document::TextAntialiasing);
    const double resolution = pointsPerInch * maxSide / longest;
    Picture picture;
    picture.image = page->renderToImage(resolution, resolution);
    if (picture.image.isNull())
        throw PictureError("the page cannot be drawn");
    picture.image = picture.image.scaled(fitted(picture.image.size(), maxSide));
    picture.pages = pages;
    return picture;
}

} // namespace tessary
