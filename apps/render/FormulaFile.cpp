// SPDX-License-Identifier: MIT
#include "apps/render/FormulaFile.h"

#include "apps/base/FileCalls.h"
#include "apps/chart/NamedFormula.h"
#include "engine/language/Formula.h"
#include "host/embedded/FormulaSetup.h"
#include "host/embedded/reading/TextDecoding.h"

#include <QFile>
#include <QFileInfo>

namespace render {

namespace {

QStringList linesOf(const QString& path, const std::vector<engine::Problem>& problems, const QString& kind)
{
    QStringList lines;
    for (const engine::Problem& problem : problems)
        lines << QStringLiteral("%1:%2:%3: %4%5 (%6)")
                     .arg(path, QString::number(problem.place.line), QString::number(problem.place.column),
                          kind, QString::fromStdString(problem.english),
                          QString::fromStdString(problem.chinese));
    return lines;
}

/// The bytes of a file that is UTF-8 as they are, so that its faults keep their places; those of other
/// encodings turned into UTF-8.
QByteArray inUtf8(const QByteArray& bytes)
{
    const QString text = TC::embedded::decodeText(bytes);
    return text.contains(QChar::ReplacementCharacter) ? bytes : text.toUtf8();
}

} // namespace

QStringList openFormulaFile(const QString& path, QString& name, QStringList* hints)
{
    QFile file;
    const int descriptor = base::openForReading(path);
    if (descriptor < 0 || !file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        return { QStringLiteral("%1: %2").arg(path, qt_error_string()) };
    // One byte more than a formula may have: a file without end is refused like one that is too long.
    const QByteArray text = file.read(static_cast<qint64>(engine::FormulaLimits::kMaxBytes) + 1);
    const engine::FormulaReading reading =
        engine::readFormula(inUtf8(text).toStdString(), chart::knownFormulas());
    if (hints)
        *hints = linesOf(path, reading.hints, QStringLiteral("hint: "));
    if (!reading.formula)
        return linesOf(path, reading.problems, {});
    name = QFileInfo(path).completeBaseName();
    const QStringList names = TC::embedded::formulaNames();
    for (const QString& known : names) {
        if (known != name && known.compare(name, Qt::CaseInsensitive) == 0)
            return {
                QStringLiteral("%1: the name differs from the formula %2 in case alone").arg(path, known)
            };
    }
    TC::embedded::setTextFormula(name, reading.formula);
    return {};
}

} // namespace render
