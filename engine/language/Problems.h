// SPDX-License-Identifier: MIT
#pragma once
/// @file Collects what is wrong with a text.

#include "engine/language/Problem.h"

#include <string>
#include <vector>

namespace engine::language {

/// Faults and hints in the order in which they were met; at most kMaxProblems of each are kept.
class Problems
{
public:
    static constexpr std::size_t kMaxProblems = 200;

    void add(const Place& place, const std::string& found, const std::string& chinese,
             const std::string& english)
    {
        if (m_problems.size() < kMaxProblems)
            m_problems.push_back({ place, found, chinese, english });
    }

    /// Notes what is read although it may not mean what its writer thinks.
    void hint(const Place& place, const std::string& found, const std::string& chinese,
              const std::string& english)
    {
        if (m_hints.size() < kMaxProblems)
            m_hints.push_back({ place, found, chinese, english });
    }

    bool isFull() const { return m_problems.size() >= kMaxProblems; }
    std::size_t count() const { return m_problems.size(); }
    bool empty() const { return m_problems.empty(); }

    /// All faults in the order of the text.
    std::vector<Problem> sorted() const;
    /// All hints in the order of the text.
    std::vector<Problem> sortedHints() const;

private:
    std::vector<Problem> m_problems, m_hints;
};

} // namespace engine::language
