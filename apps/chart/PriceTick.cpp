// SPDX-License-Identifier: MIT
#include "apps/chart/PriceTick.h"

#include <algorithm>
#include <cmath>

namespace chart {

double inferredPriceTick(const std::vector<double>& prices)
{
    constexpr std::size_t looked = 250;
    const auto begin = prices.end() - static_cast<std::ptrdiff_t>(std::min(looked, prices.size()));
    for (double steps : { 1.0, 10.0, 100.0, 1000.0 }) {
        const bool whole = std::all_of(begin, prices.end(), [&](double price) {
            return !std::isfinite(price)
                || std::abs(price * steps - std::round(price * steps)) < 1e-6 * steps;
        });
        if (whole)
            return 1.0 / steps;
    }
    return 0.0001;
}

} // namespace chart
