/// @file Import of a basket of 100,000 rows, beside the least that any import must do: reading the workbook
/// with the bare library, and reading the text file and splitting it. The counter "ratio" is the time over
/// that floor within this run.

#include "stocklist/CParserStockExeclTable.h"

#include "host/TC/CStockManager.h"
#include "host/utils/CSingletonT.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <orcus/orcus_xlsx.hpp>
#include <orcus/spreadsheet/import_interface.hpp>
#include <xlsxwriter.h>

#include <chrono>

namespace {

constexpr int kRows = 100'000;

namespace sheet = orcus::spreadsheet;

/// Counts cells and keeps nothing.
class CountingSheet : public sheet::iface::import_sheet
{
public:
    void set_auto(sheet::row_t, sheet::col_t, std::string_view) override { ++count; }
    void set_string(sheet::row_t, sheet::col_t, sheet::string_id_t) override { ++count; }
    void set_value(sheet::row_t, sheet::col_t, double) override { ++count; }
    void set_bool(sheet::row_t, sheet::col_t, bool) override { ++count; }
    void set_date_time(sheet::row_t, sheet::col_t, int, int, int, int, int, double) override { ++count; }
    void set_format(sheet::row_t, sheet::col_t, std::size_t) override { }
    void set_format(sheet::row_t, sheet::col_t, sheet::row_t, sheet::col_t, std::size_t) override { }
    void fill_down_cells(sheet::row_t, sheet::col_t, sheet::row_t) override { }
    sheet::range_size_t get_sheet_size() const override { return { 1'048'576, 16'384 }; }

    int count = 0;
};

/// Places of cells, as every reader must find them.
class Places : public sheet::iface::import_reference_resolver
{
public:
    sheet::src_address_t resolve_address(std::string_view text) override
    {
        sheet::src_address_t place;
        place.sheet = place.row = place.column = 0;
        for (const char c : text) {
            if (c >= '0' && c <= '9')
                place.row = place.row * 10 + (c - '0');
            else
                place.column = place.column * 26 + (c - 'A' + 1);
        }
        --place.row;
        --place.column;
        return place;
    }
    sheet::src_range_t resolve_range(std::string_view) override { return {}; }
};

/// Counts texts and keeps none.
class CountingTexts : public sheet::iface::import_shared_strings
{
public:
    std::size_t append(std::string_view) override { return m_count++; }
    std::size_t add(std::string_view) override { return m_count++; }
    std::size_t commit_segments() override { return m_count++; }
    void append_segment(std::string_view) override { }
    void set_segment_font(std::size_t) override { }
    void set_segment_bold(bool) override { }
    void set_segment_italic(bool) override { }
    void set_segment_font_name(std::string_view) override { }
    void set_segment_font_size(double) override { }
    void set_segment_font_color(sheet::color_elem_t, sheet::color_elem_t, sheet::color_elem_t,
                                sheet::color_elem_t) override
    {
    }

private:
    std::size_t m_count = 0;
};

class CountingFactory : public sheet::iface::import_factory
{
public:
    sheet::iface::import_reference_resolver* get_reference_resolver(sheet::formula_ref_context_t) override
    {
        return &m_places;
    }
    sheet::iface::import_shared_strings* get_shared_strings() override { return &m_texts; }
    sheet::iface::import_sheet* append_sheet(sheet::sheet_t, std::string_view) override { return &m_sheet; }
    sheet::iface::import_sheet* get_sheet(std::string_view) override { return &m_sheet; }
    sheet::iface::import_sheet* get_sheet(sheet::sheet_t) override { return &m_sheet; }
    void finalize() override { }
    int count() const { return m_sheet.count; }

private:
    Places m_places;
    CountingTexts m_texts;
    CountingSheet m_sheet;
};

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
    QFile file(files().xlsx);
    file.open(QIODevice::ReadOnly);
    const QByteArray bytes = file.readAll();
    CountingFactory factory;
    orcus::orcus_xlsx(&factory).read_stream({ bytes.constData(), static_cast<std::size_t>(bytes.size()) });
    return factory.count();
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
    benchmark::RegisterBenchmark("import xlsx, 100000 rows / bare library", compare, bareWorkbook,
                                 importWorkbook)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("import csv, 100000 rows / readAll and split", compare, bareText, importText)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
