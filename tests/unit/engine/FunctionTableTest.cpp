// SPDX-License-Identifier: MIT
/// @file The table of functions as a whole; what each of them computes is tested elsewhere.

#include "engine/language/FunctionTable.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

using engine::language::allFunctions;
using engine::language::Function;

TEST(FunctionTable, GivesEveryNameOnce)
{
    std::set<std::string> names;
    for (const Function& function : allFunctions()) {
        EXPECT_TRUE(names.insert(function.name).second) << function.name;
        if (*function.alias) {
            EXPECT_TRUE(names.insert(function.alias).second) << function.alias;
        }
    }
}

TEST(FunctionTable, HasAKernelForEverythingThatDoesNotDraw)
{
    for (const Function& function : allFunctions()) {
        EXPECT_TRUE(static_cast<bool>(function.makeKernel) || function.drawing.has_value()) << function.name;
        EXPECT_LE(function.minArguments, function.maxArguments) << function.name;
    }
}

TEST(FunctionTable, DescribesEverythingThatIsCalledByName)
{
    for (const Function& function : allFunctions()) {
        EXPECT_NE(function.isOperator, *function.chinese != '\0') << function.name;
        EXPECT_EQ(*function.chinese != '\0', *function.english != '\0') << function.name;
    }
}

} // namespace
