// SPDX-License-Identifier: MIT
#include "engine/language/Syntax.h"

#include <cmath>
#include <cstdio>

namespace engine::language {

std::string shownName(const Output& output, const std::vector<double>& parameters)
{
    if (!output.nameParameter)
        return output.name;
    const double number = std::trunc(parameters[static_cast<std::size_t>(*output.nameParameter)]);
    char text[400]; // the longest double has 309 digits
    std::snprintf(text, sizeof text, "%.0f", number);
    return output.name + text;
}

} // namespace engine::language
