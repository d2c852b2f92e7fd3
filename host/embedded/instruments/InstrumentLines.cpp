// SPDX-License-Identifier: MIT
#include "host/embedded/instruments/InstrumentLines.h"

#include "host/embedded/InstrumentSetup.h"
#include "host/embedded/text/OneLine.h"

#include <algorithm>
#include <cmath>

namespace TC::embedded {

namespace {

enum class Cell { Unknown, Market, Code, Name, Kind, PriceTick, FloatingShares, TotalShares };

Cell cellOf(const QByteArray& heading)
{
    static const std::pair<const char*, Cell> headings[] = {
        { "market", Cell::Market },
        { "code", Cell::Code },
        { "name", Cell::Name },
        { "kind", Cell::Kind },
        { "price_tick", Cell::PriceTick },
        { "floating_shares", Cell::FloatingShares },
        { "流通股本", Cell::FloatingShares },
        { "total_shares", Cell::TotalShares },
        { "总股本", Cell::TotalShares },
    };
    for (const auto& [name, cell] : headings) {
        if (heading.trimmed() == name)
            return cell;
    }
    return Cell::Unknown;
}

/// A number from a cell. @return whether it is one that is finite and above 0.
bool takeNumber(const QByteArray& cell, double& number)
{
    bool isNumber = false;
    number = cell.toDouble(&isNumber);
    return isNumber && std::isfinite(number) && number > 0.0;
}

/// Puts what a cell says into an instrument. @return whether it makes sense.
bool take(Cell column, const QByteArray& cell, ttservice::CInstrumentDetail& instrument)
{
    double number = 0.0;
    switch (column) {
    case Cell::Name: instrument.name = cell.toStdString(); return true;
    case Cell::Kind: instrument.kind = cell.toStdString(); return true;
    case Cell::PriceTick:
        if (!takeNumber(cell, number))
            return false;
        instrument.priceTick = number;
        return true;
    case Cell::FloatingShares:
    case Cell::TotalShares:
        if (!takeNumber(cell, number))
            return false;
        instrument.figures[column == Cell::FloatingShares ? kFloatingSharesField : kTotalSharesField] =
            number;
        return true;
    case Cell::Market:
    case Cell::Code:
    case Cell::Unknown: break;
    }
    return true;
}

/// Reads the lines behind the first.
class LineReader
{
public:
    LineReader(const QByteArray& headings, const KnownInstrument& known)
        : m_known(known)
    {
        const QList<QByteArray> names = headings.split(',');
        for (const QByteArray& heading : names)
            m_columns.push_back(cellOf(heading));
        m_market = placeOf(Cell::Market);
        m_code = placeOf(Cell::Code);
    }

    bool isUsable() const { return m_market >= 0 && m_code >= 0; }

    /// @return empty, or what is wrong with the line.
    QString read(const QByteArray& line, Instruments& instruments) const
    {
        const QList<QByteArray> cells = line.split(',');
        const std::string market = cells.value(m_market).trimmed().toStdString(),
                          code = cells.value(m_code).trimmed().toStdString();
        if (market.empty() || code.empty())
            return QStringLiteral("an instrument has a market and a code");
        const ttservice::CInstrumentDetail* known = m_known ? m_known(market, code) : nullptr;
        ttservice::CInstrumentDetail instrument = known ? *known : ttservice::CInstrumentDetail();
        instrument.market = market;
        instrument.code = code;
        for (int place = 0; place < std::min<int>(cells.size(), static_cast<int>(m_columns.size()));
             ++place) {
            const QByteArray cell = cells[place].trimmed();
            if (!cell.isEmpty() && !take(m_columns[static_cast<std::size_t>(place)], cell, instrument))
                return QStringLiteral("\"%1\" is no number above 0").arg(QString::fromUtf8(cell));
        }
        instruments.push_back(std::move(instrument));
        return QString();
    }

private:
    int placeOf(Cell wanted) const
    {
        const auto found = std::find(m_columns.begin(), m_columns.end(), wanted);
        return found == m_columns.end() ? -1 : static_cast<int>(found - m_columns.begin());
    }

    const KnownInstrument& m_known;
    std::vector<Cell> m_columns;
    int m_market = -1, m_code = -1;
};

} // namespace

InstrumentLines readInstrumentLines(const QByteArray& utf8, const QString& fileName,
                                    const KnownInstrument& known)
{
    InstrumentLines read;
    const QList<QByteArray> lines = utf8.split('\n');
    const auto report = [&](int line, const QString& reason) {
        read.problems << oneLine(QStringLiteral("%1:%2: %3").arg(fileName).arg(line + 1).arg(reason));
    };
    const LineReader reader(lines.first(), known);
    if (!reader.isUsable()) {
        report(0, QStringLiteral("the first line names no columns market and code"));
        return read;
    }
    for (int line = 1; line < lines.size(); ++line) {
        const QByteArray text = lines[line].trimmed();
        const QString reason = text.isEmpty() ? QString() : reader.read(text, read.instruments);
        if (!reason.isEmpty())
            report(line, reason);
    }
    return read;
}

} // namespace TC::embedded
