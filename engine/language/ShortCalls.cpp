// SPDX-License-Identifier: MIT
#include "engine/language/ShortCalls.h"

namespace engine::language {

namespace {

/// The move from the bar before, as a part of its value.
NodeId moveOf(const char* series, const NodeMaker& make)
{
    const NodeId value = make.call(*findFunction(series), {});
    const NodeId before = make.call(*findFunction("REF"), { value, make.number(1.0) });
    const NodeId ratio = make.call(operatorOf("/"), { value, before });
    return make.call(operatorOf("-"), { ratio, make.number(1.0) });
}

} // namespace

std::vector<NodeId> fullArguments(const Function& function, const std::vector<NodeId>& arguments,
                                  const NodeMaker& make)
{
    if (arguments.size() != 1 || &function != findFunction("BETA"))
        return arguments;
    return { moveOf("CLOSE", make), moveOf("INDEXC", make), arguments.front() };
}

} // namespace engine::language
