// SPDX-License-Identifier: MIT
#include "host/WB/TextConversion.h"

namespace WB {

QString sToQs(const std::string& text)
{
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

std::string qsToS(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

} // namespace WB
