// SPDX-License-Identifier: MIT
#pragma once
/// @file Reads the attributes behind an output.

#include "engine/language/Attributes.h"
#include "engine/language/TokenReader.h"

namespace engine::language {

/// Gives one output the attributes that stand behind it.
class OutputAttributes
{
public:
    /// @param paneKind  which pane the formula wants; attributes may say it.
    OutputAttributes(TokenReader& reader, Output& output, std::optional<int>& paneKind)
        : m_reader(reader)
        , m_output(output)
        , m_paneKind(paneKind)
    {
    }

    /// Reads a comma and the attribute behind it.
    void read();

    /// Passes over the attributes behind a hidden value, which has no use for them.
    static void passOver(TokenReader& reader);

private:
    void giveRgb(const Token& token);
    void give(const Token& token, const Attribute& attribute);
    void giveDrawType(const Token& token, int drawType, bool isDrawn);
    void giveColor(const Token& token, int color);

    TokenReader& m_reader;
    Output& m_output;
    std::optional<int>& m_paneKind;
};

} // namespace engine::language
