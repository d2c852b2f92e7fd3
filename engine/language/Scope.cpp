// SPDX-License-Identifier: MIT
#include "engine/language/Scope.h"

#include "engine/language/Attributes.h"
#include "engine/language/Nearness.h"

#include <algorithm>

namespace engine::language {

namespace {

constexpr std::size_t kMostCompared = 1000; // names of a text's own; more would make checking it slow
constexpr const char* kKeywords[] = { "AND", "OR", "NOT", "PARAM" };

template <class Value>
std::optional<Value> find(const std::unordered_map<std::string, Value>& names, const std::string& key)
{
    const auto found = names.find(key);
    return found == names.end() ? std::nullopt : std::optional<Value>(found->second);
}

} // namespace

bool isKeyword(const std::string& key)
{
    return std::find(std::begin(kKeywords), std::end(kKeywords), key) != std::end(kKeywords);
}

Scope::Place Scope::placeOf(const std::string& key) const
{
    const Function* function = findFunction(key);
    if (isKeyword(key) || (function && function->minArguments == 0))
        return Place::Reserved;
    return m_parameters.count(key) + m_values.count(key) > 0 ? Place::Taken : Place::Free;
}

std::optional<int> Scope::parameter(const std::string& key) const
{
    return find(m_parameters, key);
}

std::optional<NodeId> Scope::value(const std::string& key) const
{
    return find(m_values, key);
}

std::string Scope::nearest(const std::string& key, bool asCall) const
{
    NearestName nearest(key);
    for (const Function& function : allFunctions()) {
        const bool isCalled = function.maxArguments > 0;
        if (function.isOperator || isCalled != asCall)
            continue;
        nearest.consider(function.name);
        if (*function.alias)
            nearest.consider(function.alias);
    }
    if (!asCall) {
        for (const auto& [name, parameter] : m_parameters)
            nearest.consider(name);
        if (m_values.size() <= kMostCompared) {
            for (const auto& [name, node] : m_values)
                nearest.consider(name);
        }
    }
    return nearest.best();
}

std::string numberedAttributes(const std::string& key)
{
    const std::size_t digits = key.find_last_not_of("0123456789") + 1;
    if (digits == key.size() || digits == 0)
        return {};
    std::string first, last;
    for (const Attribute& attribute : allAttributes()) {
        const bool isOfFamily = attribute.name.size() > digits
            && attribute.name.compare(0, digits, key, 0, digits) == 0
            && attribute.name.find_first_not_of("0123456789", digits) == std::string::npos;
        if (isOfFamily && first.empty())
            first = attribute.name;
        if (isOfFamily)
            last = attribute.name;
    }
    return first.empty() ? "" : first + " to " + last;
}

std::string nearestAttribute(const std::string& key)
{
    NearestName nearest(key);
    for (const Attribute& attribute : allAttributes())
        nearest.consider(attribute.name);
    return nearest.best();
}

} // namespace engine::language
