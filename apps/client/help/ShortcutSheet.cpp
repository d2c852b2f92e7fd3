// SPDX-License-Identifier: MIT
#include "apps/client/help/ShortcutSheet.h"

#include "apps/client/language/Language.h"
#include "apps/client/tools/ActionTexts.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace client {

namespace {

const QSize kSize(520, 600); // pixels

/// The entries with keys, those of submenus too.
void addLines(QTreeWidgetItem* group, const QMenu* menu)
{
    const QList<QAction*> actions = menu->actions();
    for (const QAction* action : actions) {
        if (action->menu())
            addLines(group, action->menu());
        else if (!action->shortcuts().isEmpty())
            new QTreeWidgetItem(group, { plainText(*action), keysText(*action) });
    }
}

} // namespace

ShortcutSheet::ShortcutSheet(const QMenuBar* menus, QWidget* parent)
    : QDialog(parent)
    , m_menus(menus)
    , m_field(new QLineEdit(this))
    , m_lines(new QTreeWidget(this))
{
    resize(kSize);
    m_field->setClearButtonEnabled(true);
    m_lines->setRootIsDecorated(false);
    m_lines->setAlternatingRowColors(true);
    m_lines->setColumnCount(2);
    m_lines->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_lines->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_lines->header()->setStretchLastSection(false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_field);
    layout->addWidget(m_lines);
    connect(m_field, &QLineEdit::textChanged, this, &ShortcutSheet::search);
    followLanguage(this, [this] { setWords(); });
}

void ShortcutSheet::setWords()
{
    setWindowTitle(tr("快捷键"));
    m_field->setPlaceholderText(tr("搜索操作或按键"));
    m_lines->setHeaderLabels({ tr("操作"), tr("按键") });
    m_lines->setAccessibleName(tr("快捷键"));
    m_lines->clear();
    const QList<QAction*> menus = m_menus->actions();
    for (const QAction* menu : menus) {
        if (!menu->menu())
            continue;
        auto* group = new QTreeWidgetItem(m_lines, { plainText(*menu) });
        QFont bold = m_lines->font();
        bold.setBold(true);
        group->setFont(0, bold);
        addLines(group, menu->menu());
        group->setHidden(group->childCount() == 0);
    }
    m_lines->expandAll();
    search(m_field->text());
}

void ShortcutSheet::search(const QString& text)
{
    for (int menu = 0; menu < m_lines->topLevelItemCount(); ++menu) {
        QTreeWidgetItem* group = m_lines->topLevelItem(menu);
        bool isAny = false;
        for (int line = 0; line < group->childCount(); ++line) {
            QTreeWidgetItem* item = group->child(line);
            const bool isMeant = item->text(0).contains(text, Qt::CaseInsensitive)
                || item->text(1).contains(text, Qt::CaseInsensitive);
            item->setHidden(!isMeant);
            isAny = isAny || isMeant;
        }
        group->setHidden(!isAny);
    }
}

} // namespace client
