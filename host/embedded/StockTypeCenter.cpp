#include "host/ttservice/StockTypeCenter.h"

namespace ttservice {

bool StockTypeCenter::isTypedStock(int type, const std::string& market, const std::string& code) const
{
    constexpr int scienceBoard = 277, growthBoard = 10006;
    const auto beginsWith = [&](const char* prefix) { return code.compare(0, 3, prefix) == 0; };
    switch (type) {
    case scienceBoard: return market == "SH" && beginsWith("688");
    case growthBoard: return market == "SZ" && (beginsWith("300") || beginsWith("301"));
    default: return false;
    }
}

} // namespace ttservice
