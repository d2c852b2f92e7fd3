// SPDX-License-Identifier: MIT
#pragma once
/// @file Tells that the language has changed.

#include <QObject>

namespace client {

class LanguageChange : public QObject
{
    Q_OBJECT

public:
    static LanguageChange* instance()
    {
        static LanguageChange one;
        return &one;
    }

Q_SIGNALS:
    void sigChanged();
};

} // namespace client
