#include "apps/render/FormulaFile.h"

#include "engine/language/Formula.h"
#include "host/embedded/FormulaSetup.h"

#include <QFile>
#include <QFileInfo>

namespace render {

QStringList openFormulaFile(const QString& path, QString& name)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return { QStringLiteral("%1: %2").arg(path, file.errorString()) };
    const engine::FormulaReading reading = engine::readFormula(file.readAll().toStdString());
    QStringList problems;
    for (const engine::Problem& problem : reading.problems)
        problems << QStringLiteral("%1:%2:%3: %4 (%5)")
                        .arg(path)
                        .arg(problem.place.line)
                        .arg(problem.place.column)
                        .arg(QString::fromStdString(problem.english),
                             QString::fromStdString(problem.chinese));
    if (reading.formula) {
        name = QFileInfo(path).completeBaseName();
        TC::embedded::setTextFormula(name, reading.formula);
    }
    return problems;
}

} // namespace render
