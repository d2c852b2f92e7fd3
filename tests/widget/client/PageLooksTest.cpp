// SPDX-License-Identifier: MIT
/// @file What a trader sees before touching anything: axes, the last price, one font, titles, proposed names.

#include "apps/chart/ChartMeasures.h"
#include "apps/client/editor/FormulaText.h"
#include "host/WB/SkinLookup.h"
#include "tests/widget/client/ClientWindow.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QTimer>

#include <algorithm>

using test::sample;

namespace {

/// A primitive of the page's paint: where it begins, and what it says where it is a text.
struct Painted
{
    QPoint place;
    QString text;
};

class PageLooks : public test::ClientWindow
{
protected:
    /// Primitives of one kind on a plot with its axis.
    static QList<Painted> paintedOn(client::PlotWidget* plot, const char* kind)
    {
        static const QRegularExpression form(
            QStringLiteral("^(\\w+) (-?[\\d.]+),(-?[\\d.]+)(?: \"(.*)\" #)?"));
        QList<Painted> found;
        const QStringList lines = test::traceOf([&](QPainter& painter) { plot->paintOn(painter); });
        for (const QString& line : lines) {
            const QRegularExpressionMatch match = form.match(line);
            if (match.hasMatch() && match.captured(1) == QLatin1String(kind))
                found.append(
                    { QPoint(qRound(match.captured(2).toDouble()), qRound(match.captured(3).toDouble())),
                      match.captured(4) });
        }
        return found;
    }
    /// The texts on the value axis, tags of prices among them.
    static QStringList axisTexts(client::PlotWidget* plot)
    {
        QStringList texts;
        for (const Painted& one : paintedOn(plot, "text")) {
            if (one.place.x() >= plot->width() - chart::kAxisWidth)
                texts << one.text;
        }
        return texts;
    }
};

} // namespace

TEST_F(PageLooks, EveryValueAxisHasThreeToEightTextsAtAnyHeight)
{
    openShare();
    for (const char* formula : { "KDJ", "OBV", "CCI" })
        chart()->showFormula(QString::fromLatin1(formula));
    awaitResults();
    for (int height : { 640, 760, 900, 1200, 2000 }) {
        m_window->resize(1200, height);
        QApplication::processEvents();
        for (std::size_t pane = 0; pane < panes().size(); ++pane) {
            const QStringList texts = axisTexts(plot(pane));
            EXPECT_GE(texts.size(), 3) << height << ' ' << pane << ' ' << plot(pane)->height();
            EXPECT_LE(texts.size(), 9)
                << texts.join(QLatin1Char('|')).toStdString(); // eight and the last price
        }
    }
}

TEST_F(PageLooks, TheLastPriceHasALineAndATagWhoseColourIsThatOfItsChange)
{
    for (const char* close : { "11", "9" }) {
        ASSERT_TRUE(
            m_window
                ->openBars(barsFile(
                    "LAST.csv", "2024-01-01,10,12,8,10,1\n2024-01-02,10,12,8," + QByteArray(close) + ",1\n"))
                .isGood());
        awaitResults();
        EXPECT_EQ(axisTexts(plot(0)).count(QString::fromLatin1(close)), 1)
            << axisTexts(plot(0)).join(QLatin1Char('|')).toStdString();
        const QString color =
            QColor(WB::skinColor(*close == '1' ? "ic_clr_kline_rise" : "ic_clr_kline_fall")).name();
        const QStringList lines = test::traceOf([&](QPainter& painter) { plot(0)->paintOn(painter); });
        EXPECT_FALSE(lines.filter(QRegularExpression(QStringLiteral("^line 0,.*") + color)).isEmpty());
    }
}

TEST_F(PageLooks, AllTextsAreOfOneFamilyButFormulas)
{
    openShare();
    const QString family = QApplication::font().family();
    for (const QWidget* widget : m_window->findChildren<QWidget*>()) {
        if (widget->isVisible() && !qobject_cast<const client::FormulaText*>(widget)) {
            EXPECT_EQ(widget->font().family(), family) << widget->metaObject()->className();
        }
    }
}

TEST_F(PageLooks, SkinsStandInTheMenuByTheirTitles)
{
    const QStringList names = TC::embedded::skinNames();
    for (const QString& name : names) {
        QAction* skin = entry(TC::embedded::skinTitle(name));
        ASSERT_NE(skin, nullptr) << name.toStdString();
        skin->trigger();
        EXPECT_EQ(TC::embedded::currentSkin(), name);
    }
    m_window->chooseSkin(names.front());
}

TEST_F(PageLooks, AnExportIsProposedANameAndGetsASuffixWhereNoneIsTyped)
{
    openShare();
    QString proposed;
    QTimer::singleShot(0, m_window.get(), [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        proposed = QFileInfo(dialog->selectedFiles().value(0)).fileName();
        dialog->findChild<QLineEdit*>()->setText(m_folder.filePath(QStringLiteral("typed")));
        static_cast<QDialog*>(dialog)->accept();
    });
    Q_EMIT panes()[2]->sigExportRequested(QStringLiteral("MACD"), false);
    EXPECT_EQ(proposed, QStringLiteral("SH600030-MACD.csv"));
    QFile file(m_folder.filePath(QStringLiteral("typed.csv")));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_GT(file.readAll().count('\n'), 5000);
}
