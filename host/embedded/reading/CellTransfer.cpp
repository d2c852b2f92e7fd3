// SPDX-License-Identifier: MIT
#include "host/embedded/reading/CellTransfer.h"

#include <QIODevice>

#include <algorithm>
#include <cstring>

namespace TC::embedded {

namespace {

struct Header
{
    char magic[8];
    quint32 outcome, mayBeIncomplete;
    quint32 cellCount, textLength;
};

constexpr char kMagic[sizeof Header::magic] = { 'c', 'e', 'l', 'l', 's', '0', '0', '1' };

using Cell = SheetCells::Cell;
static_assert(sizeof(Cell) == 16, "cells travel without gaps");

bool writeAll(QIODevice& to, const void* data, std::size_t size)
{
    const auto length = static_cast<qint64>(size);
    return to.write(static_cast<const char*>(data), length) == length;
}

Header headerOf(const QByteArray& bytes)
{
    Header header;
    std::memcpy(&header, bytes.constData(), sizeof header);
    return header;
}

bool isSound(const Cell& cell, quint32 textLength)
{
    return cell.row >= 0 && cell.row < kMostRows && cell.column >= 0 && cell.column < kMostColumns
        && cell.length <= textLength && cell.from <= textLength - cell.length;
}

} // namespace

bool sendCells(QIODevice& to, WorkbookOutcome outcome, bool mayBeIncomplete, const std::vector<Cell>& cells,
               const QString& texts)
{
    Header header {};
    std::memcpy(header.magic, kMagic, sizeof kMagic);
    header.outcome = static_cast<quint32>(outcome);
    header.mayBeIncomplete = mayBeIncomplete;
    header.cellCount = static_cast<quint32>(cells.size());
    header.textLength = static_cast<quint32>(texts.size());
    return writeAll(to, &header, sizeof header) && writeAll(to, cells.data(), cells.size() * sizeof(Cell))
        && writeAll(to, texts.constData(), header.textLength * sizeof(QChar));
}

qint64 answerSize(const QByteArray& bytes)
{
    if (bytes.size() < static_cast<int>(sizeof(Header)))
        return 0;
    const Header header = headerOf(bytes);
    if (std::memcmp(header.magic, kMagic, sizeof kMagic) != 0 || header.cellCount > kMostCells
        || header.textLength > kMostCharacters
        || header.outcome > static_cast<quint32>(WorkbookOutcome::ProgramNotStarted))
        return -1;
    return qint64 { sizeof(Header) } + header.cellCount * qint64 { sizeof(Cell) }
    + header.textLength * qint64 { sizeof(QChar) };
}

bool takeAnswer(const QByteArray& bytes, WorkbookReport& report, SheetCells& cells)
{
    if (answerSize(bytes) <= 0 || answerSize(bytes) != bytes.size())
        return false;
    const Header header = headerOf(bytes);
    const char* const cellBytes = bytes.constData() + sizeof header;
    std::vector<Cell> found(header.cellCount);
    if (header.cellCount > 0)
        std::memcpy(found.data(), cellBytes, found.size() * sizeof(Cell));
    if (!std::all_of(found.begin(), found.end(),
                     [&](const Cell& cell) { return isSound(cell, header.textLength); }))
        return false;
    QString texts(static_cast<int>(header.textLength), Qt::Uninitialized);
    std::memcpy(texts.data(), cellBytes + found.size() * sizeof(Cell), header.textLength * sizeof(QChar));
    cells = SheetCells(std::move(found), std::move(texts));
    report = { static_cast<WorkbookOutcome>(header.outcome), header.mayBeIncomplete != 0, QString() };
    return true;
}

} // namespace TC::embedded
