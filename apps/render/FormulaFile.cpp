#include "apps/render/FormulaFile.h"

#include "apps/base/FileNames.h"
#include "engine/language/Formula.h"
#include "host/embedded/FormulaSetup.h"

#include <QFile>
#include <QFileInfo>

namespace render {

QStringList openFormulaFile(const QString& path, QString& name)
{
    QFile file;
    const int descriptor = base::openForReading(path);
    if (descriptor < 0 || !file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        return { QStringLiteral("%1: %2").arg(path, qt_error_string()) };
    // One byte more than a formula may have: a file without end is refused like one that is too long.
    const QByteArray text = file.read(static_cast<qint64>(engine::FormulaLimits::kMaxBytes) + 1);
    const engine::FormulaReading reading = engine::readFormula(text.toStdString());
    QStringList problems;
    for (const engine::Problem& problem : reading.problems)
        problems << QStringLiteral("%1:%2:%3: %4 (%5)")
                        .arg(path, QString::number(problem.place.line), QString::number(problem.place.column),
                             QString::fromStdString(problem.english),
                             QString::fromStdString(problem.chinese));
    if (reading.formula) {
        name = QFileInfo(path).completeBaseName();
        TC::embedded::setTextFormula(name, reading.formula);
    }
    return problems;
}

} // namespace render
