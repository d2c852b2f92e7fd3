// SPDX-License-Identifier: MIT
#include "host/embedded/reading/program/CellCollector.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace workbook {

using namespace TC::embedded;

CellCollector::Stretch CellCollector::keep(QStringView text)
{
    if (text.size() > kLongestText) {
        text = text.left(kLongestText);
        noteLoss();
    }
    const Stretch kept { static_cast<quint32>(m_texts.size()), static_cast<quint32>(text.size()) };
    if (m_texts.size() + text.size() > kMostCharacters) {
        refuse(Outcome::TooManyCells);
        return { 0, 0 };
    }
    m_texts.append(text.data(), static_cast<int>(text.size()));
    return kept;
}

void CellCollector::place(int row, int column, Stretch text)
{
    if (isRefused() || text.length == 0)
        return;
    if (m_cells.size() >= static_cast<std::size_t>(kMostCells))
        refuse(Outcome::TooManyCells);
    else
        m_cells.push_back({ row, column, text.from, text.length });
}

void CellCollector::setText(int row, int column, QStringView text)
{
    if (isRefused() || text.isEmpty())
        return;
    if (row < 0 || row >= kMostRows || column < 0 || column >= kMostColumns)
        noteLoss();
    else
        place(row, column, keep(text));
}

void CellCollector::setNumber(int row, int column, double number)
{
    constexpr double largestPlain = 1e15;
    if (!std::isfinite(number)) {
        noteLoss();
        return;
    }
    std::array<char, 32> digits;
    const bool isIntegral = std::abs(number) < largestPlain && number == std::trunc(number);
    char* const end = digits.data() + digits.size();
    const auto [to, error] = isIntegral
        ? std::to_chars(digits.data(), end, static_cast<qint64>(number))
        : std::to_chars(digits.data(), end, number, std::chars_format::general, 15);
    std::array<QChar, 32> text;
    const auto length = to - digits.data();
    std::transform(digits.data(), digits.data() + length, text.begin(),
                   [](char c) { return QLatin1Char(c); });
    setText(row, column, QStringView(text.data(), length));
}

void CellCollector::setBool(int row, int column, bool value)
{
    setText(row, column, value ? QStringView(u"TRUE") : QStringView(u"FALSE"));
}

void CellCollector::addShared(QStringView text)
{
    if (m_shared.size() >= static_cast<std::size_t>(kMostCells))
        refuse(Outcome::TooManyCells);
    if (!isRefused())
        m_shared.push_back(keep(text));
}

void CellCollector::setShared(int row, int column, std::size_t index)
{
    if (index >= m_shared.size() || row < 0 || row >= kMostRows || column < 0 || column >= kMostColumns)
        noteLoss();
    else
        place(row, column, m_shared[index]);
}

void CellCollector::refuse(Outcome reason)
{
    if (isRefused())
        return;
    m_refusal = reason;
    m_cells = {};
    m_shared = {};
    m_texts = QString();
}

Outcome CellCollector::outcome() const
{
    if (isRefused())
        return m_refusal;
    if (m_cells.empty())
        return m_isIncomplete ? Outcome::Damaged : Outcome::NoCells;
    return Outcome::Read;
}

} // namespace workbook
