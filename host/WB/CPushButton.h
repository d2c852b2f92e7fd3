// SPDX-License-Identifier: MIT
#pragma once
/// @file The client's button.

#include "host/WB/CUiResourceChangeHandler.h"
#include "host/utils/QtVersions.h"

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

    /// Key of the picture in use.
    const QString& imageKey() const { return m_imageKey; }
    /// Changes the picture at run time.
    void setImageKey(const QString& imageKey);

    /// That of the picture, where the button is nothing else.
    QSize sizeHint() const override;
    void uiResourceChanged() override;

protected:
    /// Paints the picture.
    void paintEvent(QPaintEvent* event) override;
    /// Changes to the picture for the pointer.
    void enterEvent(utils::EnterEvent* event) override;
    /// Changes back.
    void leaveEvent(QEvent* event) override;

private:
    void showImage();

    QString m_imageKey;
    int m_style;
    bool m_underPointer = false;
};

} // namespace WB
