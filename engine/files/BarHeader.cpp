// SPDX-License-Identifier: MIT
#include "engine/files/BarHeader.h"

#include "host/utils/TextCodec.h"

#include <QString>

#include <algorithm>

namespace engine {

namespace {

/// Other names of a column; those of the same column stand together, the commonest first.
struct ColumnName
{
    std::string_view column, name;
};

constexpr ColumnName kNames[] = {
    { "date", "日期" },
    { "date", "交易日期" },
    { "date", "日期时间" },
    { "date", "datetime" },
    { "time", "时间" },
    { "open", "开盘" },
    { "open", "开盘价" },
    { "open", "开" },
    { "high", "最高" },
    { "high", "最高价" },
    { "high", "高" },
    { "low", "最低" },
    { "low", "最低价" },
    { "low", "低" },
    { "close", "收盘" },
    { "close", "收盘价" },
    { "close", "收" },
    { "volume", "成交量" },
    { "volume", "vol" },
    { "amount", "成交额" },
    { "amount", "成交金额" },
    { "open_interest", "持仓量" },
    { "open_interest", "持仓" },
};

bool isPlain(const std::string& text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// Whether a field of the header is the name, in UTF-8 or in GB18030.
bool isName(const std::string& field, std::string_view name)
{
    if (field == name)
        return true;
    if (isPlain(field))
        return false;
    const auto bytes =
        utils::encoded(QString::fromUtf8(name.data(), static_cast<int>(name.size())), "GB18030");
    return bytes && bytes->toStdString() == field;
}

std::optional<std::size_t> find(const std::vector<std::string>& header, std::string_view name)
{
    const auto found = std::find_if(header.begin(), header.end(),
                                    [&](const std::string& field) { return isName(field, name); });
    return found == header.end() ? std::nullopt
                                 : std::optional(static_cast<std::size_t>(found - header.begin()));
}

} // namespace

std::optional<std::size_t> findBarColumn(const std::vector<std::string>& header, std::string_view column)
{
    if (const auto own = find(header, column))
        return own;
    for (const ColumnName& other : kNames) {
        if (other.column != column)
            continue;
        if (const auto found = find(header, other.name))
            return found;
    }
    return std::nullopt;
}

} // namespace engine
