// SPDX-License-Identifier: MIT
#pragma once
/// @file A set of flags of one enumeration.

namespace utils {

/// Bit set over the values of `Enum`; converts from a single value and from a raw word.
template <class Enum>
class CFlags
{
public:
    constexpr CFlags() = default;
    /// One flag.
    constexpr CFlags(Enum flag)
        : m_bits(static_cast<int>(flag))
    {
    }
    /// A raw word; unknown bits stay.
    explicit constexpr CFlags(int bits)
        : m_bits(bits)
    {
    }

    /// Whether all bits of the flag are set; never for a flag without bits.
    constexpr bool testFlag(Enum flag) const
    {
        return (m_bits & static_cast<int>(flag)) == static_cast<int>(flag) && flag != Enum {};
    }
    /// The raw word.
    constexpr int bits() const { return m_bits; }

    /// Flags of either.
    friend constexpr CFlags operator|(CFlags a, CFlags b) { return CFlags(a.m_bits | b.m_bits); }
    /// Same bits.
    friend constexpr bool operator==(CFlags a, CFlags b) { return a.m_bits == b.m_bits; }
    /// Different bits.
    friend constexpr bool operator!=(CFlags a, CFlags b) { return a.m_bits != b.m_bits; }

private:
    int m_bits = 0;
};

} // namespace utils
