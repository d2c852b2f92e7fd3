#include "apps/chart/TextExport.h"

namespace chart {

std::string exportText(TC::IndexBaseData& data, const QString& formula, bool withTime)
{
    std::vector<se::RPCFormulaResult> results;
    std::vector<se::RPCFormulaMetaResult> metas;
    const QMap<TC::CFormulaKey, TC::RPCFormulaResultCache>& map = data.getData();
    const QList<QString> names = formula.isEmpty() ? data.getFormulas() : QList<QString> { formula };
    for (const QString& name : names) {
        for (auto entry = map.begin(); entry != map.end(); ++entry) {
            if (entry.key().formulaName != name)
                continue;
            results.push_back(entry->result);
            metas.push_back(entry->meta);
        }
    }
    if (results.empty())
        return std::string();
    return formula.isEmpty() ? data.getResultTxtStr(results, metas, withTime)
                             : data.getResultTxtStr(results.front(), metas.front(), withTime);
}

} // namespace chart
