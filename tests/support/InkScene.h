// SPDX-License-Identifier: MIT
#pragma once
/// @file Random surfaces and random series for tests that compare ink with the plain primitives.

#include "data/RPCFormulaResultCache.h"

#include <QImage>
#include <QPainter>

#include <functional>
#include <random>
#include <string>
#include <vector>

namespace test {

/// Draws of one seed.
class Dice
{
public:
    explicit Dice(unsigned seed)
        : m_engine(seed)
    {
    }

    int pick(int lowest, int highest)
    {
        return std::uniform_int_distribution<int>(lowest, highest)(m_engine);
    }
    double real(double lowest, double highest)
    {
        return std::uniform_real_distribution<double>(lowest, highest)(m_engine);
    }
    bool oneIn(int count) { return pick(1, count) == 1; }

private:
    std::mt19937 m_engine;
};

/// An image and how a painter on it is set up. Half of all surfaces are as plain as a client's pane.
struct RandomSurface
{
    explicit RandomSurface(Dice& dice);

    QImage image() const;
    void prepare(QPainter& painter) const;

    QSize size;
    qreal pixelRatio = 1.0;
    QImage::Format format = QImage::Format_ARGB32_Premultiplied;
    std::vector<std::function<void(QPainter&)>> steps;
    std::string name; ///< what is set, for failures
};

/// `count` numbers: a walk, noise, a level, spikes, far outside, with gaps, at the limits of int.
std::vector<double> randomSeries(Dice& dice, int count);

/// Flags of bars, most often all valid.
std::vector<int> randomFlags(Dice& dice, int count);

/// 2 to 200,000 bars, few at most times.
int randomBarCount(Dice& dice);

/// A painter call of one seed.
using InkCall = std::function<void(QPainter&)>;

/// Compares, on `count` random surfaces and those of seeds that failed once, what a painter call paints with
/// what its plain primitives paint, byte by byte. Rising and falling are set to two colours of the skin.
/// @param make  the call for a surface of that size.
void expectPlainPixels(const char* suite, unsigned count,
                       const std::function<InkCall(Dice&, const QSize&)>& make);

/// Where two images differ first, as text; empty where they do not.
std::string difference(const QImage& a, const QImage& b);

} // namespace test
