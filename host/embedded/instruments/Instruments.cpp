// SPDX-License-Identifier: MIT
#include "host/TC/Instruments.h"

#include "host/WB/TextConversion.h"
#include "host/ttservice/CInstrumentDetail.h"

namespace ttservice {

double CInstrumentDetail::getNumber(int fieldId) const
{
    const auto found = figures.find(fieldId);
    return found == figures.end() ? 0.0 : found->second;
}

} // namespace ttservice

QString qnStockKey(const std::string& market, const std::string& code)
{
    return WB::sToQs(market + code);
}

namespace TC {

QString getDetailQsKey(const std::shared_ptr<ttservice::CInstrumentDetail>& instrument)
{
    return instrument ? qnStockKey(instrument->market, instrument->code) : QString();
}

QString getDetailQsName(const std::shared_ptr<ttservice::CInstrumentDetail>& instrument)
{
    return instrument ? WB::sToQs(instrument->name) : QString();
}

std::string getDetailMarket(const std::shared_ptr<ttservice::CInstrumentDetail>& instrument)
{
    return instrument ? instrument->market : std::string();
}

double getDetailPriceTick(const std::shared_ptr<ttservice::CInstrumentDetail>& instrument)
{
    return instrument ? instrument->priceTick : 0.0;
}

} // namespace TC
