#pragma once
/// @file Reading and making the SQLite instrument database.

#include "host/ttservice/CInstrumentDetail.h"

#include <QString>

#include <vector>

namespace TC::embedded {

/// Every instrument of the store at `path`, which is made from the compiled-in list when there is none. Never
/// empty: without a usable store the list itself answers.
std::vector<ttservice::CInstrumentDetail> loadInstrumentStore(const QString& path);

/// The compiled-in list with its synthetic figures.
std::vector<ttservice::CInstrumentDetail> listedInstruments();

} // namespace TC::embedded
