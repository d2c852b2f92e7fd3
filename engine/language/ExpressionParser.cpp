// SPDX-License-Identifier: MIT
#include "engine/language/ExpressionParser.h"

#include "engine/language/Attributes.h"
#include "engine/language/ForeignWords.h"
#include "engine/language/OtherPeriod.h"
#include "engine/language/ShortCalls.h"

#include <algorithm>
#include <cmath>

namespace engine::language {

namespace {

enum Level { kOr = 1, kAnd, kNot, kComparison, kSum, kProduct, kSigned };

struct BinaryOperator
{
    Level level;
    const char* function;
};

std::optional<BinaryOperator> binaryOperator(const Token& token)
{
    struct Entry
    {
        const char* sign;
        BinaryOperator meaning;
    };
    static const Entry entries[] = {
        { "||", { kOr, "OR" } },       { "&&", { kAnd, "AND" } },       { ">", { kComparison, ">" } },
        { "<", { kComparison, "<" } }, { ">=", { kComparison, ">=" } }, { "<=", { kComparison, "<=" } },
        { "=", { kComparison, "=" } }, { "<>", { kComparison, "<>" } }, { "+", { kSum, "+" } },
        { "-", { kSum, "-" } },        { "*", { kProduct, "*" } },      { "/", { kProduct, "/" } },
    };
    if (token.isWord("OR"))
        return BinaryOperator { kOr, "OR" };
    if (token.isWord("AND"))
        return BinaryOperator { kAnd, "AND" };
    if (token.kind != TokenKind::Sign)
        return std::nullopt;
    for (const Entry& entry : entries) {
        if (token.text == entry.sign)
            return entry.meaning;
    }
    return std::nullopt;
}

/// Counts how deep the reader is for as long as it lives.
class DepthGuard
{
public:
    explicit DepthGuard(int& depth)
        : m_depth(++depth)
    {
    }
    ~DepthGuard() { --m_depth; }

private:
    int& m_depth;
};

} // namespace

NodeId ExpressionParser::read()
{
    const Token start = m_reader.current();
    const NodeId value = readLevel(kOr);
    if (value != kBroken && m_syntax[value].kind == Node::Kind::Text) {
        m_reader.report(start, "此处应为数值，不能是文字", "expected a number, not a text");
        return kBroken;
    }
    return value;
}

NodeId ExpressionParser::readLevel(int level)
{
    NodeId left = readPrefixed();
    bool wasCompared = false;
    while (!m_reader.hasFailed()) {
        const std::optional<BinaryOperator> found = binaryOperator(m_reader.current());
        if (!found || found->level < level)
            break;
        if (found->level == kComparison && wasCompared) {
            m_reader.expected("AND 或分号：比较不能连写", "AND or a semicolon: comparisons do not chain");
            break;
        }
        const Token sign = m_reader.take();
        const NodeId right = readLevel(found->level + 1);
        wasCompared = found->level == kComparison;
        for (const NodeId side : { left, right }) {
            if (side != kBroken && m_syntax[side].kind == Node::Kind::Text) {
                m_reader.report(sign, "文字不能参加运算", "texts take no part in calculations");
                left = kBroken;
            }
        }
        left = left == kBroken || right == kBroken ? kBroken
                                                   : callNode(operatorOf(found->function), { left, right });
    }
    return m_reader.hasFailed() ? kBroken : left;
}

/// A minus sign or NOT before an operand. NOT directly before a parenthesis takes what stands in it alone.
NodeId ExpressionParser::readPrefixed()
{
    const DepthGuard guard(m_depth);
    if (m_depth > FormulaLimits::kMaxDepth + 1) { // one for the operand inside
        m_reader.report(m_reader.current(), "嵌套太深", "nested too deeply");
        m_reader.fail();
        return kBroken;
    }
    const Token sign = m_reader.current();
    const bool isNot = sign.isWord("NOT") || sign.is("!");
    if (!isNot && !sign.is("-") && !sign.is("+"))
        return readPrimary();
    m_reader.take();
    const bool isCall = isNot && m_reader.current().is("(");
    const NodeId operand = readLevel(isNot && !isCall ? kComparison : kSigned);
    if (operand == kBroken)
        return kBroken;
    if (m_syntax[operand].kind == Node::Kind::Text) {
        m_reader.report(sign, "文字不能参加运算", "texts take no part in calculations");
        return kBroken;
    }
    if (sign.is("+"))
        return operand;
    return callNode(operatorOf(isNot ? "NOT" : "NEG"), { operand });
}

NodeId ExpressionParser::readPrimary()
{
    const Token& token = m_reader.current();
    if (token.kind == TokenKind::Number)
        return numberNode(m_reader.take().number);
    const std::size_t dot = token.kind == TokenKind::Quoted ? token.text.find('.') : std::string::npos;
    if (dot != std::string::npos && dot > 0) {
        const Token call = m_reader.take();
        return readFormulaCall(call, call.text.substr(0, dot), call.text.substr(dot + 1));
    }
    if (token.kind == TokenKind::Text || token.kind == TokenKind::Quoted) {
        if (token.kind == TokenKind::Quoted)
            m_reader.hint(token, "双引号里的文字，通常写单引号",
                          "a text in double quotes, single quotes are usual");
        Node node;
        node.kind = Node::Kind::Text;
        node.text = m_reader.take().text;
        return add(std::move(node));
    }
    if (token.kind == TokenKind::Name && !isKeyword(token.key))
        return readName();
    if (!token.is("(")) {
        m_reader.expected("数字、名字或括号", "a number, a name or a parenthesis");
        return kBroken;
    }
    m_reader.take();
    const NodeId inside = readLevel(kOr);
    if (!m_reader.hasFailed())
        m_reader.expectSign(")");
    return m_reader.hasFailed() ? kBroken : inside;
}

NodeId ExpressionParser::readName()
{
    const Token name = m_reader.take();
    if (m_reader.current().is("("))
        return readCall(name);
    if (m_reader.current().is(".") && m_reader.next().kind == TokenKind::Name) {
        m_reader.take();
        return readFormulaCall(name, name.text, m_reader.take().text);
    }
    const Function* function = findFunction(name.key);
    if (function && function->maxArguments == 0)
        return callNode(*function, {});
    if (const std::optional<int> parameter = m_scope.parameter(name.key)) {
        Node node;
        node.kind = Node::Kind::Parameter;
        node.parameter = *parameter;
        return add(std::move(node));
    }
    if (const std::optional<NodeId> value = m_scope.value(name.key)) {
        if (*value == kNoNumber)
            m_reader.report(name, "绘图没有数值", "a drawing has no value");
        return std::max(*value, kBroken);
    }
    const std::optional<Attribute> attribute = findAttribute(name.key);
    if (attribute && attribute->effect == Attribute::Effect::Color)
        return numberNode(attribute->value);
    if (function) {
        m_reader.report(name, std::string("此处应为 ") + function->name + "(" + function->argumentNames + ")",
                        std::string("expected ") + function->name + "(" + function->argumentNames + ")");
        return kBroken;
    }
    if (reportForeign(name))
        return kBroken;
    const std::string nearest = m_scope.nearest(name.key, false);
    m_reader.report(name, "没有这个名字" + (nearest.empty() ? "" : "，是不是 " + nearest),
                    "unknown name" + (nearest.empty() ? "" : ", did you mean " + nearest));
    return kBroken;
}

/// An output of another formula, with parameters in parentheses behind it or with the formula's own.
NodeId ExpressionParser::readFormulaCall(const Token& place, const std::string& formula,
                                         const std::string& output)
{
    std::vector<Token> starts;
    std::vector<NodeId> given;
    if (m_reader.current().is("("))
        given = readArguments(starts);
    if (m_reader.hasFailed())
        return kBroken;
    const FoundFormula found = m_lookup(formula);
    if (!found.formula) {
        m_reader.report(place, found.chinese.empty() ? "没有公式 " + formula : found.chinese,
                        found.english.empty() ? "unknown formula " + formula : found.english);
        return kBroken;
    }
    const Syntax& called = found.formula->syntax();
    const std::vector<std::string> names = found.formula->outputNames();
    const std::string value = output.substr(0, output.find('#'));
    const auto name = std::find_if(names.begin(), names.end(), [&](const std::string& known) {
        return !known.empty() && inCapitals(known) == inCapitals(value);
    });
    const std::size_t index = static_cast<std::size_t>(name - names.begin());
    if (name == names.end() || called.outputs[index].isDrawing) {
        m_reader.report(place, "公式 " + formula + " 没有输出值 " + value,
                        "the formula " + formula + " has no value " + value);
        return kBroken;
    }
    const std::vector<NodeId> parameters = formulaParameters(called, given, starts);
    const bool isSound = parameters.size() == called.parameters.size()
        && std::count(parameters.begin(), parameters.end(), kBroken) == 0;
    if (!isSound)
        return kBroken;
    const NodeId node = called.outputs[index].columns.front();
    if (value != output)
        return onOtherPeriod(place, found.formula, node, parameters);
    if (!takeStepsElsewhere(place, called.stepsElsewhere))
        return kBroken;
    if (!called.held.empty())
        m_syntax.held.push_back(found.formula);
    return inlined(called, node, parameters);
}

/// A value of another formula on longer bars, whose period stands behind the # of the call.
NodeId ExpressionParser::onOtherPeriod(const Token& place, const std::shared_ptr<const Formula>& formula,
                                       NodeId value, const std::vector<NodeId>& parameters)
{
    const Period* period = findPeriod(inCapitals(place.text.substr(place.text.rfind('#') + 1)));
    if (!period) {
        m_reader.report(
            place, "没有这个周期，应为 MIN5 MIN15 MIN30 MIN60 DAY WEEK MONTH QUARTER YEAR",
            "unknown period, expected MIN5, MIN15, MIN30, MIN60, DAY, WEEK, MONTH, QUARTER or YEAR");
        return kBroken;
    }
    if (!formula->syntax().held.empty()) {
        m_reader.report(place, "所调用的公式自己也用了别的周期",
                        "the formula that is called uses another period itself");
        return kBroken;
    }
    if (!takeStepsElsewhere(place, formula->syntax().nodes.size()))
        return kBroken;
    m_reader.hint(place, "每根 K 线取所在整个周期的值，含未来数据",
                  "every bar has the value of its whole period: looks into the future");
    const std::shared_ptr<const Function> function = onPeriod(formula, value, *period);
    m_syntax.held.push_back(function);
    return callNode(*function, parameters);
}

/// Whether the formulas on other periods may have so many steps more; reports it when not.
bool ExpressionParser::takeStepsElsewhere(const Token& place, std::size_t steps)
{
    m_syntax.stepsElsewhere += steps;
    if (m_syntax.stepsElsewhere <= FormulaLimits::kMaxSteps)
        return true;
    m_reader.report(place, "公式太长", "the formula is too long");
    m_reader.fail();
    return false;
}

/// One number for each parameter of a formula that is called, within its range; fewer after a fault.
std::vector<NodeId> ExpressionParser::formulaParameters(const Syntax& called,
                                                        const std::vector<NodeId>& given,
                                                        const std::vector<Token>& starts)
{
    if (given.size() > called.parameters.size()) {
        m_reader.report(starts[called.parameters.size()], "多余的参数",
                        "an argument too many for the formula");
        return {};
    }
    std::vector<NodeId> parameters;
    for (std::size_t index = 0; index < called.parameters.size(); ++index) {
        const Parameter& parameter = called.parameters[index];
        if (index >= given.size()) {
            parameters.push_back(numberNode(parameter.value));
            continue;
        }
        const bool isNumber = given[index] != kBroken && m_syntax[given[index]].isConstant
            && m_syntax[given[index]].kind != Node::Kind::Text;
        if (!isNumber) {
            if (given[index] != kBroken)
                m_reader.report(starts[index], "此处应为数字或参数，不能随 K 线变化",
                                "expected a number or a parameter, which does not change from bar to bar");
            return {};
        }
        const NodeId least = callNode(*findFunction("MAX"), { given[index], numberNode(parameter.min) });
        parameters.push_back(callNode(*findFunction("MIN"), { least, numberNode(parameter.max) }));
    }
    return parameters;
}

/// A value of another formula, with all that it rests on, as a part of this one.
NodeId ExpressionParser::inlined(const Syntax& called, NodeId value, const std::vector<NodeId>& parameters)
{
    std::vector<bool> isNeeded(called.nodes.size());
    isNeeded[static_cast<std::size_t>(value)] = true;
    for (std::size_t node = called.nodes.size(); node-- > 0;) {
        for (const NodeId argument : called.nodes[node].arguments)
            isNeeded[static_cast<std::size_t>(argument)] =
                isNeeded[static_cast<std::size_t>(argument)] || isNeeded[node];
    }
    std::vector<NodeId> copies(called.nodes.size(), kBroken);
    for (std::size_t node = 0; node < called.nodes.size() && !m_reader.hasFailed(); ++node) {
        if (!isNeeded[node])
            continue;
        Node copy = called.nodes[node];
        for (NodeId& argument : copy.arguments)
            argument = copies[static_cast<std::size_t>(argument)];
        copies[node] = copy.kind == Node::Kind::Parameter
            ? parameters[static_cast<std::size_t>(copy.parameter)]
            : add(std::move(copy));
    }
    return m_reader.hasFailed() ? kBroken : copies[static_cast<std::size_t>(value)];
}

NodeId ExpressionParser::readCall(const Token& name)
{
    std::vector<Token> starts;
    std::vector<NodeId> arguments = readArguments(starts);
    if (m_reader.hasFailed())
        return kBroken;
    if (name.key == "RGB")
        return colorNode(name, arguments);
    const Function* function = findFunction(name.key);
    if (!function) {
        if (reportForeign(name))
            return kBroken;
        const std::string nearest = m_scope.nearest(name.key, true);
        m_reader.report(name, "没有这个函数" + (nearest.empty() ? "" : "，是不是 " + nearest),
                        "unknown function" + (nearest.empty() ? "" : ", did you mean " + nearest));
        return kBroken;
    }
    if (function->drawing) {
        m_reader.report(name, "绘图函数只能单独成句", "a drawing stands in a statement of its own");
        return kBroken;
    }
    arguments = fullArguments(*function, arguments, nodeMaker());
    if (starts.size() == 1)
        starts.resize(arguments.size(), starts.front());
    return fits(name, *function, arguments, starts) ? callNode(*function, arguments) : kBroken;
}

/// RGB(r,g,b) of written numbers is a packed colour.
NodeId ExpressionParser::colorNode(const Token& name, const std::vector<NodeId>& parts)
{
    if (std::count(parts.begin(), parts.end(), kBroken) > 0)
        return kBroken;
    int packed = 0;
    for (std::size_t part = 0; part < parts.size() && parts.size() == 3; ++part) {
        const std::optional<double> number = writtenNumber(parts[part]);
        if (!number || !(*number >= 0.0 && *number <= 255.0)) {
            m_reader.report(name, "RGB 的各部分应为 0 至 255 的数字",
                            "the parts of RGB are numbers from 0 to 255");
            return kBroken;
        }
        packed |= static_cast<int>(*number) << (8 * part);
    }
    if (parts.size() == 3)
        return numberNode(packed);
    m_reader.report(name, "参数个数不对，应为 RGB(r,g,b)", "wrong number of arguments, expected RGB(r,g,b)");
    return kBroken;
}

std::vector<NodeId> ExpressionParser::readArguments(std::vector<Token>& starts)
{
    std::vector<NodeId> arguments;
    m_reader.take();
    if (m_reader.current().is(")")) {
        m_reader.take();
        return arguments;
    }
    while (true) {
        starts.push_back(m_reader.current());
        arguments.push_back(readLevel(kOr));
        if (m_reader.hasFailed())
            return arguments;
        if (!m_reader.current().is(","))
            break;
        m_reader.take();
    }
    if (m_reader.current().is(")"))
        m_reader.take();
    else
        m_reader.expected("运算符、逗号或右括号", "an operator, a comma or a closing parenthesis");
    return arguments;
}

/// Whether a call has as many arguments as the function takes, each of its kind.
bool ExpressionParser::fits(const Token& name, const Function& function, const std::vector<NodeId>& arguments,
                            const std::vector<Token>& starts)
{
    if (!isNumberOfArgumentsRight(name, function, starts))
        return false;
    const std::string signature = function.signature;
    bool isFit = true;
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        if (arguments[index] == kBroken) {
            isFit = false;
            continue;
        }
        const char kind = signature[std::min(index, signature.size() - 1)];
        const Node& argument = m_syntax[arguments[index]];
        const bool isText = argument.kind == Node::Kind::Text;
        if (isText != (kind == 't')) {
            m_reader.report(starts[index], isText ? "此处应为数值，不能是文字" : "此处应为单引号里的文字",
                            isText ? "expected a number, not a text" : "expected a text in single quotes");
            isFit = false;
        } else if (kind == 'c' && !argument.isConstant) {
            m_reader.report(starts[index], "此处应为数字或参数，不能随 K 线变化",
                            "expected a number or a parameter, which does not change from bar to bar");
            isFit = false;
        }
    }
    if (isFit) {
        hintAtOrder(function, arguments, starts);
        hintAtWindow(function, arguments, starts);
    }
    return isFit;
}

bool ExpressionParser::isNumberOfArgumentsRight(const Token& name, const Function& function,
                                                const std::vector<Token>& starts)
{
    const auto given = static_cast<int>(starts.size());
    const std::string form = std::string(function.name)
        + (function.maxArguments == 0 ? "" : std::string("(") + function.argumentNames + ")");
    if (given > function.maxArguments)
        m_reader.report(starts[static_cast<std::size_t>(function.maxArguments)], "多余的参数，应为 " + form,
                        "an argument too many, expected " + form);
    else if (given < function.minArguments)
        m_reader.report(name, "参数个数不对，应为 " + form, "wrong number of arguments, expected " + form);
    return given >= function.minArguments && given <= function.maxArguments;
}

/// Arguments that are series of the bars and named like other arguments of the function, and a condition at
/// the place of a value.
void ExpressionParser::hintAtOrder(const Function& function, const std::vector<NodeId>& arguments,
                                   const std::vector<Token>& starts)
{
    // With colours PARTLINE takes the price first.
    const bool isPriceFirst =
        function.isBuilt && function.argumentNames == std::string("COND,PRICE") && arguments.size() > 2;
    const std::string form = isPriceFirst ? "PRICE,COND,COLOR,..." : function.argumentNames;
    const std::string names = "," + form + ",";
    if (isConditionMisplaced(names, arguments) || areSeriesInOtherOrder(names, arguments))
        m_reader.hint(starts.front(), "参数的次序是 " + form, "the order of the arguments is " + form);
}

/// @param names  of the arguments, with commas around each.
bool ExpressionParser::areSeriesInOtherOrder(const std::string& names,
                                             const std::vector<NodeId>& arguments) const
{
    std::string given = ",";
    for (const NodeId argument : arguments) {
        const Node& node = m_syntax[argument];
        if (!isBarSeries(node)
            || names.find(std::string(",") + node.function->name + ",") == std::string::npos)
            return false;
        given += std::string(node.function->name) + ",";
    }
    return !arguments.empty() && given != names;
}

/// Whether a series of the bars stands where a condition is expected, as the first or second argument, and a
/// condition elsewhere.
bool ExpressionParser::isConditionMisplaced(const std::string& names,
                                            const std::vector<NodeId>& arguments) const
{
    const auto isLogical = [&](NodeId argument) {
        const Node& node = m_syntax[argument];
        return node.kind == Node::Kind::Call && node.function->isLogical;
    };
    const bool isSecond = names.find(",PRICE,COND,") == 0;
    if (arguments.size() < 2 || (!isSecond && names.find(",COND,") != 0))
        return false;
    const NodeId condition = arguments[isSecond];
    return isBarSeries(m_syntax[condition]) && !isLogical(condition)
        && std::any_of(arguments.begin(), arguments.end(), isLogical);
}

bool ExpressionParser::isBarSeries(const Node& node)
{
    return node.kind == Node::Kind::Call && node.function->maxArguments == 0;
}

void ExpressionParser::hintAtWindow(const Function& function, const std::vector<NodeId>& arguments,
                                    const std::vector<Token>& starts)
{
    if (!function.windowArgument || *function.windowArgument >= arguments.size())
        return;
    const std::optional<double> bars = writtenNumber(arguments[*function.windowArgument]);
    if (bars && std::trunc(*bars) < function.leastWindow)
        m_reader.hint(starts[*function.windowArgument], "这么多根 K 线没有结果",
                      "there is no answer for this number of bars");
}

/// A number as it stands in the text, with its sign.
std::optional<double> ExpressionParser::writtenNumber(NodeId id) const
{
    if (id == kBroken)
        return std::nullopt;
    const Node& node = m_syntax[id];
    if (node.kind == Node::Kind::Number)
        return node.number;
    if (node.kind != Node::Kind::Call || node.function != &operatorOf("NEG"))
        return std::nullopt;
    const Node& inside = m_syntax[node.arguments.front()];
    return inside.kind == Node::Kind::Number ? std::optional<double>(-inside.number) : std::nullopt;
}

/// Says why a word that is known elsewhere is none here.
bool ExpressionParser::reportForeign(const Token& name)
{
    const ForeignWord* word = findForeignWord(name.key);
    if (word)
        m_reader.report(name, word->chinese, word->english);
    return word != nullptr;
}

bool ExpressionParser::atDrawing() const
{
    if (m_reader.current().kind != TokenKind::Name || !m_reader.next().is("("))
        return false;
    const Function* function = findFunction(m_reader.current().key);
    return function && function->drawing.has_value();
}

std::vector<Output> ExpressionParser::readDrawing(const Output& named)
{
    const Token name = m_reader.take();
    const Function& function = *findFunction(name.key);
    std::vector<Token> starts;
    const std::vector<NodeId> arguments = readArguments(starts);
    Output output = named;
    if (m_reader.hasFailed() || !fits(name, function, arguments, starts))
        return { output };
    output.isDrawing = true;
    output.drawType = *function.drawing;
    if (function.makeKernel) {
        output.columns = { callNode(function, arguments) };
        output.isHiddenInLegend = named.name.empty(); // a value that nobody has named is no news
        return { output };
    }
    const std::string order = function.columnOrder;
    for (std::size_t column = 0; column < arguments.size(); ++column) {
        const std::size_t index = order.empty() ? column : static_cast<std::size_t>(order[column] - '0');
        const Node& argument = m_syntax[arguments[index]];
        if (argument.kind == Node::Kind::Text) {
            output.text = argument.text;
            continue;
        }
        output.columns.push_back(arguments[index]);
        output.columnNames.push_back(starts[index].text);
    }
    if (!function.isBuilt)
        return { output };
    std::vector<Output> built = builtOutputs(function, output, output.columns, nodeMaker());
    if (!built.empty())
        return built;
    m_reader.report(name,
                    std::string("应为 ") + function.name + "(" + function.argumentNames
                        + ")，颜色写成 RGB(r,g,b) 或 COLORRED",
                    std::string("expected ") + function.name + "(" + function.argumentNames
                        + ") with colours such as RGB(r,g,b) or COLORRED");
    return { output };
}

Output ExpressionParser::readSticks(const Output& output)
{
    return sticksOf(output, nodeMaker());
}

NodeMaker ExpressionParser::nodeMaker()
{
    return { [this](double number) { return numberNode(number); },
             [this](const Function& function, const std::vector<NodeId>& arguments) {
                 return callNode(function, arguments);
             },
             [this](NodeId node) { return writtenNumber(node); } };
}

NodeId ExpressionParser::numberNode(double number)
{
    Node node;
    node.number = number;
    return add(std::move(node));
}

NodeId ExpressionParser::callNode(const Function& function, const std::vector<NodeId>& arguments)
{
    if (std::count(arguments.begin(), arguments.end(), kBroken) > 0)
        return kBroken;
    Node node;
    node.kind = Node::Kind::Call;
    node.function = &function;
    node.arguments = arguments;
    node.isConstant = function.isElementwise && !arguments.empty()
        && std::all_of(arguments.begin(), arguments.end(),
                       [&](NodeId argument) { return m_syntax[argument].isConstant; });
    return add(std::move(node));
}

NodeId ExpressionParser::add(Node node)
{
    if (m_syntax.nodes.size() >= FormulaLimits::kMaxSteps) {
        m_reader.report(m_reader.current(), "公式太长", "the formula is too long");
        m_reader.fail();
        return kBroken;
    }
    m_syntax.nodes.push_back(std::move(node));
    return static_cast<NodeId>(m_syntax.nodes.size()) - 1;
}

} // namespace engine::language
