// SPDX-License-Identifier: MIT
/// @file Import of a basket of 100,000 rows, beside the least that any import must do: unpacking the
/// sheet and walking over its XML, and reading the text file and splitting it. The counter "ratio" is the
/// time over that floor within this run.

#include "stocklist/CParserStockExeclTable.h"

#include "host/TC/CStockManager.h"
#include "host/WB/CExcelReader.h"
#include "host/utils/CSingletonT.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <expat.h>
#include <xlsxwriter.h>
#include <zip.h>

#include <array>
#include <chrono>

namespace {

constexpr int kRows = 100'000;

/// Unpacks the sheet of a workbook and walks over its XML without looking at it: the least that any reader
/// must do. @return how many elements it has.
int walkSheet(const QString& workbook)
{
    int elements = 0;
    zip_t* archive = zip_open(QFile::encodeName(workbook).constData(), ZIP_RDONLY, nullptr);
    zip_file_t* sheet = zip_fopen(archive, "xl/worksheets/sheet1.xml", 0);
    XML_Parser parser = XML_ParserCreate(nullptr);
    XML_SetUserData(parser, &elements);
    XML_SetStartElementHandler(parser,
                               [](void* count, const char*, const char**) { ++*static_cast<int*>(count); });
    std::array<char, 64 * 1024> buffer;
    for (zip_int64_t size; (size = zip_fread(sheet, buffer.data(), buffer.size())) > 0;)
        XML_Parse(parser, buffer.data(), static_cast<int>(size), XML_FALSE);
    XML_ParserFree(parser);
    zip_fclose(sheet);
    zip_discard(archive);
    return elements;
}

/// The two files, written once.
struct Files
{
    Files()
    {
        QFile text(csv);
        text.open(QIODevice::WriteOnly);
        lxw_workbook* book = workbook_new(QFile::encodeName(xlsx).constData());
        lxw_worksheet* cells = workbook_add_worksheet(book, nullptr);
        for (int row = 0; row < kRows; ++row) {
            const int code = row % 2 ? 600'036 : 600'000;
            text.write(QByteArray::number(code) + ",浦发银行,1,0.5," + QByteArray::number(row) + "\n");
            const auto at = static_cast<lxw_row_t>(row);
            worksheet_write_string(cells, at, 0, std::to_string(code).c_str(), nullptr);
            worksheet_write_string(cells, at, 1, "浦发银行", nullptr);
            worksheet_write_number(cells, at, 2, 1.0, nullptr);
            worksheet_write_number(cells, at, 3, 0.5, nullptr);
            worksheet_write_number(cells, at, 4, row, nullptr);
        }
        workbook_close(book);
    }

    QTemporaryDir folder;
    QString csv = folder.filePath(QStringLiteral("basket.csv"));
    QString xlsx = folder.filePath(QStringLiteral("basket.xlsx"));
};

const Files& files()
{
    static const Files made;
    return made;
}

using Work = int (*)();

int bareWorkbook()
{
    return walkSheet(files().xlsx);
}

int bareText()
{
    QFile file(files().csv);
    file.open(QIODevice::ReadOnly);
    int fields = 0;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (const QString& line : lines)
        fields += line.split(QLatin1Char(',')).size();
    return fields;
}

int importWorkbook()
{
    QVector<TC::ParserStockDetail> out;
    double minimum = 1.0;
    TC::CParserStockExeclTable::parserExcel(files().xlsx, out, minimum);
    return out.size();
}

int readWorkbook()
{
    WB::CExcelReader reader;
    reader.init(false);
    reader.open(files().xlsx);
    return reader.getSheetRowCount(1);
}

int importText()
{
    QVector<TC::ParserStockDetail> out;
    double minimum = 1.0;
    TC::CParserStockExeclTable::parserCvs(files().csv, out, minimum);
    return out.size();
}

double secondsOf(Work work)
{
    const auto start = std::chrono::steady_clock::now();
    benchmark::DoNotOptimize(work());
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Runs the floor and the import in turn, so that both see the same machine.
void compare(benchmark::State& state, Work floor, Work import)
{
    utils::CSingletonT<TC::CStockManager>::instance()->getInstrumentDetail(QStringLiteral("600000"));
    double floorSeconds = 0.0, importSeconds = 0.0;
    for (auto _ : state) {
        floorSeconds += secondsOf(floor);
        const double seconds = secondsOf(import);
        state.SetIterationTime(seconds);
        importSeconds += seconds;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    state.counters["ratio"] = importSeconds / floorSeconds;
    state.counters["records"] = import();
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QTemporaryDir home;
    qputenv("INDICATORUI_HOME", home.path().toUtf8());
    files();
    benchmark::RegisterBenchmark("import xlsx, 100000 rows x 5 cells / bare walk over its XML", compare,
                                 bareWorkbook, importWorkbook)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("read xlsx, 100000 rows x 5 cells / bare walk over its XML", compare,
                                 bareWorkbook, readWorkbook)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("import csv, 100000 rows / readAll and split", compare, bareText, importText)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
