// SPDX-License-Identifier: MIT
#include "host/embedded/ReadingSetup.h"

namespace TC::embedded {

namespace {

QString reasonOf(WorkbookOutcome outcome)
{
    switch (outcome) {
    case WorkbookOutcome::Read: return QString();
    case WorkbookOutcome::NoCells: return QStringLiteral("第一个工作表没有内容");
    case WorkbookOutcome::NotReady: return QStringLiteral("工作簿读取不可用");
    case WorkbookOutcome::CannotOpen: return QStringLiteral("文件打不开");
    case WorkbookOutcome::EmptyFile: return QStringLiteral("文件是空的");
    case WorkbookOutcome::FileTooLarge: return QStringLiteral("文件超过 64 MiB");
    case WorkbookOutcome::UnknownKind: return QStringLiteral("不是工作簿，也不是文本");
    case WorkbookOutcome::OtherKind: return QStringLiteral("不支持这种工作簿，请另存为 .xlsx");
    case WorkbookOutcome::Protected: return QStringLiteral("工作簿有密码或已加密");
    case WorkbookOutcome::Damaged: return QStringLiteral("工作簿已损坏");
    case WorkbookOutcome::TooManyParts: return QStringLiteral("压缩包超过 1000 个条目");
    case WorkbookOutcome::UnpacksTooLarge: return QStringLiteral("解压后超过 256 MiB");
    case WorkbookOutcome::TooManyCells: return QStringLiteral("超过 200 万个单元格或 3200 万个字符");
    case WorkbookOutcome::OutOfMemory: return QStringLiteral("读取所需内存超出限制");
    case WorkbookOutcome::OutOfTime: return QStringLiteral("读取超时");
    case WorkbookOutcome::ProgramFailed: return QStringLiteral("读取程序意外结束");
    case WorkbookOutcome::ProgramMissing: return QStringLiteral("找不到读取程序 indicatorui-workbook");
    case WorkbookOutcome::ProgramNotStarted: return QStringLiteral("读取程序无法启动");
    }
    return QString();
}

} // namespace

QString textOf(const WorkbookReport& report)
{
    QString text = reasonOf(report.outcome);
    if (!report.detail.isEmpty())
        text += QStringLiteral("（%1）").arg(report.detail);
    if (report.mayBeIncomplete && report.outcome == WorkbookOutcome::Read)
        text = QStringLiteral("工作簿有损坏，内容可能不完整");
    return text;
}

} // namespace TC::embedded
