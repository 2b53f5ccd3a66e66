#include "views/phone/VolumeCard.h"

#include "app/texts/DisplayNames.h"
#include "base/text/ByteCount.h"
#include "views/common/Icons.h"
#include "views/common/Layouts.h"
#include "views/phone/UseBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace tessary {

namespace {

using Kind = StorageUse::Kind;

struct KindRow {
    Kind kind;
    const char* name; ///< English
    QRgb colour;
};

// To be told apart on a light and on a dark ground.
constexpr std::array<KindRow, 4> kinds{{
    {Kind::photos, QT_TRANSLATE_NOOP("tessary::VolumeCard", "Photos"), 0xffe3a52d},
    {Kind::videos, QT_TRANSLATE_NOOP("tessary::VolumeCard", "Videos"), 0xffd1583f},
    {Kind::music, QT_TRANSLATE_NOOP("tessary::VolumeCard", "Music"), 0xff9a63c8},
    {Kind::apps, QT_TRANSLATE_NOOP("tessary::VolumeCard", "Apps"), 0xff3aa37a},
}};
constexpr QRgb otherColour = 0xff7f8c9b;

} // namespace

VolumeCard::VolumeCard(const Place& place, std::function<void()> open)
    : heading_(new QToolButton), free_(makeNote()), bar_(new UseBar) {
    heading_->setText(QString(place.title).replace(QLatin1Char('&'), QStringLiteral("&&")));
    heading_->setAccessibleName(place.title);
    heading_->setIcon(lineIcon(place.iconName));
    heading_->setIconSize({18, 18});
    heading_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    heading_->setAutoRaise(true);
    heading_->setFont(demiBold(heading_->font()));
    const bool hasTarget = static_cast<bool>(open);
    if (hasTarget)
        connect(heading_, &QToolButton::clicked, this, [run = std::move(open)] { run(); });
    else
        heading_->setFocusPolicy(Qt::NoFocus);
    heading_->setAttribute(Qt::WA_TransparentForMouseEvents, !hasTarget);
    bar_->setAccessibleName(place.title);
    free_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* line = new QHBoxLayout;
    line->addWidget(heading_);
    line->addWidget(free_, 1);
    auto* column = makeColumn(*this, 4);
    column->addLayout(line);
    column->addWidget(bar_);
}

void VolumeCard::show(const StorageVolume& storage, const std::optional<StorageUse>& use) {
    const qint64 used = storage.usedBytes();
    std::vector<UseBar::Piece> pieces;
    qint64 left = used;
    // Nothing is larger than what is in use, whatever files claim.
    for (const KindRow& row : kinds) {
        const qint64 bytes = use ? std::min(use->of(row.kind), left) : 0;
        left -= bytes;
        pieces.push_back({tr(row.name), bytes, QColor::fromRgb(row.colour)});
    }
    // Most of it is the phone's own, which no listing shows.
    pieces.push_back({left == used ? tr("In use") : tr("Other"), left, QColor(otherColour)});
    pieces.push_back(
        {tr("Free"), clampedByteCount(std::min(storage.freeBytes, storage.totalBytes)), {}});
    bar_->setPieces(std::move(pieces));
    free_->setText(freeSpaceText(storage));
}

} // namespace tessary
