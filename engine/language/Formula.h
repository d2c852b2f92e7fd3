// SPDX-License-Identifier: MIT
#pragma once
/// @file Formulas as texts.
///
/// docs/formulas.md describes the language.

#include "engine/EngineExport.h"
#include "engine/language/Problem.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace engine {

namespace language {
struct Syntax;
}

/// One number that a formula takes.
struct Parameter
{
    std::string name;   ///< as the text writes it
    double value = 0.0; ///< default
    double min = 0.0;   ///< inclusive; smaller values are moved to it
    double max = 0.0;   ///< inclusive; larger values are moved to it
};

/// Limits that keep a hostile text from taking memory or time.
struct FormulaLimits
{
    static constexpr std::size_t kMaxBytes = 1 << 20; ///< of a text
    static constexpr int kMaxDepth = 200;             ///< parentheses, calls and signs inside one another
    static constexpr int kMaxOutputs = 100;           ///< of a formula
    static constexpr int kMaxParameters = 32;         ///< of a formula
    static constexpr int kMaxSteps = 20'000;          ///< operations and functions, equal ones counted again
    static constexpr std::size_t kMaxNumbers = 1 << 29;   ///< bars times columns that stand at once: 4 GiB
    static constexpr std::size_t kMaxTextBytes = 1 << 28; ///< of texts at all bars of the records: 256 MiB
};

/// A formula whose text is free of faults. Unchangeable; may be read from any thread.
class ENGINE_EXPORT Formula
{
public:
    /// For the reader of texts; see readFormula.
    explicit Formula(language::Syntax&& syntax);
    ~Formula();

    /// In the order of their declaration.
    const std::vector<Parameter>& parameters() const;

    /// Names of the outputs with every parameter at its default; empty for an output without a name.
    std::vector<std::string> outputNames() const;

    /// Where the formula is drawn: 2 the main chart itself, 1 over it, 0 in a pane of its own, which is also
    /// the answer when the text does not say.
    int kind() const;

    /// For the computation.
    const language::Syntax& syntax() const { return *m_syntax; }

private:
    std::unique_ptr<const language::Syntax> m_syntax;
};

/// What came of reading a text: a formula, or at least one problem; and hints either way.
struct FormulaReading
{
    std::shared_ptr<const Formula> formula; ///< null when there are problems
    std::vector<Problem> problems;          ///< all of them, in the order of the text; at most 200
    /// What is read although it is written in another way here, or may mean something else elsewhere; in the
    /// order of the text, at most 200.
    std::vector<Problem> hints;
};

/// What stands behind a name by which one formula calls another.
struct FoundFormula
{
    std::shared_ptr<const Formula> formula; ///< null: there is none
    std::string chinese;                    ///< why there is none; empty when the name is simply not known
    std::string english;                    ///< the same in English
};

/// Finds the formula of a name, in whatever case it is written.
using FormulaLookup = std::function<FoundFormula(const std::string& name)>;

/// Reads a text. Any bytes may be given. Any thread.
/// @param lookup  finds the formulas that the text calls; an empty one knows none. engine/Formulas.h has a
///        reading that finds the built-in ones.
ENGINE_EXPORT FormulaReading readFormula(std::string_view utf8, const FormulaLookup& lookup);

/// A word that the language knows, for completion, colouring and the reference.
struct KnownWord
{
    /// What a word is.
    enum class Kind { BarValue, Function, Drawing, Attribute, Keyword };

    Kind kind = Kind::Function; ///< what the word is
    std::string name;           ///< as a formula writes it
    std::string arguments;      ///< "X,N"; empty when there are none
    std::string chinese;        ///< what it does, one line
    std::string english;        ///< the same in English
};

/// Every word that the language knows.
ENGINE_EXPORT const std::vector<KnownWord>& knownWords();

} // namespace engine
