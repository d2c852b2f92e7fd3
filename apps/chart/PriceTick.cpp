// SPDX-License-Identifier: MIT
#include "apps/chart/PriceTick.h"

#include <algorithm>
#include <cmath>

namespace chart {

double inferredPriceTick(const std::vector<double>& prices)
{
    constexpr std::size_t looked = 250;
    const auto begin = prices.end() - static_cast<std::ptrdiff_t>(std::min(looked, prices.size()));
    double greatest = 0.0;
    for (auto price = begin; price != prices.end(); ++price)
        greatest = std::isfinite(*price) ? std::max(greatest, std::abs(*price)) : greatest;
    constexpr double fewestSteps = 1e4, finest = 1e8, telling = 1e6;
    for (double steps = 1.0; steps <= finest; steps *= 10.0) {
        if (steps >= fewestSteps && greatest * steps >= telling)
            break; // more digits than a price of this size has
        const bool whole = std::all_of(begin, prices.end(), [&](double price) {
            return !std::isfinite(price)
                || std::abs(price * steps - std::round(price * steps)) < 1e-6 * std::min(steps, 1000.0);
        });
        if (whole)
            return 1.0 / steps;
    }
    return 0.0001;
}

} // namespace chart
