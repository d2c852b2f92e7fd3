#include "engine/language/Problems.h"

#include <algorithm>

namespace engine::language {

std::vector<Problem> Problems::sorted() const
{
    std::vector<Problem> sorted = m_problems;
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const Problem& a, const Problem& b) { return a.place.offset < b.place.offset; });
    return sorted;
}

} // namespace engine::language
