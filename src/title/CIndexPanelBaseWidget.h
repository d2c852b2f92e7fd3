// SPDX-License-Identifier: MIT
#pragma once
/// @file Base of the client's indicator panels.

#include "host/TC/Periods.h"
#include "host/WB/CBaseWidget.h"
#include "indicatorui_export.h"

#include <boost/function.hpp>

#include <QString>

namespace TC {

/// The operations through which a chart drives a panel. Each does nothing by default, so that a panel
/// overrides what it needs; the order of the virtual operations is fixed. GUI thread only.
class INDICATORUI_EXPORT CIndexPanelBaseWidget : public WB::CBaseWidget
{
    Q_OBJECT

public:
    /// @param name  becomes the Qt object name.
    CIndexPanelBaseWidget(QString name, QWidget* parent);
    /// Lets go of the date function first, then of the pair function.
    ~CIndexPanelBaseWidget() override;

    /// Hook of the chart, as the next five.
    virtual void adjustIndexWidgetSize(int size);
    /// Hook.
    virtual void clear(bool all);
    /// Hook.
    virtual void reloadStock();
    /// Hook.
    virtual void request(bool force);
    /// Hook.
    virtual void setPeroid(EFormulaPeriod period);
    /// Hook.
    virtual void unrequest();
    /// Market of the panel's instrument; empty by default.
    virtual QString getMarket() const;
    /// The panel's instrument; empty by default.
    virtual QString getStock() const;
    /// Replaces the function that yields the current trade date; a copy that throws leaves the old one.
    virtual void setCurrentTradeDateFunc(boost::function<int()> function);
    /// Hook.
    virtual void updateView();
    /// Replaces the function that receives a pair parameter; a copy that throws leaves the old one.
    virtual void setPairParamFunc(boost::function<void(QString)> function);
    /// Hook.
    virtual void viewVariable();

protected:
    boost::function<int()> m_currentTradeDateFunc;  ///< may be empty
    boost::function<void(QString)> m_pairParamFunc; ///< may be empty
};

} // namespace TC
