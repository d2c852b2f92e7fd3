// SPDX-License-Identifier: MIT
#include "apps/render/PictureFile.h"

#include "apps/base/WholeFile.h"
#include "apps/chart/PictureBytes.h"

#include <QFileInfo>

namespace render {

base::Result<void> writePicture(const QString& path, const QSize& size, double dpr,
                                const std::function<void(QPainter&)>& paint)
{
    const QByteArray bytes = chart::pictureBytes(QFileInfo(path).suffix(), size, dpr, paint);
    if (bytes.isEmpty())
        return base::Failure { QStringLiteral("%1: the picture cannot be made").arg(path) };
    if (const auto fault = base::writeWholeFile(path, bytes))
        return base::Failure { fault->english() };
    return {};
}

} // namespace render
