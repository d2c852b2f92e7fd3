// SPDX-License-Identifier: MIT
#include "engine/language/FunctionTable.h"

#include "engine/kernels/KernelRows.h"
#include "engine/language/Drawings.h"

#include <unordered_map>

namespace engine::language {

namespace {

using Table = std::unordered_map<std::string, const Function*>;

/// The functions by name and alias.
Table tableOf(bool operators)
{
    Table table;
    for (const Function& function : allFunctions()) {
        if (function.isOperator != operators)
            continue;
        table.emplace(function.name, &function);
        if (*function.alias)
            table.emplace(function.alias, &function);
    }
    return table;
}

} // namespace

const std::vector<Function>& allFunctions()
{
    static const std::vector<Function> functions = [] {
        std::vector<Function> all;
        for (const auto rows :
             { elementwiseFunctions, barSeries, referenceFunctions, countingFunctions, averageFunctions,
               windowFunctions, pairFunctions, searchFunctions, wholeFunctions, turningFunctions,
               parabolicFunctions, lineDrawings, drawingStatements }) {
            const std::vector<Function> more = rows();
            all.insert(all.end(), more.begin(), more.end());
        }
        return all;
    }();
    return functions;
}

const Function* findFunction(const std::string& name)
{
    static const Table functions = tableOf(false);
    const auto found = functions.find(name);
    return found == functions.end() ? nullptr : found->second;
}

const Function& operatorOf(const std::string& sign)
{
    static const Table operators = tableOf(true);
    return *operators.at(sign);
}

} // namespace engine::language
