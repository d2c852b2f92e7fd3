// SPDX-License-Identifier: MIT
#include "engine/language/Nearness.h"

#include <algorithm>
#include <vector>

namespace engine::language {

namespace {

constexpr std::size_t kFewestLetters = 4; // from which a mistake is told from another word
constexpr std::size_t kLongestName = 40;  // longer ones are compared by their beginning

/// The characters of a sound UTF-8 text.
std::u32string charactersOf(const std::string& utf8)
{
    std::u32string characters;
    for (const char byte : utf8) {
        const auto bits = static_cast<unsigned char>(byte);
        if ((bits & 0xC0) == 0x80 && !characters.empty())
            characters.back() = (characters.back() << 6) | (bits & 0x3F);
        else if (characters.size() < kLongestName)
            characters.push_back(bits);
        else
            break;
    }
    return characters;
}

/// Number of insertions, deletions, replacements and swaps of neighbours between two words: the optimal
/// string alignment distance.
std::size_t distance(const std::u32string& a, const std::u32string& b)
{
    std::vector<std::vector<std::size_t>> changes(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
    for (std::size_t row = 0; row <= a.size(); ++row)
        changes[row][0] = row;
    for (std::size_t column = 0; column <= b.size(); ++column)
        changes[0][column] = column;
    for (std::size_t row = 1; row <= a.size(); ++row) {
        for (std::size_t column = 1; column <= b.size(); ++column) {
            const std::size_t replaced = changes[row - 1][column - 1] + (a[row - 1] != b[column - 1]);
            std::size_t fewest =
                std::min({ replaced, changes[row - 1][column] + 1, changes[row][column - 1] + 1 });
            if (row > 1 && column > 1 && a[row - 1] == b[column - 2] && a[row - 2] == b[column - 1])
                fewest = std::min(fewest, changes[row - 2][column - 2] + 1);
            changes[row][column] = fewest;
        }
    }
    return changes[a.size()][b.size()];
}

/// Whether a word is another one with one letter written twice.
bool isDoubled(const std::u32string& longer, const std::u32string& shorter)
{
    for (std::size_t at = 1; at < longer.size() && longer.size() == shorter.size() + 1; ++at) {
        if (longer[at] == longer[at - 1] && longer.substr(0, at) + longer.substr(at + 1) == shorter)
            return true;
    }
    return false;
}

} // namespace

NearestName::NearestName(const std::string& name)
    : m_name(charactersOf(name))
    , m_fewest(m_name.size() / 8 + 2)
{
}

void NearestName::consider(const std::string& candidate)
{
    const std::u32string characters = charactersOf(candidate);
    const std::size_t longer = std::max(characters.size(), m_name.size());
    if (longer - std::min(characters.size(), m_name.size()) > m_fewest)
        return;
    const std::size_t changes = distance(m_name, characters);
    if (characters.size() < kFewestLetters && !isDoubled(m_name, characters)
        && !isDoubled(characters, m_name))
        return; // too short: another letter makes another word
    const bool isEarlier = changes == m_fewest && !m_best.empty() && candidate < m_best;
    if ((changes < m_fewest || isEarlier) && changes < longer) {
        m_fewest = changes;
        m_best = candidate;
    }
}

} // namespace engine::language
