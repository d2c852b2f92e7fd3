// SPDX-License-Identifier: MIT
#pragma once
/// @file The names that a text gives to things.

#include "engine/language/Syntax.h"

#include <optional>
#include <string>
#include <unordered_map>

namespace engine::language {

/// What the names of one text mean. Names are compared without regard to the case of Latin letters.
class Scope
{
public:
    enum class Place { Free, Taken, Reserved };

    /// Whether a name may be given to a hidden value or a parameter. Reserved ones belong to the language.
    Place placeOf(const std::string& key) const;

    void addParameter(const std::string& key, int parameter) { m_parameters[key] = parameter; }
    /// @param node  kBroken: uses of the name are not reported again; kNoNumber: they are.
    void addValue(const std::string& key, NodeId node) { m_values[key] = node; }

    std::optional<int> parameter(const std::string& key) const;
    std::optional<NodeId> value(const std::string& key) const;

    /// The known name most like a misspelt one; empty when none is near.
    /// @param asCall  the misspelt name stands before a parenthesis: only functions and drawings count.
    std::string nearest(const std::string& key, bool asCall) const;

private:
    std::unordered_map<std::string, int> m_parameters;
    std::unordered_map<std::string, NodeId> m_values;
};

/// Whether a name in capitals is a word of the language's own: AND, OR, NOT, PARAM.
bool isKeyword(const std::string& key);

/// The attributes of the family that a key would continue by a number ("LINETHICK0 to LINETHICK7"); empty
/// when there is no such family.
std::string numberedAttributes(const std::string& key);

/// The attribute most like a misspelt one; empty when none is near.
std::string nearestAttribute(const std::string& key);

} // namespace engine::language
