// SPDX-License-Identifier: MIT
#pragma once
/// @file Finds what a misspelt name was meant to be.

#include <string>

namespace engine::language {

/// Keeps the candidate that needs the fewest changes to become a given name; of equal ones the first by the
/// alphabet, whatever the order in which they are considered.
class NearestName
{
public:
    explicit NearestName(const std::string& name);

    void consider(const std::string& candidate);

    /// Empty when no candidate is within a slip of the keyboard: one change, two from eight letters on, and
    /// of short names only a letter written twice.
    const std::string& best() const { return m_best; }

private:
    std::u32string m_name;
    std::string m_best;
    std::size_t m_fewest;
};

} // namespace engine::language
