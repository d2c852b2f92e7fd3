// SPDX-License-Identifier: MIT
#include "engine/language/Problems.h"

#include <algorithm>

namespace engine::language {

namespace {

std::vector<Problem> inOrderOfText(std::vector<Problem> problems)
{
    std::stable_sort(problems.begin(), problems.end(),
                     [](const Problem& a, const Problem& b) { return a.place.offset < b.place.offset; });
    return problems;
}

} // namespace

std::vector<Problem> Problems::sorted() const
{
    return inOrderOfText(m_problems);
}

std::vector<Problem> Problems::sortedHints() const
{
    return inOrderOfText(m_hints);
}

} // namespace engine::language
