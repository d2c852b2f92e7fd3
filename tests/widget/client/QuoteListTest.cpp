// SPDX-License-Identifier: MIT
/// @file The quotes of all instruments, favourites and recent ones.

#include "apps/client/lists/QuoteList.h"
#include "apps/client/lists/InstrumentList.h"
#include "host/WB/SkinLookup.h"
#include "tests/widget/client/ClientWindow.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>

#include <algorithm>

using test::ClientWindow;

namespace {

class QuotesOfAll : public ClientWindow
{
protected:
    client::QuoteList* quotes() { return m_window->findChild<client::QuoteList*>(); }
    client::InstrumentList* list() { return m_window->findChild<client::InstrumentList*>(); }
    void raiseQuotes()
    {
        m_window->docks()->dock(QStringLiteral("quoteList"))->setAsCurrentTab();
        ASSERT_TRUE(QTest::qWaitFor([&] { return quotes()->isVisible(); }));
    }
    QString cell(int row, int column) { return quotes()->model()->index(row, column).data().toString(); }
    QString column(int id)
    {
        QStringList cells;
        for (int row = 0; row < quotes()->model()->rowCount(); ++row)
            cells << cell(row, id);
        return cells.join(QLatin1Char(' '));
    }
    QColor colorOf(int row, int column)
    {
        return quotes()->model()->index(row, column).data(Qt::ForegroundRole).value<QColor>();
    }
    void clickHeader(int column)
    {
        QHeaderView* header = quotes()->horizontalHeader();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          QPoint(header->sectionViewportPosition(column) + 8, header->height() / 2));
    }
};

} // namespace

TEST_F(QuotesOfAll, StandBesideEachInstrumentInTheColoursOfTheSkin)
{
    const QString up = barsFile("UP.csv", "2024-01-02,1,1,1,10,100\n2024-01-03,1,1,1,11,25000\n");
    barsFile("DOWN.csv", "2024-01-02,1,1,1,10,100\n2024-01-03,1,1,1,9.5,300\n");
    barsFile("ONE.csv", "2024-01-02,1,1,1,10,100\n");
    barsFile("WRONG.csv", "x\n");
    ASSERT_TRUE(m_window->openBars(up).isGood());
    raiseQuotes();
    ASSERT_TRUE(QTest::qWaitFor([&] { return cell(0, 2) != QStringLiteral("—"); }));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !quotes()->quotes()->isReading(); }));
    EXPECT_EQ(column(0), QStringLiteral("DOWN ONE UP WRONG"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return cell(2, 5) == QStringLiteral("2.5万"); }));
    EXPECT_EQ(column(4), QStringLiteral("-5.00% — 10.00% —"));
    EXPECT_EQ(colorOf(0, 2), WB::skinColor("ic_clr_index_default_fall"));
    EXPECT_EQ(colorOf(2, 4), WB::skinColor("ic_clr_index_default_rise"));
    EXPECT_FALSE(colorOf(1, 4).isValid());
}

TEST_F(QuotesOfAll, AreSortedByAClickAndOpenedByEnter)
{
    openShare();
    raiseQuotes();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !column(2).contains(QStringLiteral("—")); }));
    clickHeader(2);
    const auto priceOf = [&](int row) { return cell(row, 2).toDouble(); };
    for (int row = 1; row < 5; ++row)
        EXPECT_LE(priceOf(row - 1), priceOf(row));
    clickHeader(2);
    EXPECT_EQ(cell(0, 0), QStringLiteral("SFCU00")); // copper, by the ton
    quotes()->setCurrentIndex(quotes()->model()->index(0, 0));
    QTest::keyClick(quotes(), Qt::Key_Return);
    EXPECT_EQ(panes()[0]->getMarket() + panes()[0]->getStock(), QStringLiteral("SFCU00"));
}

TEST_F(QuotesOfAll, AgreeWithTheWholeFiles)
{
    openShare();
    raiseQuotes();
    ASSERT_TRUE(QTest::qWaitFor([&] { return cell(4, 2) != QStringLiteral("—"); }));
    const auto& closes = chart()->state()->bars()->close;
    EXPECT_EQ(cell(4, 0), QStringLiteral("SH600030"));
    EXPECT_EQ(cell(4, 2), QString::number(closes.back(), 'f', 2));
    EXPECT_EQ(cell(4, 3), QString::number(closes.back() - closes[closes.size() - 2], 'f', 2));
}

TEST_F(QuotesOfAll, OfFiveThousandInstrumentsAreSortedOnceForAllThatHasCome)
{
    const QByteArray rows = "2024-01-02,1,2,1,2,3\n2024-01-03,1,2,1,2,4\n";
    QString first;
    for (int i = 0; i < 5000; ++i) {
        const QString path =
            barsFile(QByteArray("Q" + QByteArray::number(100'000 + i) + ".csv").constData(), rows);
        first = first.isEmpty() ? path : first;
    }
    ASSERT_TRUE(m_window->openBars(first).isGood());
    raiseQuotes();
    EXPECT_EQ(quotes()->model()->rowCount(), 5000) << "rows stand before their figures";
    int sorted = 0, mostAtOnce = 0;
    QObject::connect(quotes()->model(), &QAbstractItemModel::layoutChanged, quotes(), [&] { ++sorted; });
    // Every turn of the event loop is one pause that the user may feel; many files are read in one.
    while (quotes()->quotes()->isReading()) {
        const int before = sorted;
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        mostAtOnce = std::max(mostAtOnce, sorted - before);
    }
    EXPECT_LE(mostAtOnce, 2);
    ASSERT_TRUE(QTest::qWaitFor([&] { return cell(4999, 2) != QStringLiteral("—"); }, 60'000));
    sorted = 0;
    clickHeader(4);
    EXPECT_GE(sorted, 1);
    list()->findChild<QLineEdit*>()->setText(QStringLiteral("q104"));
    EXPECT_LE(sorted, 2)
        << "the last figures may have come as well, but the filter of another list leaves the quotes alone";
}

TEST_F(QuotesOfAll, FavouritesAndRecentInstrumentsAreListedByThemselvesAndKept)
{
    openShare();
    auto* group = list()->findChild<QComboBox*>();
    auto* rows = list()->findChild<QListWidget*>();
    const auto shown = [&] {
        QStringList keys;
        for (int row = 0; row < rows->count(); ++row) {
            if (!rows->item(row)->isHidden())
                keys << rows->item(row)->text().section(QLatin1Char(' '), 0, 0);
        }
        return keys.join(QLatin1Char(' '));
    };
    list()->setFavourite(QStringLiteral("DFM00"), true);
    list()->setFavourite(QStringLiteral("SH510050"), true);
    list()->setFavourite(QStringLiteral("SH510050"), false);
    ASSERT_TRUE(m_window->openBars(test::sample("bars/SFCU00.csv")).isGood());
    group->setCurrentIndex(1);
    EXPECT_EQ(shown(), QStringLiteral("DFM00"));
    group->setCurrentIndex(2);
    EXPECT_EQ(shown(), QStringLiteral("SFCU00 SH600030"));
    m_window->close();
    m_window = std::make_unique<client::MainWindow>();
    EXPECT_EQ(this->list()->favourites(), QStringList(QStringLiteral("DFM00")));
    EXPECT_EQ(this->list()->recent().mid(0, 2),
              (QStringList { QStringLiteral("SFCU00"), QStringLiteral("SH600030") }));
}
