#include "engine/language/Functions.h"

#include "engine/kernels/Makers.h"

#include <cstring>
#include <unordered_map>

namespace engine::language {

using Group = Function::Group;

const std::vector<Function>& allFunctions()
{
    // name, group, signature, least arguments, names of the arguments, logical, elementwise, drawing, kernel
    // clang-format off
    static const std::vector<Function> functions {
        { "+", Group::Operator, "ss", 2, "", false, true, Drawing::None, makeAdd,
          "", "" },
        { "-", Group::Operator, "ss", 2, "", false, true, Drawing::None, makeSubtract,
          "", "" },
        { "*", Group::Operator, "ss", 2, "", false, true, Drawing::None, makeMultiply,
          "", "" },
        { "/", Group::Operator, "ss", 2, "", false, true, Drawing::None, makeDivide,
          "", "" },
        { "NEG", Group::Operator, "s", 1, "", false, true, Drawing::None, makeNegate,
          "", "" },
        { ">", Group::Operator, "ss", 2, "", true, true, Drawing::None, makeGreater,
          "", "" },
        { "<", Group::Operator, "ss", 2, "", true, true, Drawing::None, makeLess,
          "", "" },
        { ">=", Group::Operator, "ss", 2, "", true, true, Drawing::None, makeGreaterOrEqual,
          "", "" },
        { "<=", Group::Operator, "ss", 2, "", true, true, Drawing::None, makeLessOrEqual,
          "", "" },
        { "=", Group::Operator, "ss", 2, "", true, true, Drawing::None, makeEqual,
          "", "" },
        { "<>", Group::Operator, "ss", 2, "", true, true, Drawing::None, makeNotEqual,
          "", "" },
        { "AND", Group::Operator, "ss", 2, "", true, true, Drawing::None, makeAnd,
          "", "" },
        { "OR", Group::Operator, "ss", 2, "", true, true, Drawing::None, makeOr,
          "", "" },
        { "NOT", Group::Operator, "s", 1, "", true, true, Drawing::None, makeNot,
          "", "" },
        { "OPEN", Group::Prices, "", 0, "", false, false, Drawing::None, makeOpen,
          "开盘价", "open" },
        { "O", Group::Prices, "", 0, "", false, false, Drawing::None, makeOpen,
          "开盘价", "open" },
        { "HIGH", Group::Prices, "", 0, "", false, false, Drawing::None, makeHigh,
          "最高价", "high" },
        { "H", Group::Prices, "", 0, "", false, false, Drawing::None, makeHigh,
          "最高价", "high" },
        { "LOW", Group::Prices, "", 0, "", false, false, Drawing::None, makeLow,
          "最低价", "low" },
        { "L", Group::Prices, "", 0, "", false, false, Drawing::None, makeLow,
          "最低价", "low" },
        { "CLOSE", Group::Prices, "", 0, "", false, false, Drawing::None, makeClose,
          "收盘价", "close" },
        { "C", Group::Prices, "", 0, "", false, false, Drawing::None, makeClose,
          "收盘价", "close" },
        { "VOL", Group::Prices, "", 0, "", false, false, Drawing::None, makeVolume,
          "成交量", "volume" },
        { "V", Group::Prices, "", 0, "", false, false, Drawing::None, makeVolume,
          "成交量", "volume" },
        { "AMOUNT", Group::Prices, "", 0, "", false, false, Drawing::None, makeAmount,
          "成交额", "turnover" },
        { "OPENINT", Group::Prices, "", 0, "", false, false, Drawing::None, makeOpenInterest,
          "持仓量", "open interest" },
        { "TR", Group::Prices, "", 0, "", false, false, Drawing::None, makeTrueRange,
          "真实波幅", "true range" },
        { "DATE", Group::Time, "", 0, "", false, false, Drawing::None, makeDate,
          "日期，如 1240305 为 2024 年 3 月 5 日", "date, 1240305 for 5 March 2024" },
        { "TIME", Group::Time, "", 0, "", false, false, Drawing::None, makeTime,
          "时间，如 930 为 9:30", "time of day, 930 for 9:30" },
        { "YEAR", Group::Time, "", 0, "", false, false, Drawing::None, makeYear,
          "年", "year" },
        { "MONTH", Group::Time, "", 0, "", false, false, Drawing::None, makeMonth,
          "月，1 至 12", "month, 1 to 12" },
        { "DAY", Group::Time, "", 0, "", false, false, Drawing::None, makeDay,
          "日，1 至 31", "day of the month, 1 to 31" },
        { "WEEKDAY", Group::Time, "", 0, "", false, false, Drawing::None, makeWeekday,
          "星期，0 为星期日", "day of the week, 0 for Sunday" },
        { "HOUR", Group::Time, "", 0, "", false, false, Drawing::None, makeHour,
          "时，0 至 23", "hour, 0 to 23" },
        { "MINUTE", Group::Time, "", 0, "", false, false, Drawing::None, makeMinute,
          "分，0 至 59", "minute, 0 to 59" },
        { "BARPOS", Group::Time, "", 0, "", false, false, Drawing::None, makeBarPosition,
          "第几根 K 线，从 1 起", "number of the bar, from 1" },
        { "ISLASTBAR", Group::Time, "", 0, "", true, false, Drawing::None, makeIsLastBar,
          "是否最后一根 K 线", "1 on the last bar" },
        { "DRAWNULL", Group::Time, "", 0, "", false, false, Drawing::None, makeNull,
          "缺值", "a missing value" },
        { "REF", Group::Reference, "ss", 2, "X,N", false, false, Drawing::None, makeReference,
          "X 在 N 根之前的值", "X of N bars before" },
        { "REFX", Group::Reference, "ss", 2, "X,N", false, false, Drawing::None, makeReferenceAhead,
          "X 在 N 根之后的值（未来数据）", "X of N bars later (looks into the future)" },
        { "BARSLAST", Group::Reference, "s", 1, "COND", false, false, Drawing::None, makeBarsLast,
          "上次成立以来的根数", "bars since the condition last held" },
        { "BARSSINCE", Group::Reference, "s", 1, "COND", false, false, Drawing::None, makeBarsSince,
          "首次成立以来的根数", "bars since the condition first held" },
        { "BARSCOUNT", Group::Reference, "s", 1, "X", false, false, Drawing::None, makeBarsCount,
          "自第一个有效值起的根数", "bars from the first value on, which counts 1" },
        { "MA", Group::Average, "ss", 2, "X,N", false, false, Drawing::None, makeMean,
          "简单移动平均", "simple moving average" },
        { "EMA", Group::Average, "sc", 2, "X,N", false, false, Drawing::None, makeExponentialAverage,
          "指数移动平均", "exponential moving average, weight 2/(N+1)" },
        { "SMA", Group::Average, "scc", 3, "X,N,M", false, false, Drawing::None, makeSmoothedAverage,
          "移动平均，权重 M/N", "smoothed moving average, weight M/N" },
        { "WMA", Group::Average, "ss", 2, "X,N", false, false, Drawing::None, makeWeightedMean,
          "加权移动平均，权重 1 至 N", "moving average weighted 1 to N" },
        { "DMA", Group::Average, "ss", 2, "X,A", false, false, Drawing::None, makeDynamicAverage,
          "动态移动平均，权重 A", "moving average of weight A, 0 to 1" },
        { "SUM", Group::Window, "ss", 2, "X,N", false, false, Drawing::None, makeSum,
          "N 根之和，N 为 0 时全部累加", "sum of N bars; N=0: of all so far" },
        { "HHV", Group::Window, "ss", 2, "X,N", false, false, Drawing::None, makeHighest,
          "N 根内最大值，N 为 0 时为历史", "greatest of N bars; N=0: of all so far" },
        { "LLV", Group::Window, "ss", 2, "X,N", false, false, Drawing::None, makeLowest,
          "N 根内最小值，N 为 0 时为历史", "least of N bars; N=0: of all so far" },
        { "HHVBARS", Group::Window, "ss", 2, "X,N", false, false, Drawing::None, makeHighestBars,
          "N 根内最大值到现在的根数", "bars since the greatest of N bars" },
        { "LLVBARS", Group::Window, "ss", 2, "X,N", false, false, Drawing::None, makeLowestBars,
          "N 根内最小值到现在的根数", "bars since the least of N bars" },
        { "STD", Group::Statistics, "ss", 2, "X,N", false, false, Drawing::None, makeSampleDeviation,
          "样本标准差", "sample standard deviation" },
        { "STDP", Group::Statistics, "ss", 2, "X,N", false, false, Drawing::None, makePopulationDeviation,
          "总体标准差", "population standard deviation" },
        { "VAR", Group::Statistics, "ss", 2, "X,N", false, false, Drawing::None, makeSampleVariance,
          "样本方差", "sample variance" },
        { "VARP", Group::Statistics, "ss", 2, "X,N", false, false, Drawing::None, makePopulationVariance,
          "总体方差", "population variance" },
        { "AVEDEV", Group::Statistics, "ss", 2, "X,N", false, false, Drawing::None, makeMeanDeviation,
          "平均绝对偏差", "mean absolute deviation" },
        { "DEVSQ", Group::Statistics, "ss", 2, "X,N", false, false, Drawing::None, makeSquaredDeviations,
          "偏差平方和", "sum of squared deviations" },
        { "SLOPE", Group::Statistics, "ss", 2, "X,N", false, false, Drawing::None, makeSlope,
          "线性回归斜率", "slope of the least-squares line" },
        { "FORCAST", Group::Statistics, "ss", 2, "X,N", false, false, Drawing::None, makeForecast,
          "线性回归的当前值", "least-squares line at the bar" },
        { "COUNT", Group::Logic, "ss", 2, "COND,N", false, false, Drawing::None, makeCount,
          "N 根内成立的次数，N 为 0 时全部", "bars of N on which the condition holds; N=0: of all so far" },
        { "EVERY", Group::Logic, "ss", 2, "COND,N", true, false, Drawing::None, makeEvery,
          "N 根内是否一直成立", "1 when the condition holds on all of N bars" },
        { "EXIST", Group::Logic, "ss", 2, "COND,N", true, false, Drawing::None, makeExist,
          "N 根内是否成立过", "1 when the condition holds on any of N bars" },
        { "IF", Group::Logic, "sss", 3, "COND,A,B", false, true, Drawing::None, makeIf,
          "成立取 A，否则取 B", "A where the condition holds, else B" },
        { "ISNULL", Group::Logic, "s", 1, "X", true, true, Drawing::None, makeIsNull,
          "是否缺值", "1 where X is missing" },
        { "BETWEEN", Group::Logic, "sss", 3, "X,A,B", true, true, Drawing::None, makeBetween,
          "X 是否在 A 与 B 之间（含）", "1 when X lies between A and B, ends included" },
        { "RANGE", Group::Logic, "sss", 3, "X,A,B", true, true, Drawing::None, makeRange,
          "X 是否在 A 与 B 之间（不含）", "1 when X lies between A and B, ends excluded" },
        { "MAX", Group::Arithmetic, "ss", 2, "A,B", false, true, Drawing::None, makeMax,
          "较大值", "the greater" },
        { "MIN", Group::Arithmetic, "ss", 2, "A,B", false, true, Drawing::None, makeMin,
          "较小值", "the lesser" },
        { "ABS", Group::Arithmetic, "s", 1, "X", false, true, Drawing::None, makeAbs,
          "绝对值", "absolute value" },
        { "SGN", Group::Arithmetic, "s", 1, "X", false, true, Drawing::None, makeSign,
          "符号：1、0、-1", "sign: 1, 0 or -1" },
        { "INTPART", Group::Arithmetic, "s", 1, "X", false, true, Drawing::None, makeIntegerPart,
          "整数部分", "integer part, towards zero" },
        { "ROUND", Group::Arithmetic, "s", 1, "X", false, true, Drawing::None, makeRound,
          "四舍五入", "nearest integer, halves away from zero" },
        { "MOD", Group::Arithmetic, "ss", 2, "A,B", false, true, Drawing::None, makeModulo,
          "余数，符号同 A", "remainder with the sign of A" },
        { "POW", Group::Arithmetic, "ss", 2, "A,B", false, true, Drawing::None, makePower,
          "A 的 B 次方", "A to the power of B" },
        { "SQRT", Group::Arithmetic, "s", 1, "X", false, true, Drawing::None, makeSquareRoot,
          "平方根", "square root" },
        { "EXP", Group::Arithmetic, "s", 1, "X", false, true, Drawing::None, makeExponential,
          "e 的 X 次方", "e to the power of X" },
        { "LN", Group::Arithmetic, "s", 1, "X", false, true, Drawing::None, makeNaturalLogarithm,
          "自然对数", "natural logarithm" },
        { "LOG", Group::Arithmetic, "s", 1, "X", false, true, Drawing::None, makeDecimalLogarithm,
          "常用对数", "decimal logarithm" },
        { "SIN", Group::Arithmetic, "s", 1, "X", false, true, Drawing::None, makeSine,
          "正弦（弧度）", "sine of radians" },
        { "COS", Group::Arithmetic, "s", 1, "X", false, true, Drawing::None, makeCosine,
          "余弦（弧度）", "cosine of radians" },
        { "TAN", Group::Arithmetic, "s", 1, "X", false, true, Drawing::None, makeTangent,
          "正切（弧度）", "tangent of radians" },
        { "CROSS", Group::Signal, "ss", 2, "A,B", true, false, Drawing::None, makeCross,
          "A 上穿 B", "1 where A rises through B" },
        { "LONGCROSS", Group::Signal, "ssc", 3, "A,B,N", true, false, Drawing::None, makeLongCross,
          "A 在 N 根低于 B 之后上穿", "1 where A rises through B after N bars below it" },
        { "FILTER", Group::Signal, "ss", 2, "COND,N", true, false, Drawing::None, makeFilter,
          "成立后 N 根内不再提示", "the condition, held back for N bars after it held" },
        { "SAR", Group::Signal, "ccc", 3, "N,STEP,LIMIT", false, false, Drawing::None, makeParabolic,
          "抛物线转向，步长和上限为百分数", "parabolic stop and reverse; step and limit in per cent" },
        { "STICKLINE", Group::Drawing, "sssss", 5, "COND,P1,P2,WIDTH,EMPTY", false, false, Drawing::StickLine, nullptr,
          "两个价位之间的柱", "a stick between two prices, width in tenths of a bar" },
        { "DRAWTEXT", Group::Drawing, "sst", 3, "COND,PRICE,TEXT", false, false, Drawing::Text, nullptr,
          "在价位上写文字", "a text at a price" },
        { "DRAWTEXTEX", Group::Drawing, "sssst", 5, "COND,MODE,X,Y,TEXT", false, false, Drawing::FixedText, nullptr,
          "在固定位置写文字，MODE 0 为像素，1 为千分比", "a text at a fixed place; mode 0: pixels, 1: per mille" },
        { "DRAWNUMBER", Group::Drawing, "ssss", 4, "COND,PRICE,NUMBER,DECIMALS", false, false, Drawing::Number, nullptr,
          "在价位上写数字", "a number at a price" },
        { "DRAWICON", Group::Drawing, "sss", 3, "COND,PRICE,SHAPE", false, false, Drawing::Icon, nullptr,
          "在价位上画图标，1 为圆，其余为方", "a mark at a price; shape 1: round, else square" },
        { "VERTLINE", Group::Drawing, "sss", 1, "COND[,UPPER,LOWER]", false, false, Drawing::VerticalLine, nullptr,
          "竖线", "a vertical line" },
        { "DRAWKLINE", Group::Drawing, "ssss", 4, "O,H,L,C", false, false, Drawing::Candles, nullptr,
          "K 线", "candles" },
        { "STACKVOL", Group::Drawing, "s", 1, "A,B,...", false, false, Drawing::StackedVolume, nullptr,
          "叠加的成交量柱", "stacked volume bars" },
    };
    // clang-format on
    return functions;
}

int Function::mostArguments() const
{
    return drawing == Drawing::StackedVolume ? kMostStacked : static_cast<int>(std::strlen(signature));
}

const Function* findFunction(const std::string& key)
{
    static const std::unordered_map<std::string, const Function*> byName = [] {
        std::unordered_map<std::string, const Function*> names;
        for (const Function& function : allFunctions()) {
            if (!function.isOperator())
                names.emplace(function.name, &function);
        }
        return names;
    }();
    const auto found = byName.find(key);
    return found == byName.end() ? nullptr : found->second;
}

const Function& operatorOf(const char* sign)
{
    const Function* found = nullptr;
    for (const Function& function : allFunctions()) {
        if (function.isOperator() && std::strcmp(function.name, sign) == 0)
            found = &function;
    }
    return *found;
}

} // namespace engine::language
