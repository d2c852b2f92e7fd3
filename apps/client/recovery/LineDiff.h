// SPDX-License-Identifier: MIT
#pragma once
/// @file What differs between two texts, line by line.

#include <QString>
#include <QStringList>

#include <vector>

namespace client {

struct DiffLine
{
    enum Kind {
        Same,    ///< stands in both texts
        Removed, ///< stands in the first text only
        Added,   ///< stands in the second text only
        Gap      ///< lines that stand in both are left out here; `text` is empty
    };
    Kind kind = Same;
    QString text;

    friend bool operator==(const DiffLine& a, const DiffLine& b)
    {
        return a.kind == b.kind && a.text == b.text;
    }
};

/// A shortest way from the first text to the second. Where the differing part is very long (over four million
/// pairs of lines), all its lines are removed and added.
std::vector<DiffLine> lineDiff(const QStringList& before, const QStringList& after);

/// Leaves out the lines that stand further than `context` lines from every difference. Empty without one.
std::vector<DiffLine> aroundChanges(const std::vector<DiffLine>& lines, int context);

} // namespace client
