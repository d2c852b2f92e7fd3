#include "host/embedded/reading/IsolatedReading.h"
#include "host/embedded/reading/WorkbookFormats.h"

#include <orcus/format_detection.hpp>
#include <orcus/orcus_xlsx.hpp>
#include <orcus/spreadsheet/import_interface.hpp>

#include <zip.h>

#include <exception>
#include <memory>

namespace TC::embedded {

namespace {

namespace sheet = orcus::spreadsheet;

/// Texts of the workbook. A text of several runs (parts of it bold, say) is put together from its segments.
class SharedTexts : public sheet::iface::import_shared_strings
{
public:
    explicit SharedTexts(SheetCells& cells)
        : m_cells(cells)
    {
    }
    std::size_t append(std::string_view text) override { return m_cells.addShared(text); }
    std::size_t add(std::string_view text) override { return m_cells.addShared(text); }
    void append_segment(std::string_view text) override { m_segments.append(text); }
    std::size_t commit_segments() override
    {
        const std::size_t index = m_cells.addShared(m_segments);
        m_segments.clear();
        return index;
    }
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
    SheetCells& m_cells;
    std::string m_segments;
};

/// Stored results of formulas.
class FormulaResults : public sheet::iface::import_formula
{
public:
    explicit FormulaResults(SheetCells* cells)
        : m_cells(cells)
    {
    }
    void set_position(sheet::row_t row, sheet::col_t column) override
    {
        m_row = row;
        m_column = column;
    }
    void set_result_string(std::string_view text) override
    {
        if (m_cells)
            m_cells->setShared(m_row, m_column, m_cells->addShared(text));
    }
    void set_result_value(double value) override
    {
        if (m_cells)
            m_cells->setNumber(m_row, m_column, value);
    }
    void set_result_bool(bool value) override
    {
        if (m_cells)
            m_cells->setBool(m_row, m_column, value);
    }
    void set_result_empty() override { }
    void set_formula(sheet::formula_grammar_t, std::string_view) override { }
    void set_shared_formula_index(std::size_t) override { }
    void commit() override { }

private:
    SheetCells* m_cells;
    int m_row = 0, m_column = 0;
};

/// A sheet whose cells are kept, or dropped when `cells` is null.
class Sheet : public sheet::iface::import_sheet
{
public:
    explicit Sheet(SheetCells* cells)
        : m_cells(cells)
        , m_formulas(cells)
    {
    }
    sheet::iface::import_formula* get_formula() override { return &m_formulas; }
    void set_auto(sheet::row_t row, sheet::col_t column, std::string_view text) override
    {
        if (m_cells)
            m_cells->setShared(row, column, m_cells->addShared(text));
    }
    void set_string(sheet::row_t row, sheet::col_t column, sheet::string_id_t index) override
    {
        if (m_cells)
            m_cells->setShared(row, column, index);
    }
    void set_value(sheet::row_t row, sheet::col_t column, double value) override
    {
        if (m_cells)
            m_cells->setNumber(row, column, value);
    }
    void set_bool(sheet::row_t row, sheet::col_t column, bool value) override
    {
        if (m_cells)
            m_cells->setBool(row, column, value);
    }
    void set_date_time(sheet::row_t row, sheet::col_t column, int year, int month, int day, int, int,
                       double) override
    {
        if (m_cells)
            m_cells->setText(row, column,
                             QStringLiteral("%1-%2-%3")
                                 .arg(year, 4, 10, QLatin1Char('0'))
                                 .arg(month, 2, 10, QLatin1Char('0'))
                                 .arg(day, 2, 10, QLatin1Char('0')));
    }
    void set_format(sheet::row_t, sheet::col_t, std::size_t) override { }
    void set_format(sheet::row_t, sheet::col_t, sheet::row_t, sheet::col_t, std::size_t) override { }
    void fill_down_cells(sheet::row_t, sheet::col_t, sheet::row_t) override { }
    sheet::range_size_t get_sheet_size() const override { return { 1'048'576, 16'384 }; }

private:
    SheetCells* m_cells;
    FormulaResults m_formulas;
};

/// Addresses such as "B7", "$B$7" and "Sheet1!B7:C9"; whatever is no address answers -1.
class Addresses : public sheet::iface::import_reference_resolver
{
public:
    sheet::src_address_t resolve_address(std::string_view text) override
    {
        constexpr int tooFar = 100'000'000; // far outside any sheet, and no overflow behind it
        text.remove_prefix(text.rfind('!') == std::string_view::npos ? 0 : text.rfind('!') + 1);
        int row = 0, column = 0;
        for (const char c : text) {
            if (c >= 'A' && c <= 'Z' && row == 0 && column < tooFar)
                column = column * 26 + (c - 'A' + 1);
            else if (c >= 'a' && c <= 'z' && row == 0 && column < tooFar)
                column = column * 26 + (c - 'a' + 1);
            else if (c >= '0' && c <= '9' && row < tooFar)
                row = row * 10 + (c - '0');
            else if (c != '$')
                return address(-1, -1);
        }
        return address(row - 1, column - 1);
    }

    sheet::src_range_t resolve_range(std::string_view text) override
    {
        const std::size_t colon = text.rfind(':');
        sheet::src_range_t range;
        range.first = resolve_address(text.substr(0, colon));
        range.last = colon == std::string_view::npos ? range.first : resolve_address(text.substr(colon + 1));
        return range;
    }

private:
    static sheet::src_address_t address(int row, int column)
    {
        sheet::src_address_t place;
        place.sheet = 0;
        place.row = row;
        place.column = column;
        return place;
    }
};

/// Takes the first sheet of a workbook into `cells`. The document model that comes with the library is not
/// used: it crashes on damaged files.
class FirstSheetFactory : public sheet::iface::import_factory
{
public:
    explicit FirstSheetFactory(SheetCells& cells)
        : m_texts(cells)
        , m_first(&cells)
        , m_others(nullptr)
    {
    }
    sheet::iface::import_shared_strings* get_shared_strings() override { return &m_texts; }
    sheet::iface::import_reference_resolver* get_reference_resolver(sheet::formula_ref_context_t) override
    {
        return &m_addresses;
    }
    sheet::iface::import_sheet* append_sheet(sheet::sheet_t index, std::string_view name) override
    {
        if (index == 0)
            m_firstName = name;
        return get_sheet(index);
    }
    sheet::iface::import_sheet* get_sheet(std::string_view name) override
    {
        return name == m_firstName ? &m_first : &m_others;
    }
    sheet::iface::import_sheet* get_sheet(sheet::sheet_t index) override
    {
        return index == 0 ? &m_first : &m_others;
    }
    void finalize() override { }

private:
    SharedTexts m_texts;
    Addresses m_addresses;
    Sheet m_first, m_others;
    std::string m_firstName;
};

/// Whether the archive stays within what may be unpacked, by the sizes it states itself. The packed sizes
/// must fit the file as well: whoever reads an entry makes room for them first.
bool isReasonableArchive(const QByteArray& bytes)
{
    constexpr zip_int64_t mostEntries = 1'000;
    constexpr zip_uint64_t mostUnpacked = 256 * 1024 * 1024;
    zip_source_t* source =
        zip_source_buffer_create(bytes.constData(), static_cast<zip_uint64_t>(bytes.size()), 0, nullptr);
    if (!source)
        return false;
    zip_t* const opened = zip_open_from_source(source, ZIP_RDONLY, nullptr);
    if (!opened) {
        zip_source_free(source);
        return false;
    }
    const std::unique_ptr<zip_t, void (*)(zip_t*)> archive(opened, zip_discard);

    const zip_int64_t entries = zip_get_num_entries(archive.get(), 0);
    zip_uint64_t unpacked = 0, packed = 0;
    const zip_uint64_t fileSize = static_cast<zip_uint64_t>(bytes.size());
    for (zip_int64_t i = 0; i < entries && entries <= mostEntries; ++i) {
        zip_stat_t stat;
        if (zip_stat_index(archive.get(), static_cast<zip_uint64_t>(i), 0, &stat) != 0
            || !(stat.valid & ZIP_STAT_SIZE) || !(stat.valid & ZIP_STAT_COMP_SIZE)
            || stat.size > mostUnpacked - unpacked || stat.comp_size > fileSize - packed)
            return false;
        unpacked += stat.size;
        packed += stat.comp_size;
    }
    return entries <= mostEntries;
}

void readHere(const QByteArray& bytes, SheetCells& cells)
{
    try {
        const auto* const data = reinterpret_cast<const unsigned char*>(bytes.constData());
        const auto size = static_cast<std::size_t>(bytes.size());
        if (orcus::detect(data, size) != orcus::format_t::xlsx)
            return;
        FirstSheetFactory factory(cells);
        orcus::orcus_xlsx(&factory).read_stream({ bytes.constData(), size });
    } catch (const std::exception&) {
        // What came before the damage stays.
    }
}

} // namespace

void readXlsx(const QByteArray& bytes, SheetCells& cells)
{
    // The library ends the process at some damaged sheets.
    if (isReasonableArchive(bytes))
        readIsolated([&](SheetCells& found) { readHere(bytes, found); }, cells);
}

} // namespace TC::embedded
