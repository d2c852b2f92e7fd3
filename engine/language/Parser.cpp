// SPDX-License-Identifier: MIT
#include "engine/language/Parser.h"

#include "engine/language/ExpressionParser.h"
#include "engine/language/OutputAttributes.h"
#include "engine/language/TokenReader.h"

namespace engine::language {

namespace {

/// Reads statements; expressions and attributes are read by their own classes.
class Parser
{
public:
    Parser(const std::vector<Token>& tokens, Problems& problems, const FormulaLookup& lookup)
        : m_reader(tokens, problems)
        , m_expressions(m_reader, m_scope, m_syntax, lookup)
    {
    }

    Syntax run()
    {
        while (!m_reader.atEnd() && !m_reader.isFull()) {
            m_reader.beginStatement();
            readStatement();
            m_reader.endStatement();
        }
        checkWhole();
        return std::move(m_syntax);
    }

private:
    void readStatement()
    {
        const Token& first = m_reader.current();
        if (first.is(";"))
            return;
        if (first.isWord("PARAM")) {
            readParameters();
            return;
        }
        if (first.kind == TokenKind::Name && readPane())
            return;
        if (first.kind == TokenKind::Name && m_reader.next().is(":="))
            readHidden();
        else if (first.kind == TokenKind::Name && (m_reader.next().is(":") || m_reader.next().is("#")))
            readNamedOutput();
        else
            readOutput({}, std::nullopt);
    }

    /// MAIN; SUB; or MAINCHART; alone.
    bool readPane()
    {
        const std::optional<Attribute> attribute = findAttribute(m_reader.current().key);
        if (!attribute || attribute->effect != Attribute::Effect::Pane || !m_reader.next().is(";"))
            return false;
        m_reader.take();
        m_syntax.kind = attribute->value;
        return true;
    }

    /// PARAM N(20, 1, 500), P(2, 0, 10);
    void readParameters()
    {
        do {
            m_reader.take();
            readParameter();
        } while (!m_reader.hasFailed() && m_reader.current().is(","));
    }

    void readParameter()
    {
        const Token name = m_reader.current();
        if (name.kind != TokenKind::Name) {
            m_reader.expected("参数名", "the name of a parameter");
            return;
        }
        m_reader.take();
        double numbers[3] = {};
        const char* before[] = { "(", ",", "," };
        for (int index = 0; index < 3; ++index) {
            if (!m_reader.expectSign(before[index]) || !readSignedNumber(numbers[index]))
                break;
        }
        if (!m_reader.hasFailed())
            m_reader.expectSign(")");
        if (!(numbers[1] <= numbers[0] && numbers[0] <= numbers[2]) && !m_reader.hasFailed())
            m_reader.report(name, "缺省值应在最小值和最大值之间",
                            "the default must lie between the least and the greatest value");
        if (!isFree(name))
            return;
        if (m_syntax.parameters.size() >= FormulaLimits::kMaxParameters) {
            m_reader.report(name, "参数太多", "too many parameters");
            return;
        }
        m_scope.addParameter(name.key, static_cast<int>(m_syntax.parameters.size()));
        m_syntax.parameters.push_back({ name.text, numbers[0], numbers[1], numbers[2] });
    }

    bool readSignedNumber(double& number)
    {
        const bool isNegative = m_reader.current().is("-");
        if (isNegative)
            m_reader.take();
        if (m_reader.current().kind != TokenKind::Number) {
            m_reader.expected("数字", "a number");
            return false;
        }
        number = isNegative ? -m_reader.current().number : m_reader.current().number;
        m_reader.take();
        return true;
    }

    /// Whether a name may be given to something; reports it when not.
    bool isFree(const Token& name)
    {
        switch (m_scope.placeOf(name.key)) {
        case Scope::Place::Reserved:
            m_reader.report(name, "这个名字由系统使用，请换一个", "the language itself uses this name");
            return false;
        case Scope::Place::Taken:
            m_reader.report(name, "这个名字已经用过", "this name is taken already");
            return false;
        case Scope::Place::Free: break;
        }
        return true;
    }

    /// NAME:=expression;
    void readHidden()
    {
        const Token name = m_reader.take();
        const bool isUsable = isFree(name);
        m_reader.take();
        const NodeId value = m_expressions.read();
        if (isUsable)
            m_scope.addValue(name.key, value);
        if (m_reader.current().is(",") && !m_reader.hasFailed())
            OutputAttributes::passOver(m_reader);
    }

    /// NAME:expression, NAME#N:expression
    void readNamedOutput()
    {
        const Token name = m_reader.take();
        std::optional<int> parameter;
        if (m_reader.current().is("#")) {
            m_reader.take();
            parameter = readNameParameter();
            if (m_reader.hasFailed() || !m_reader.expectSign(":"))
                return;
        } else {
            m_reader.take();
        }
        readOutput(name, parameter);
    }

    std::optional<int> readNameParameter()
    {
        if (m_reader.current().kind != TokenKind::Name) {
            m_reader.expected("参数名", "the name of a parameter");
            return std::nullopt;
        }
        const Token& name = m_reader.take();
        const std::optional<int> parameter = m_scope.parameter(name.key);
        if (!parameter)
            m_reader.report(name, "没有这个参数", "there is no such parameter");
        return parameter;
    }

    /// @param name  without a text for an output that has none.
    void readOutput(const Token& name, std::optional<int> nameParameter)
    {
        Output output;
        output.name = name.text;
        output.nameParameter = nameParameter;
        const Token start = m_reader.current();
        NodeId value = kBroken;
        std::vector<Output> outputs { output };
        if (m_expressions.atDrawing()) {
            outputs = m_expressions.readDrawing(output);
            value = m_reader.hasFailed() ? kBroken : kNoNumber;
        } else {
            value = m_expressions.read();
            outputs.front().columns = { value };
        }
        giveName(name, nameParameter, value);
        OutputAttributes attributes(m_reader, outputs.front(), m_syntax.kind);
        while (!m_reader.hasFailed() && m_reader.current().is(","))
            attributes.read();
        for (Output& other : outputs) { // one drawing, however many outputs it takes
            other.lineWidth = outputs.front().lineWidth;
            other.lineStyle = outputs.front().lineStyle;
        }
        if (outputs.front().hasSticks && value != kBroken)
            outputs.push_back(m_expressions.readSticks(outputs.front()));
        if (m_syntax.outputs.size() + outputs.size() > FormulaLimits::kMaxOutputs)
            m_reader.report(start, "输出太多", "too many outputs");
        else
            m_syntax.outputs.insert(m_syntax.outputs.end(), outputs.begin(), outputs.end());
    }

    /// Later statements may read the output by its name, unless the name is a series of the language's own.
    void giveName(const Token& name, const std::optional<int>& nameParameter, NodeId value)
    {
        if (name.text.empty())
            return;
        const std::string key = name.key + (nameParameter ? "#" + std::to_string(*nameParameter) : "");
        const Scope::Place place = m_scope.placeOf(key);
        if (place == Scope::Place::Taken || isKeyword(key))
            isFree(name);
        else if (place == Scope::Place::Free)
            m_scope.addValue(key, value);
    }

    /// What can be told only at the end.
    void checkWhole()
    {
        if (m_reader.hasReported())
            return;
        if (m_syntax.outputs.empty())
            m_reader.report(m_reader.current(), "公式没有输出", "the formula has no output");
        checkPlacements();
        for (std::size_t index = 0; index + 1 < m_syntax.outputs.size(); ++index) {
            if (m_syntax.outputs[index].drawType == se::DrawType::StackedVolume)
                m_reader.report(m_reader.current(), "STACKVOL 应是最后一个输出",
                                "STACKVOL must be the last output");
        }
    }

    /// The painters of texts and numbers read one placement for the whole formula.
    void checkPlacements()
    {
        std::optional<int> common;
        for (const Output& output : m_syntax.outputs) {
            if (!(output.drawType == se::DrawType::Text || output.drawType == se::DrawType::Number)
                || !output.position)
                continue;
            if (common && *common != *output.position)
                m_reader.report(m_reader.current(), "一个公式的文字和数字只能有同一个 ALIGN",
                                "the texts and numbers of a formula share one ALIGN");
            common = output.position;
        }
        const bool iconIsFirst =
            !m_syntax.outputs.empty() && m_syntax.outputs[0].drawType == se::DrawType::Icon;
        if (common && iconIsFirst && m_syntax.outputs[0].position.value_or(0) != *common)
            m_reader.report(m_reader.current(), "图标是第一个输出时，文字和数字的 ALIGN 要与它相同",
                            "texts and numbers share the ALIGN of an icon that is the first output");
    }

    TokenReader m_reader;
    Scope m_scope;
    Syntax m_syntax;
    ExpressionParser m_expressions;
};

} // namespace

Syntax parse(const std::vector<Token>& tokens, Problems& problems, const FormulaLookup& lookup)
{
    return Parser(tokens, problems, lookup).run();
}

} // namespace engine::language
