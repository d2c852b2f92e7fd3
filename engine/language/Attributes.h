// SPDX-License-Identifier: MIT
#pragma once
/// @file Attributes of an output: colour, width, style, placement.

#include "engine/language/Syntax.h"

#include <string>
#include <vector>

namespace engine::language {

/// An attribute that stands behind an output: COLORRED, LINETHICK2, NODRAW.
struct Attribute
{
    enum class Effect {
        Color,
        Width,
        Style,
        DrawType,
        NotDrawn,
        Decimals,
        HideInLegend,
        Position,
        Pane,
        Sticks
    };

    std::string name;
    Effect effect;
    int value; ///< in the unit of the effect: a code, pixels, decimals, a pane
    const char* chinese;
    const char* english;
};

/// Every attribute except the colours given by digits.
const std::vector<Attribute>& allAttributes();

/// The attribute of a name in capitals, COLORbbggrr and #RRGGBB included; nothing when there is none.
std::optional<Attribute> findAttribute(const std::string& key);

} // namespace engine::language
