// SPDX-License-Identifier: MIT
#pragma once
/// @file A pane's legend strip, open to tests.

#include "title/CIndexTitleWidget.h"

#include <QResizeEvent>

namespace test {

/// A strip whose protected answers can be read, with a pixel ratio of the test's choice.
class Strip : public TC::CIndexTitleWidget
{
public:
    Strip(TC::IndexBaseData* indexData, int displayType, int viewType, int subViewType, int leftOffset = 0,
          QWidget* parent = nullptr, const boost::shared_ptr<TC::CKLineUiParam>& klineParam = nullptr)
        : CIndexTitleWidget(indexData, static_cast<TC::EIndexDisplayType>(displayType),
                            static_cast<TC::EIndexViewType>(viewType),
                            static_cast<TC::EIndexViewType>(subViewType), leftOffset, 1, klineParam, parent)
    {
    }

    using CIndexTitleWidget::getSubStorey;
    using CIndexTitleWidget::heightForContent;

    int rowsIn(const QRect& rect)
    {
        QRect room = rect;
        return getSubStorey(room);
    }

    /// The strip as it shows at a size, in device pixels.
    QImage picture(int width, int height)
    {
        setFixedHeight(height);
        resize(width, height);
        QResizeEvent resized(size(), QSize());
        resizeEvent(&resized);
        if (size().isEmpty())
            return QImage();
        QImage image(size() * ratio, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::magenta);
        render(&image);
        return image;
    }

    double ratio = 1.0;

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        if (metric == PdmDevicePixelRatio)
            return qRound(ratio);
        if (metric == PdmDevicePixelRatioScaled)
            return qRound(ratio * devicePixelRatioFScale());
        return CIndexTitleWidget::metric(metric);
    }
};

} // namespace test
