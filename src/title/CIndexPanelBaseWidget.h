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

    /// Gives the panel's widgets a size in pixels.
    virtual void adjustIndexWidgetSize(int size);
    /// Empties the panel; `all` with its settings.
    virtual void clear(bool all);
    /// The instrument has changed.
    virtual void reloadStock();
    /// Asks for data; `force` even when some are here.
    virtual void request(bool force);
    /// The length of a bar has changed.
    virtual void setPeroid(EFormulaPeriod period);
    /// Gives up what was asked for.
    virtual void unrequest();
    /// Market and key of the panel's instrument; empty by default.
    virtual QString getMarket() const;
    /// The key of the panel's instrument; empty by default.
    virtual QString getStock() const;
    /// Replaces the function that yields the current trade date; a copy that throws leaves the old one.
    virtual void setCurrentTradeDateFunc(boost::function<int()> function);
    /// Redraws the panel.
    virtual void updateView();
    /// Replaces the function that receives a pair parameter; a copy that throws leaves the old one.
    virtual void setPairParamFunc(boost::function<void(QString)> function);
    /// Shows the panel's variables.
    virtual void viewVariable();

protected:
    boost::function<int()> m_currentTradeDateFunc;  ///< may be empty
    boost::function<void(QString)> m_pairParamFunc; ///< may be empty
};

} // namespace TC
