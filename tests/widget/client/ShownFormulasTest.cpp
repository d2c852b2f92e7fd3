// SPDX-License-Identifier: MIT
/// @file Formulas on the chart: where they go, and what their legends' menus do.

#include "apps/client/chart/ParameterDialog.h"
#include "apps/client/lists/FormulaList.h"
#include "tests/widget/client/ClientWindow.h"
#include "title/CIndexTitleWidget.h"

#include <QContextMenuEvent>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

using test::ClientWindow;

namespace {

/// Opens the menu of a pane's legend and chooses an entry of a formula's own menu, or of the pane's.
void choose(client::ChartPane* pane, const char* formula, const char* entry)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(30, 5),
                            pane->title()->mapToGlobal(QPoint(30, 5)));
    QApplication::sendEvent(pane->title(), &event);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    for (QAction* action : menu->findChildren<QAction*>()) {
        auto* owner = qobject_cast<QMenu*>(action->parent());
        if (action->text() == QString::fromUtf8(entry)
            && (!formula || (owner && owner->title() == QString::fromUtf8(formula)))) {
            EXPECT_TRUE(action->isEnabled()) << entry;
            action->trigger();
            break;
        }
    }
    menu->close();
}

void activate(client::MainWindow* window, const char* formula)
{
    auto* list = window->findChild<client::FormulaList*>();
    for (int row = 0; row < list->count(); ++row) {
        if (list->item(row)->data(Qt::UserRole).toString() == QLatin1String(formula))
            Q_EMIT list->itemActivated(list->item(row));
    }
}

QStringList formulasOf(client::ChartPane* pane)
{
    return pane->data()->getFormulas();
}

} // namespace

TEST_F(ClientWindow, PutsFormulasForTheCandlesOntoThem)
{
    openShare();
    for (const char* name : { "BOLL", "SAR", "EXPMA", "CROSSSIGNAL" })
        activate(m_window.get(), name);
    EXPECT_EQ(panes().size(), 3u);
    EXPECT_EQ(formulasOf(panes()[0]),
              QStringLiteral("KLINE MA BOLL SAR EXPMA CROSSSIGNAL").split(QLatin1Char(' ')));
    activate(m_window.get(), "KDJ");
    ASSERT_EQ(panes().size(), 4u);
    EXPECT_EQ(formulasOf(panes()[3]), QStringList(QStringLiteral("KDJ")));
}

TEST_F(ClientWindow, MovesAndRemovesFormulasFromTheLegendsMenu)
{
    openShare();
    activate(m_window.get(), "BOLL");
    choose(panes()[0], "BOLL", "上移");
    EXPECT_EQ(formulasOf(panes()[0]), QStringLiteral("KLINE BOLL MA").split(QLatin1Char(' ')));
    choose(panes()[0], "MA", "移除");
    EXPECT_EQ(formulasOf(panes()[0]), QStringLiteral("KLINE BOLL").split(QLatin1Char(' ')));
    choose(panes()[2], "MACD", "移除"); // the pane goes with its last formula
    EXPECT_EQ(panes().size(), 2u);
}

TEST_F(ClientWindow, ChangesTheParametersOfAShownFormula)
{
    openShare();
    choose(panes()[0], "MA", "参数…");
    auto* dialog = m_window->findChild<client::ParameterDialog*>();
    ASSERT_NE(dialog, nullptr);
    dialog->findChildren<QDoubleSpinBox*>().first()->setValue(7);
    dialog->findChild<QDialogButtonBox*>()->buttons().first()->click();
    client::PaneData* data = panes()[0]->data();
    ASSERT_TRUE(QTest::qWaitFor([&] {
        const auto found = data->getData().constFind(
            TC::CFormulaKey(data->content().formulas.front().key.instrumentKey, QStringLiteral("MA")));
        return found != data->getData().constEnd() && found->meta.outputNames.front() == "MA7";
    }));
    TC::embedded::restoreFormulas();
}

TEST_F(ClientWindow, GivesManyPanesTheirHeightAndScrolls)
{
    openShare();
    for (const char* name :
         { "KDJ", "RSI", "WR", "BIAS", "CCI", "DMI", "OBV", "TRIX", "KDJ", "RSI", "WR", "CCI" })
        activate(m_window.get(), name);
    QTest::qWait(50);
    ASSERT_EQ(panes().size(), 15u);
    auto* scroll = chart()->findChild<QScrollArea*>();
    EXPECT_TRUE(scroll->verticalScrollBar()->isVisible());
    for (std::size_t pane = 0; pane < panes().size(); ++pane) {
        EXPECT_GE(plot(pane)->height(), 80) << pane;
        EXPECT_GE(panes()[pane]->height(), plot(pane)->geometry().bottom() + 1) << pane; // nothing is clipped
    }
    EXPECT_GT(scroll->verticalScrollBar()->value(), 0); // the newest one is in sight
}

TEST_F(ClientWindow, ShowsAllPanesAgainBeforeOneIsAdded)
{
    openShare();
    chart()->toggleMaximized(panes()[1]);
    ASSERT_FALSE(panes()[0]->isVisible());
    activate(m_window.get(), "KDJ");
    for (client::ChartPane* pane : panes())
        EXPECT_TRUE(pane->isVisible());
}
