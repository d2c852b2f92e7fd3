// SPDX-License-Identifier: MIT
#pragma once
/// @file Formulas that the embedded formula manager knows: the engine's built-in ones, and the user's own
/// from the file "configFormula" of TC::getUserRootDir() (see docs/configFormula.md; at most
/// 16 MiB), read on first use.

#include "host/HostExport.h"
#include "host/TC/CFormulaDetail.h"
#include "host/se/RPCFormulaMetaResult.h"

#include <QColor>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace engine {
class Formula; // engine/language/Formula.h
}

namespace TC::embedded {

/// How a formula is computed: a text, or a built-in one, with parameters and colours of its own.
struct FormulaRecipe
{
    std::shared_ptr<const engine::Formula> formula; ///< never null
    QString base;               ///< name of the built-in formula; empty for a text of the user's own
    QVector<double> parameters; ///< in the formula's order; missing ones take their defaults
    QVector<QColor> colors;     ///< by output; an invalid colour leaves the formula's own
};

/// Adds a formula, or replaces the one of the same display name. It is computable when its real name is that
/// of a built-in formula, with its number parameters.
INDICATORHOST_EXPORT void setFormula(const CFormulaDetail& formula);

/// Adds a formula that is a text, with its default parameters, or replaces the one of the same display name.
INDICATORHOST_EXPORT void setTextFormula(const QString& displayName,
                                         const std::shared_ptr<const engine::Formula>& formula);

/// Display names of all formulas: the built-in ones, then those that were set and the user's own.
INDICATORHOST_EXPORT QStringList formulaNames();

/// Forgets every formula, the built-in ones too, until restoreFormulas().
INDICATORHOST_EXPORT void clearFormulas();

/// Returns to the built-in formulas and the user's own, which the next look-up reads.
INDICATORHOST_EXPORT void restoreFormulas();

/// Reads the user's formulas anew. Those of the last reading are replaced, unless the file cannot be read or
/// is no JSON at all: then they stay. A file that does not exist holds no formulas. An entry that is wrong is
/// left out, and the others are used.
/// @return one line "FILE:LINE:COLUMN: reason" for each thing that is wrong; empty when all is well.
INDICATORHOST_EXPORT QStringList loadFormulas();

/// How to compute the formula of a display name, or else of a real name; nothing when it is unknown or
/// nothing computes it.
INDICATORHOST_EXPORT std::optional<FormulaRecipe> resolveFormula(const QString& name);

/// Puts a recipe's colours into the description of its outputs; surplus colours are ignored.
INDICATORHOST_EXPORT void applyColors(const FormulaRecipe& recipe, se::RPCFormulaMetaResult& meta);

/// Takes the arguments of se::loadConfig.
using ReloadReceiver =
    std::function<void(const std::string& folder, const std::string& file, const std::string& section)>;

/// Called at the end of every se::loadConfig, with its arguments; an empty function, the default, is not.
INDICATORHOST_EXPORT void setReloadReceiver(ReloadReceiver receiver);

} // namespace TC::embedded
