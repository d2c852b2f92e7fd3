// SPDX-License-Identifier: MIT
#pragma once
/// @file The client's button.

#include "host/WB/CUiResourceChangeHandler.h"

#include <QPushButton>
#include <QString>

namespace WB {

/// A push button that shows a picture of the skin and follows its changes. Emits QPushButton's clicked().
class INDICATORHOST_EXPORT CPushButton : public QPushButton, public CUiResourceChangeHandler
{
    Q_OBJECT

public:
    /// Style in which the button is its picture and nothing else: no frame, no keyboard focus.
    static constexpr int kPictureOnly = 100;

    /// @param imageKey  picture of the normal state; where the skin has a picture of the same key with
    ///        "_a" behind it, that one is shown under the pointer. An unknown key shows nothing.
    /// @param style  kPictureOnly, or any other value for the platform's push button with the picture as
    ///        its icon.
    CPushButton(const QString& imageKey, int style, QWidget* parent);
    ~CPushButton() override;

    const QString& imageKey() const { return m_imageKey; }
    /// Changes the picture at run time.
    void setImageKey(const QString& imageKey);

    QSize sizeHint() const override;
    void uiResourceChanged() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void showImage();

    QString m_imageKey;
    int m_style;
    bool m_underPointer = false;
};

} // namespace WB
