// SPDX-License-Identifier: MIT
#include "engine/language/OtherPeriod.h"

#include <sstream>

namespace engine::language {

namespace {

/// A row with what it points to.
struct OwnRow
{
    std::string name, signature;
    std::shared_ptr<const Formula> called; ///< alive, so that the name stays its own
    std::shared_ptr<const Formula> alone;  ///< with the one value as its output
    const Period* period;
    Function row;
};

KernelPointer kernelOf(const void* what)
{
    const auto* own = static_cast<const OwnRow*>(what);
    return otherPeriodKernel(own->alone, *own->period);
}

/// A name that no other value on another period has while the formula lives.
std::string uniqueName(const std::shared_ptr<const Formula>& formula, NodeId value, const Period& period)
{
    std::ostringstream name;
    name << formula.get() << '.' << value << '#' << period.name;
    return name.str();
}

std::shared_ptr<const Formula> withOneOutput(const Syntax& syntax, NodeId value)
{
    Syntax alone = syntax;
    Output output;
    output.columns = { value };
    alone.outputs = { output };
    return std::make_shared<const Formula>(std::move(alone));
}

} // namespace

std::shared_ptr<const Function> onPeriod(const std::shared_ptr<const Formula>& formula, NodeId value,
                                         const Period& period)
{
    const auto own = std::make_shared<OwnRow>();
    own->name = uniqueName(formula, value, period);
    own->signature.assign(formula->parameters().size(), 'c');
    own->row = FunctionRow(own->name.c_str()).takes("", own->signature.c_str()).looksAheadEndlessly();
    own->called = formula;
    own->alone = withOneOutput(formula->syntax(), value);
    own->period = &period;
    own->row.makeKernel = KernelMaker(kernelOf, own.get());
    return { own, &own->row };
}

} // namespace engine::language
