// SPDX-License-Identifier: MIT
#include "engine/language/Formula.h"

#include "engine/language/Attributes.h"
#include "engine/language/Parser.h"
#include "engine/language/Syntax.h"

namespace engine {

Formula::Formula(language::Syntax&& syntax)
    : m_syntax(std::make_unique<const language::Syntax>(std::move(syntax)))
{
}

Formula::~Formula() = default;

const std::vector<Parameter>& Formula::parameters() const
{
    return m_syntax->parameters;
}

std::vector<std::string> Formula::outputNames() const
{
    std::vector<double> defaults;
    for (const Parameter& parameter : m_syntax->parameters)
        defaults.push_back(parameter.value);
    std::vector<std::string> names;
    for (const language::Output& output : m_syntax->outputs)
        names.push_back(output.name.empty() ? std::string() : language::shownName(output, defaults));
    return names;
}

int Formula::kind() const
{
    return m_syntax->kind.value_or(0);
}

FormulaReading readFormula(std::string_view utf8, const FormulaLookup& lookup)
{
    language::Problems problems;
    if (utf8.size() > FormulaLimits::kMaxBytes) {
        problems.add({}, {}, "公式超过 1 MB", "the formula is longer than a megabyte");
        return { nullptr, problems.sorted(), {} };
    }
    const std::vector<language::Token> tokens = language::tokenize(utf8, problems);
    language::Syntax syntax = language::parse(
        tokens, problems, lookup ? lookup : [](const std::string&) { return FoundFormula(); });
    if (!problems.empty())
        return { nullptr, problems.sorted(), problems.sortedHints() };
    return { std::make_shared<const Formula>(std::move(syntax)), {}, problems.sortedHints() };
}

const std::vector<KnownWord>& knownWords()
{
    using Kind = KnownWord::Kind;
    static const std::vector<KnownWord> words = [] {
        std::vector<KnownWord> list {
            { Kind::Keyword, "AND", "", "并且", "both hold" },
            { Kind::Keyword, "OR", "", "或者", "either holds" },
            { Kind::Keyword, "NOT", "", "不成立", "does not hold" },
            { Kind::Keyword, "PARAM", "", "声明参数：名字(缺省, 最小, 最大)",
              "declares parameters: NAME(default, least, greatest)" },
        };
        for (const language::Function& function : language::allFunctions()) {
            if (function.isOperator)
                continue;
            const Kind kind = function.drawing ? Kind::Drawing
                : function.maxArguments == 0   ? Kind::BarValue
                                               : Kind::Function;
            for (const char* name : { function.name, function.alias }) {
                if (*name)
                    list.push_back(
                        { kind, name, function.argumentNames, function.chinese, function.english });
            }
        }
        for (const language::Attribute& attribute : language::allAttributes())
            list.push_back({ Kind::Attribute, attribute.name, "", attribute.chinese, attribute.english });
        return list;
    }();
    return words;
}

} // namespace engine
