// SPDX-License-Identifier: MIT
#include "tests/support/Golden.h"

#include <QDir>
#include <QFileInfo>

#include <cstring>

namespace test {

namespace {

constexpr QImage::Format kFormat = QImage::Format_ARGB32_Premultiplied;

testing::AssertionResult failure(const QString& reason)
{
    return testing::AssertionFailure() << reason.toStdString();
}

bool save(const QImage& image, const QString& path)
{
    return QDir().mkpath(QFileInfo(path).path()) && image.save(path, "PNG");
}

bool samePixels(const QImage& a, const QImage& b)
{
    if (a.size() != b.size())
        return false;
    const std::size_t lineBytes = static_cast<std::size_t>(a.width()) * sizeof(QRgb);
    for (int y = 0; y < a.height(); ++y) {
        if (std::memcmp(a.constScanLine(y), b.constScanLine(y), lineBytes) != 0)
            return false;
    }
    return true;
}

/// White wherever the pictures differ, or where only one of them has a pixel.
QImage differenceOf(const QImage& a, const QImage& b)
{
    QImage marks(a.size().expandedTo(b.size()), kFormat);
    for (int y = 0; y < marks.height(); ++y) {
        for (int x = 0; x < marks.width(); ++x) {
            const bool inBoth = a.valid(x, y) && b.valid(x, y);
            marks.setPixel(x, y, inBoth && a.pixel(x, y) == b.pixel(x, y) ? 0xFF000000u : 0xFFFFFFFFu);
        }
    }
    return marks;
}

/// Where a kept picture may lie. Both versions of Qt paint alike but for texts (docs/qt6.md).
struct References
{
    QString shared, ofQt6;
};

References referencesOf(const QString& name, const GoldenFolders& folders)
{
    return { folders.references + QLatin1Char('/') + name + QStringLiteral(".png"),
             folders.references + QStringLiteral("/qt6/") + name + QStringLiteral(".png") };
}

bool isOfQt6(const References& references)
{
    return QT_VERSION_MAJOR == 6 && QFileInfo::exists(references.ofQt6);
}

QImage load(const QString& path)
{
    return QImage(path).convertToFormat(kFormat);
}

testing::AssertionResult update(const References& references, const QImage& actual)
{
    const QImage shared = load(references.shared);
    if (samePixels(shared, actual))
        return testing::AssertionSuccess();
    const QString& path = QT_VERSION_MAJOR == 6 && !shared.isNull() ? references.ofQt6 : references.shared;
    return save(actual, path) ? testing::AssertionSuccess()
                              : failure(path + QStringLiteral(" cannot be written"));
}

} // namespace

GoldenFolders goldenFolders()
{
    return { QStringLiteral(TEST_DATA_DIR "/../golden"), QStringLiteral(GOLDEN_RESULTS_DIR) };
}

QImage goldenCanvas(int width, int height, const QColor& background)
{
    QImage image(width, height, kFormat);
    image.fill(background);
    return image;
}

testing::AssertionResult matchesGolden(const QString& name, const QImage& actual,
                                       const GoldenFolders& folders)
{
    const References references = referencesOf(name, folders);
    const QImage shown = actual.convertToFormat(kFormat);
    if (qEnvironmentVariable("INDICATORUI_UPDATE_GOLDEN") == QLatin1String("1"))
        return update(references, shown);

    const QString result = folders.results + QLatin1Char('/') + name;
    const QString& reference = isOfQt6(references) ? references.ofQt6 : references.shared;
    const QImage expected = load(reference);
    if (!expected.isNull() && samePixels(expected, shown))
        return testing::AssertionSuccess();

    save(shown, result + QStringLiteral(".actual.png"));
    if (expected.isNull())
        return failure(reference + QStringLiteral(" is missing; the picture is ") + result
                       + QStringLiteral(".actual.png"));
    save(expected, result + QStringLiteral(".expected.png"));
    save(differenceOf(expected, shown), result + QStringLiteral(".difference.png"));
    return failure(QStringLiteral("the picture differs; see ") + result
                   + QStringLiteral(".{expected,actual,difference}.png"));
}

} // namespace test
