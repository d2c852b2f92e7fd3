// SPDX-License-Identifier: MIT
/// @file The chart as files, on the clipboard and on paper.

#include "apps/client/output/PageOutput.h"
#include "host/WB/SkinLookup.h"
#include "tests/support/Workbooks.h"
#include "tests/widget/client/ClientWindow.h"

#include <QClipboard>
#include <QPrinter>

using test::ClientWindow;

namespace {

class ChartOutput : public ClientWindow
{
protected:
    ChartOutput() { openShare(); }

    QString path(const char* name) { return m_folder.filePath(QString::fromUtf8(name)); }
    /// Different colours of a picture.
    static int coloursOf(const QImage& image)
    {
        QSet<QRgb> colours;
        for (int y = 0; y < image.height(); y += 3) {
            for (int x = 0; x < image.width(); x += 3)
                colours.insert(image.pixel(x, y));
        }
        return colours.size();
    }
};

} // namespace

TEST_F(ChartOutput, IsAPngOfEachFactor)
{
    const QSize size = client::PageOutput(chart()).size();
    EXPECT_EQ(size, chart()->size());
    for (int factor : { 1, 2, 4 }) {
        ASSERT_TRUE(m_window->savePicture(path("page.png"), factor).isGood());
        const QImage image(path("page.png"));
        EXPECT_EQ(image.size(), size * factor);
        EXPECT_EQ(image.pixelColor(2, image.height() / 2), WB::skinColor("ic_clr_graph_kline_bg"));
        EXPECT_GT(coloursOf(image), 10);
    }
}

TEST_F(ChartOutput, OfOnePaneShowsThatPaneAlone)
{
    ASSERT_TRUE(m_window->savePicture(path("page.svg"), 1).isGood());
    ASSERT_TRUE(m_window->savePicture(path("pane.svg"), 1, panes()[2]).isGood());
    EXPECT_TRUE(test::bytesOf(path("page.svg")).contains("VOL"));
    const QByteArray pane = test::bytesOf(path("pane.svg"));
    EXPECT_TRUE(pane.contains("MACD"));
    EXPECT_FALSE(pane.contains("VOL"));
}

TEST_F(ChartOutput, IsSvgAndPdfByTheSuffix)
{
    ASSERT_TRUE(m_window->savePicture(path("page.svg"), 1).isGood());
    EXPECT_TRUE(test::bytesOf(path("page.svg")).startsWith("<?xml"));
    ASSERT_TRUE(m_window->savePicture(path("page.PDF"), 1).isGood());
    EXPECT_TRUE(test::bytesOf(path("page.PDF")).startsWith("%PDF"));
}

TEST_F(ChartOutput, ThatCannotBeWrittenIsToldAndLeavesNothing)
{
    const base::Result<void> saved = m_window->savePicture(path("none/page.png"), 1);
    EXPECT_FALSE(saved.isGood());
    EXPECT_FALSE(QFile::exists(path("none/page.png")));
}

TEST_F(ChartOutput, GoesToTheClipboardAsItIsExported)
{
    m_window->copyPicture();
    const QImage copied = QApplication::clipboard()->image();
    ASSERT_TRUE(m_window->savePicture(path("page.png"), 1).isGood());
    EXPECT_EQ(copied.convertToFormat(QImage::Format_RGB32),
              QImage(path("page.png")).convertToFormat(QImage::Format_RGB32));
}

TEST_F(ChartOutput, FitsOnASheet)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path("sheet.pdf"));
    printer.setPageOrientation(QPageLayout::Landscape);
    client::PageOutput(chart()).print(printer);
    const QByteArray sheet = test::bytesOf(path("sheet.pdf"));
    EXPECT_TRUE(sheet.startsWith("%PDF"));
    EXPECT_GT(sheet.size(), 10'000);
}
