// SPDX-License-Identifier: MIT
#pragma once
/// @file One formula as the formula manager knows it.

#include <QString>
#include <QStringList>
#include <QVector>

namespace TC {

/// Record of a formula.
struct CFormulaDetail
{
    QString displayName;          ///< first name: what users see
    QString realName;             ///< second name: what the engine knows it by
    int kind = 0;                 ///< 2: main-chart formula
    QVector<double> numberParams; ///< in the formula's order
    QStringList stringParams;     ///< shown behind the numbers
    bool groupModel = false;      ///< a group model
    bool script = false;          ///< a script indicator
};

} // namespace TC
