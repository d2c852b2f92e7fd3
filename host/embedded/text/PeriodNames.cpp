// SPDX-License-Identifier: MIT
#include "host/TC/PeriodNames.h"

#include <QStringList>

namespace {

struct NamedPeriod
{
    TC::EFormulaPeriod period;
    const char* name; ///< UTF-8
};

constexpr NamedPeriod kPeriods[] = {
    { TC::EFormulaPeriod_Tick, "分笔" },       { TC::EFormulaPeriod_Minute, "1分钟" },
    { TC::EFormulaPeriod_Minute5, "5分钟" },   { TC::EFormulaPeriod_Minute15, "15分钟" },
    { TC::EFormulaPeriod_Minute30, "30分钟" }, { TC::EFormulaPeriod_Hour, "60分钟" },
    { TC::EFormulaPeriod_Day, "日线" },        { TC::EFormulaPeriod_Week, "周线" },
    { TC::EFormulaPeriod_Month, "月线" },      { TC::EFormulaPeriod_Year, "年线" },
    { TC::EFormulaPeriod_Quarter, "季线" },
};
constexpr int kPeriodCount = static_cast<int>(std::size(kPeriods));

} // namespace

namespace TC {

int getPeriodIndex(EFormulaPeriod period)
{
    for (int index = 0; index < kPeriodCount; ++index) {
        if (kPeriods[index].period == period)
            return index;
    }
    return -1;
}

QString getCycleName(int periodIndex)
{
    return periodIndex >= 0 && periodIndex < kPeriodCount ? QString::fromUtf8(kPeriods[periodIndex].name)
                                                          : QString();
}

QString getDrName(int drType)
{
    switch (drType) {
    case 0: return QStringLiteral("不复权");
    case 1: return QStringLiteral("前复权");
    case 2: return QStringLiteral("后复权");
    default: return QString();
    }
}

} // namespace TC
