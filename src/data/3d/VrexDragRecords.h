#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "data/VrexChangeOrUndo.h"

/// Hidden: how the records of a drag grow.
namespace nsDragRecords {

/// Appends a record and lets `enter` note its place in an index: both, or where one throws neither.
template <class Record, class Enter>
void append(std::vector<Record>& records, Record record, const Enter& enter) {
    records.push_back(std::move(record));
    changeOrUndo([&] { enter(records.back(), static_cast<std::uint64_t>(records.size() - 1)); },
                 [&] { records.pop_back(); });
}

} // namespace nsDragRecords
