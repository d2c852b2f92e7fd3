// SPDX-License-Identifier: MIT
#include "apps/client/SkinDirections.h"

#include "host/WB/SkinLookup.h"
#include "host/embedded/SkinSetup.h"

#include <QPixmap>
#include <QTransform>

#include <utility>

namespace client {

namespace {

constexpr std::pair<const char*, const char*> kColors[] = {
    { "ic_clr_kline_rise", "ic_clr_kline_fall" },
    { "ic_clr_index_default_rise", "ic_clr_index_default_fall" },
    { "tc_clr_total_buyamount", "tc_clr_total_sellamount" },
};
constexpr const char* kNetBuy = "tc_clr_buyamount"; // goes with the first of the last pair
constexpr const char *kUp = "ic_img_arrow_up", *kDown = "ic_img_arrow_down";

void swapColors(const char* one, const char* other)
{
    const QColor first = WB::skinColor(one, QColor()), second = WB::skinColor(other, QColor());
    if (!first.isValid() || !second.isValid())
        return;
    TC::embedded::setColor(QLatin1String(one), second);
    TC::embedded::setColor(QLatin1String(other), first);
}

QPixmap upsideDown(const QPixmap& picture)
{
    QPixmap turned = picture.transformed(QTransform::fromScale(1.0, -1.0));
    turned.setDevicePixelRatio(picture.devicePixelRatio());
    return turned;
}

/// The arrows keep their direction: each is the other one upside down.
void swapArrows()
{
    const QPixmap *up = WB::skinPicture(kUp), *down = WB::skinPicture(kDown);
    if (!up || !down)
        return;
    const QPixmap rising = upsideDown(*down), falling = upsideDown(*up);
    TC::embedded::setPixmap(QLatin1String(kUp), rising);
    TC::embedded::setPixmap(QLatin1String(kDown), falling);
}

} // namespace

void swapDirections()
{
    const bool netIsBuy =
        WB::skinColor(kNetBuy, QColor()) == WB::skinColor("tc_clr_total_buyamount", QColor());
    swapArrows();
    for (const auto& [one, other] : kColors)
        swapColors(one, other);
    if (netIsBuy)
        TC::embedded::setColor(QLatin1String(kNetBuy), WB::skinColor("tc_clr_total_buyamount", QColor()));
}

} // namespace client
