// SPDX-License-Identifier: MIT
#include "apps/client/recovery/RestoreDialog.h"

#include "apps/client/FixedFont.h"
#include "apps/client/PlainTexts.h"
#include "apps/client/recovery/LineDiff.h"

#include <QDialogButtonBox>
#include <QJsonDocument>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace client {

namespace {

constexpr int kContextLines = 3;
constexpr int kMostPreviewLines = 5000;

/// The lines of a file; JSON is laid out first, so that one long line compares as well as many short ones.
QStringList readableLines(const QByteArray& content)
{
    const QJsonDocument json = QJsonDocument::fromJson(content);
    QString text = QString::fromUtf8(json.isNull() ? content : json.toJson());
    text.remove(QLatin1Char('\r'));
    if (text.endsWith(QLatin1Char('\n')))
        text.chop(1);
    return text.isEmpty() ? QStringList() : text.split(QLatin1Char('\n'));
}

QString sizeText(qint64 bytes)
{
    if (bytes < 0)
        return RestoreDialog::tr("缺失");
    return bytes < 1024 ? RestoreDialog::tr("%1 字节").arg(bytes)
                        : QLocale::c().formattedDataSize(bytes, 1, QLocale::DataSizeTraditionalFormat);
}

QString dateText(const QDateTime& made)
{
    return made.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
}

struct Ink
{
    QString mark;
    QColor text, background;
};

Ink inkOf(DiffLine::Kind kind, const QPalette& palette)
{
    const bool dark = palette.base().color().lightness() < 128;
    switch (kind) {
    case DiffLine::Removed:
        return { QStringLiteral("- "), dark ? QColor(0xffb3b3) : QColor(0x9c1c1c),
                 dark ? QColor(0x4a1f1f) : QColor(0xfdecec) };
    case DiffLine::Added:
        return { QStringLiteral("+ "), dark ? QColor(0xa8e6b0) : QColor(0x1b6b2b),
                 dark ? QColor(0x1c3d24) : QColor(0xe9f7ec) };
    case DiffLine::Gap: return { QStringLiteral("  ⋯"), Qt::gray, Qt::transparent };
    case DiffLine::Same: break;
    }
    return { QStringLiteral("  "), palette.text().color(), Qt::transparent };
}

void writeLine(QTextCursor& cursor, const QString& text, const QColor& color, const QColor& background,
               bool bold = false)
{
    QTextBlockFormat block;
    if (background.alpha() > 0)
        block.setBackground(background);
    QTextCharFormat format;
    format.setForeground(color);
    format.setFontWeight(bold ? QFont::Bold : QFont::Normal);
    if (!cursor.atStart())
        cursor.insertBlock();
    cursor.setBlockFormat(block);
    cursor.setCharFormat(format);
    cursor.insertText(text, format);
}

/// Writes the differences under a heading; answers how many lines differ.
int writeDiff(QTextCursor& cursor, const QPalette& palette, const QString& heading, const QByteArray& live,
              const QByteArray& kept)
{
    const std::vector<DiffLine> all = lineDiff(readableLines(live), readableLines(kept));
    const std::vector<DiffLine> lines = aroundChanges(all, kContextLines);
    writeLine(cursor, heading, palette.text().color(), Qt::transparent, true);
    if (lines.empty()) {
        writeLine(cursor, RestoreDialog::tr("  与现用内容相同"), Qt::gray, Qt::transparent);
        return 0;
    }
    int written = 0, changes = 0;
    for (const DiffLine& line : lines) {
        changes += line.kind == DiffLine::Removed || line.kind == DiffLine::Added;
        if (written++ >= kMostPreviewLines)
            continue;
        const Ink ink = inkOf(line.kind, palette);
        writeLine(cursor, ink.mark + line.text, ink.text, ink.background);
    }
    return changes;
}

} // namespace

RestoreDialog::RestoreDialog(Occasion occasion, QWidget* parent)
    : QDialog(parent)
    , m_list(new QTreeWidget)
    , m_preview(new QPlainTextEdit)
    , m_summary(new QLabel)
{
    m_summary->setWordWrap(true);
    m_summary->setObjectName(QStringLiteral("summary"));
    setWindowTitle(tr("恢复公式"));
    auto* introduction = new QLabel(occasion == Occasion::FailedRun
                                        ? tr("上次运行没有正常结束。如果公式受损，可以恢复到以前的版本。")
                                        : tr("选择一个备份版本，查看与现用公式的差异，然后恢复。"));
    introduction->setWordWrap(true);

    m_list->setObjectName(QStringLiteral("versions"));
    m_list->setHeaderLabels({ tr("备份时间"), tr("公式"), tr("脚本") });
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAlternatingRowColors(true);
    m_preview->setObjectName(QStringLiteral("preview"));
    m_list->setAccessibleName(tr("备份版本"));
    m_preview->setAccessibleName(tr("与现用公式的差异"));
    m_preview->setReadOnly(true);
    m_preview->setFont(fixedFont());
    m_preview->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_preview->setPlaceholderText(tr("没有备份版本"));

    auto* preview = new QWidget;
    auto* previewLayout = new QVBoxLayout(preview);
    previewLayout->setContentsMargins(0, 0, 0, 0);
    previewLayout->addWidget(m_summary);
    previewLayout->addWidget(m_preview);
    auto* parts = new QSplitter;
    parts->addWidget(m_list);
    parts->addWidget(preview);
    parts->setChildrenCollapsible(false);
    parts->setStretchFactor(1, 1);
    parts->setSizes({ 330, 520 });

    auto* buttons = new QDialogButtonBox;
    m_restore = buttons->addButton(tr("恢复此版本"), QDialogButtonBox::AcceptRole);
    m_restore->setObjectName(QStringLiteral("restore"));
    buttons->addButton(occasion == Occasion::FailedRun ? tr("保留现用公式") : tr("关闭"),
                       QDialogButtonBox::RejectRole);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(introduction);
    layout->addWidget(parts, 1);
    layout->addWidget(buttons);
    resize(880, 520);

    m_confirm = [this](const QString& text) { return isConfirmed(this, text, tr("恢复")); };
    connect(m_list, &QTreeWidget::currentItemChanged, this, &RestoreDialog::showChosen);
    connect(buttons, &QDialogButtonBox::accepted, this, &RestoreDialog::restoreChosen);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    refresh();
}

void RestoreDialog::refresh()
{
    m_list->clear();
    m_versions = formulaVersions();
    for (const FormulaVersion& version : m_versions) {
        auto* item = new QTreeWidgetItem(
            m_list,
            { dateText(version.made), sizeText(version.formulaBytes), sizeText(version.scriptBytes) });
        item->setToolTip(0, version.name);
        for (int column : { 1, 2 })
            item->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    }
    for (int column = 0; column < m_list->columnCount(); ++column)
        m_list->resizeColumnToContents(column);
    m_list->setCurrentItem(m_list->topLevelItem(0));
    showChosen();
}

void RestoreDialog::restoreChosen()
{
    const FormulaVersion* version = chosen();
    if (!version || version->formulaBytes < 0)
        return;
    const FormulaVersion wanted = *version;
    if (!m_confirm(question(wanted)))
        return;
    const base::Result<void> done = restoreFormulas(wanted);
    if (!done.isGood()) {
        refresh();
        m_summary->setText(done.reason());
        return;
    }
    Q_EMIT restored(dateText(wanted.made));
    accept();
}

const FormulaVersion* RestoreDialog::chosen() const
{
    const int row = m_list->indexOfTopLevelItem(m_list->currentItem());
    return row >= 0 && row < static_cast<int>(m_versions.size()) ? &m_versions[static_cast<std::size_t>(row)]
                                                                 : nullptr;
}

void RestoreDialog::showChosen()
{
    const FormulaVersion* version = chosen();
    m_restore->setEnabled(version && version->formulaBytes >= 0);
    m_preview->clear();
    m_summary->clear();
    if (!version)
        return;
    if (version->formulaBytes < 0) {
        m_summary->setText(tr("这个版本的公式文件缺失或已损坏，无法恢复。"));
        return;
    }
    QTextCursor cursor(m_preview->document());
    cursor.beginEditBlock();
    const FormulaFiles live = liveFiles(), kept = filesOf(*version);
    int changes = writeDiff(cursor, palette(), tr("公式"), live.formulas.value_or(QByteArray()),
                            kept.formulas.value_or(QByteArray()));
    if (kept.scripts)
        changes +=
            writeDiff(cursor, palette(), tr("脚本"), live.scripts.value_or(QByteArray()), *kept.scripts);
    cursor.endEditBlock();
    m_preview->moveCursor(QTextCursor::Start);
    m_summary->setText(changes == 0 ? tr("与现用公式相同。")
                                    : tr("%1 行不同：－ 恢复后消失，＋ 恢复后出现。").arg(changes));
}

QString RestoreDialog::question(const FormulaVersion& version) const
{
    QString text = tr("恢复到 %1 的版本？\n现用公式会先备份。").arg(dateText(version.made));
    if (version.scriptBytes < 0)
        text += tr("\n这个版本没有脚本备份，现用脚本不变。");
    return text;
}

} // namespace client
