#pragma once
/// @file Makes the kernels of all functions.

#include "engine/kernels/Kernel.h"

namespace engine::language {

// Operators and functions of one bar. Missing where an argument is, unless said otherwise.
KernelPointer makeAdd();
KernelPointer makeSubtract();
KernelPointer makeMultiply();
KernelPointer makeDivide(); ///< missing for a divisor of zero
KernelPointer makeNegate();
KernelPointer makeGreater();
KernelPointer makeLess();
KernelPointer makeGreaterOrEqual();
KernelPointer makeLessOrEqual();
KernelPointer makeEqual();
KernelPointer makeNotEqual();
KernelPointer makeAnd();
KernelPointer makeOr();
KernelPointer makeNot();
KernelPointer makeIf();     ///< missing where the condition or the chosen value is
KernelPointer makeIsNull(); ///< 1 where the argument is missing
KernelPointer makeNull();
KernelPointer makeMax();
KernelPointer makeMin();
KernelPointer makeAbs();
KernelPointer makeSign();
KernelPointer makeIntegerPart();
KernelPointer makeRound();
KernelPointer makeModulo();
KernelPointer makePower();
KernelPointer makeSquareRoot();
KernelPointer makeExponential();
KernelPointer makeNaturalLogarithm();
KernelPointer makeDecimalLogarithm();
KernelPointer makeSine();
KernelPointer makeCosine();
KernelPointer makeTangent();
KernelPointer makeBetween();
KernelPointer makeRange();

// Series of the bars.
KernelPointer makeOpen();
KernelPointer makeHigh();
KernelPointer makeLow();
KernelPointer makeClose();
KernelPointer makeVolume();
KernelPointer makeAmount();
KernelPointer makeOpenInterest();
KernelPointer makeTrueRange();
KernelPointer makeBarPosition();
KernelPointer makeIsLastBar();
KernelPointer makeDate();
KernelPointer makeTime();
KernelPointer makeYear();
KernelPointer makeMonth();
KernelPointer makeDay();
KernelPointer makeWeekday();
KernelPointer makeHour();
KernelPointer makeMinute();

// Functions that look back or ahead.
KernelPointer makeReference();
KernelPointer makeReferenceAhead();
KernelPointer makeExponentialAverage();
KernelPointer makeSmoothedAverage();
KernelPointer makeDynamicAverage();
KernelPointer makeBarsLast();
KernelPointer makeBarsCount();
KernelPointer makeBarsSince();
KernelPointer makeFilter();
KernelPointer makeCross();
KernelPointer makeLongCross();
KernelPointer makeParabolic();

// Functions over the last bars.
KernelPointer makeMean();
KernelPointer makeWeightedMean();
KernelPointer makeSum();
KernelPointer makeHighest();
KernelPointer makeLowest();
KernelPointer makeHighestBars();
KernelPointer makeLowestBars();
KernelPointer makeCount();
KernelPointer makeEvery();
KernelPointer makeExist();
KernelPointer makeSampleDeviation();
KernelPointer makePopulationDeviation();
KernelPointer makeSampleVariance();
KernelPointer makePopulationVariance();
KernelPointer makeSquaredDeviations();
KernelPointer makeMeanDeviation();
KernelPointer makeSlope();
KernelPointer makeForecast();

} // namespace engine::language
