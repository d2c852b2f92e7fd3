// SPDX-License-Identifier: MIT
#include "host/embedded/InstrumentSetup.h"
#include "host/embedded/instruments/InstrumentLines.h"
#include "host/embedded/instruments/InstrumentStore.h"

#include <QFile>

#include <cmath>

namespace TC::embedded {

namespace {

/// A number from 0 to 1 that depends on the text alone.
double fractionOf(const std::string& text)
{
    std::uint64_t hash = 14695981039346656037u;
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211u;
    hash ^= hash >> 29; // neighbouring codes differ in the last characters only
    hash *= 0xbf58476d1ce4e5b9u;
    hash ^= hash >> 32;
    return static_cast<double>(hash % 1'000'003u) / 1'000'002.0;
}

/// Figures 3015 and 3016 of a stock: synthetic, see InstrumentSetup.h.
std::map<int, double> syntheticFigures(const ttservice::CInstrumentDetail& instrument)
{
    const std::string key = instrument.market + instrument.code;
    const double total = std::round(2e9 * std::pow(250.0, fractionOf(key + "/total")));
    const double share = 0.3 + 0.7 * fractionOf(key + "/free float");
    return { { kTotalMarketValueField, total }, { kFreeFloatValueField, std::round(total * share) } };
}

} // namespace

Instruments listedInstruments()
{
    QFile file(QStringLiteral(":/instruments.csv"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    Instruments instruments = readInstrumentLines(file.readAll(), file.fileName(), {}).instruments;
    for (ttservice::CInstrumentDetail& instrument : instruments) {
        if (instrument.kind == "stock")
            instrument.figures.merge(syntheticFigures(instrument));
    }
    return instruments;
}

bool isSyntheticFigure(const ttservice::CInstrumentDetail& instrument, int field)
{
    const auto figure = instrument.figures.find(field);
    if (instrument.kind != "stock" || figure == instrument.figures.end())
        return false;
    // The store keeps the marks, an instrument does not; but the figures follow from the key alone.
    const std::map<int, double> synthetic = syntheticFigures(instrument);
    const auto known = synthetic.find(field);
    return known != synthetic.end() && !(known->second < figure->second || figure->second < known->second);
}

} // namespace TC::embedded
