// SPDX-License-Identifier: MIT
#pragma once
/// @file The export of the basket, with a word on how it ended.

#include <QString>

namespace TC {
class CParserStockExeclTable;
}

namespace client {

/// Lets the user export the table and looks at the file afterwards: the table itself answers the same whether
/// it could write or not.
/// @return the message for the user; empty when the dialog was cancelled.
QString exportBasket(TC::CParserStockExeclTable& table);

} // namespace client
