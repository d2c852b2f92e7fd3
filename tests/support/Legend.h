// SPDX-License-Identifier: MIT
#pragma once
/// @file Formulas, instruments and texts for tests of legends.

#include "draw/CDrawStyle.h"
#include "host/WB/CSimpleText.h"
#include "host/embedded/EmbeddedHost.h"
#include "host/ttservice/CInstrumentDetail.h"
#include "tests/support/FormulaBuilder.h"
#include "tests/support/TestFont.h"
#include "title/CArrowColorSimpleText.h"

#include <QPixmap>
#include <QStringList>

#include <memory>

namespace test {

using Instrument = std::shared_ptr<ttservice::CInstrumentDetail>;
using Pieces = QList<QPair<int, TC::ArrowColorTextData>>;

inline Instrument instrument(const char* market, const char* code, const char* name, double tick)
{
    auto detail = std::make_shared<ttservice::CInstrumentDetail>();
    detail->market = market;
    detail->code = code;
    detail->name = name;
    detail->priceTick = tick;
    return detail;
}

/// Makes a formula known whose two names are the same.
inline void knowFormula(const QString& name, int kind = 0, const QVector<double>& params = {})
{
    TC::CFormulaDetail formula;
    formula.displayName = formula.realName = name;
    formula.kind = kind;
    formula.numberParams = params;
    TC::embedded::setFormula(formula);
}

/// "0 #ff0000 up \"text\"" for each piece.
inline QStringList describe(const Pieces& pieces)
{
    QStringList lines;
    for (const auto& piece : pieces) {
        const int arrow = piece.second.arrowType;
        lines << QStringLiteral("%1 %2 %3 \"")
                     .arg(piece.first)
                     .arg(piece.second.color.name(),
                          arrow == 1       ? QStringLiteral("up")
                              : arrow == 2 ? QStringLiteral("down")
                                           : QStringLiteral("-"))
                + piece.second.text + QLatin1Char('"');
    }
    return lines;
}

/// Texts of the pieces alone.
inline QStringList textsOf(const Pieces& pieces)
{
    QStringList texts;
    for (const auto& piece : pieces)
        texts << piece.second.text;
    return texts;
}

/// Width of a text in the tests' legend font.
inline int widthOf(const QString& text)
{
    return WB::CSimpleText::getSize(text, font(12)).width();
}

/// Arrows of a chosen size, so that positions can be told from widths.
inline void setArrows(const QSize& up, const QSize& down)
{
    QPixmap upArrow(up), downArrow(down);
    upArrow.fill(Qt::red);
    downArrow.fill(Qt::green);
    TC::embedded::setPixmap(QStringLiteral("ic_img_arrow_up"), upArrow);
    TC::embedded::setPixmap(QStringLiteral("ic_img_arrow_down"), downArrow);
}

} // namespace test
