// SPDX-License-Identifier: MIT
#pragma once
/// @file What a pane knows about the formulas that it shows.

#include "data/CFormulaKey.h"
#include "data/IndexBaseDataReq.h"
#include "data/RPCFormulaResultCache.h"
#include "host/WB/CEventDeliverer.h"
#include "indicatorui_export.h"

#include <boost/thread/recursive_mutex.hpp>

#include <QList>
#include <QMap>
#include <QObject>
#include <QPair>
#include <QVector>

#include <string>
#include <vector>

namespace TC {

/// Names, requests and results of a pane's formulas. A base class: the client's panes derive from it and fill
/// it. GUI thread only, except that the max/min map is guarded by the data lock.
class INDICATORUI_EXPORT IndexBaseData : public QObject, public WB::CEventDeliverer
{
    Q_OBJECT

public:
    /// Results by formula instance.
    using DataMap = QMap<CFormulaKey, RPCFormulaResultCache>;
    /// (maximum, minimum) by formula instance.
    using MaxMinMap = QMap<CFormulaKey, QPair<double, double>>;

    /// @param parent  next link of the event chain; may be null, not owned.
    explicit IndexBaseData(WB::CEventDeliverer* parent);
    ~IndexBaseData() override;

    /// Results by formula instance. Not locked.
    const DataMap& getData() const { return m_data; }
    /// Copy of the (maximum, minimum) map, taken under the data lock. The lock is recursive: a thread that
    /// holds it may call this.
    MaxMinMap getMaxMinMap();
    /// Whether any result is here.
    bool hasData() const { return !m_data.isEmpty(); }

    /// Names of the formulas in display order.
    QList<QString> getFormulas() { return m_formulas; }
    /// Number of formulas in display order.
    int getFormulaSize() { return m_formulas.size(); }

    /// First formula that isMainGraph() accepts; empty when there is none.
    QString getMainGraph();
    /// Whether a formula is a main-chart series: one of the built-in names "REALTIME", "REALTIMEVOL",
    /// "KLINE", "价位线", "TICKDATA" whatever their case, or a formula of kind 2. Unknown names are not.
    virtual bool isMainGraph(QString name) const;

    /// Whether an output needs the value axis; every doubt answers true.
    bool isNeedYAxis(const RPCFormulaResultCache& cache, int output);
    /// Marks of the axis: always empty here; derived classes may hide it.
    QVector<double> getAxisMinMax(double, double, int) { return {}; }

    /// Identifier of the key's outstanding request; empty when there is none.
    QString getReqID(CFormulaKey key);
    /// Display name of a formula; empty when it is unknown.
    QString getShowName(QString formula);

    /// Whether any formula of the pane is a group model, or a script indicator.
    bool hasGroupModelIndex();
    /// Whether any formula of the pane is a script indicator.
    bool hasPythonIndex();

    // Results as comma-separated text (ResultText.cpp). Outputs of exactly one column are exported, whatever
    // their style. Lines end with "\n"; nothing is quoted. Texts are UTF-8 and independent of the locale.

    /// One formula: a header line "时间,name,...", then a line a valid bar.
    std::string getResultTxtStr(se::RPCFormulaResult& result, se::RPCFormulaMetaResult& meta, bool withTime);
    /// Several formulas side by side on the bars of the first one; of vectors of unequal length the shorter
    /// one counts. A further formula is written where its next bar has exactly the time of the first one's;
    /// from its first bar that the first formula lacks on, nothing of it is written.
    std::string getResultTxtStr(std::vector<se::RPCFormulaResult>& results,
                                std::vector<se::RPCFormulaMetaResult>& metas, bool withTime);
    /// Local time of a bar, "2024/03/05" or "2024/03/05 09:30"; empty for a bar that does not exist.
    std::string getTimeSlide(int bar, se::RPCFormulaResult& result, bool withTime);
    /// One cell with its leading comma; empty where the records have no such cell, and for column types other
    /// than 0, 1, 2 and 3.
    std::string getDataSlide(int output, int bar, se::RPCFormulaResult& result,
                             se::RPCFormulaMetaResult& meta);
    /// Decimal text with zeros in front, up to `width` characters, a sign included: (-5, 3) gives "0-5".
    std::string getLengthStr(int value, int width);

protected:
    /// Hands the pane's back-test figures (outputs named 年化收益, 基准年化收益, 最大回撤率 or 胜率, at the
    /// last bar) to the host, with the identifiers they belong to. Called with no figure as well.
    void updateStrategyBacktestData(const QVector<QString>& ids);

    boost::recursive_mutex m_dataLock; ///< guards m_maxMinMap
    DataMap m_data;                    ///< filled by the derived class
    MaxMinMap m_maxMinMap;             ///< (maximum, minimum) of each instance; filled by the derived class
    IndexBaseDataReq m_requests;       ///< outstanding and answered ones
    QVector<QPair<qint64, qint64>> m_spans; ///< for derived classes, as the next three
    QVector<int> m_marks;                   ///< for derived classes
    qint64 m_word = 0;                      ///< for derived classes
    QList<QString> m_formulas;              ///< names in display order
    QList<QString> m_secondNames;           ///< for derived classes
};

} // namespace TC
