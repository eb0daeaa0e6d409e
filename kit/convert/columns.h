// What the columns of a converted table hold, and which of them stay.
#ifndef MEASDATA_KIT_CONVERT_COLUMNS_H
#define MEASDATA_KIT_CONVERT_COLUMNS_H

#include "kit/convert/conversion.h"
#include "kit/preflight/table.h"

#include <span>
#include <string>
#include <vector>

namespace measkit {

/// The group of every field.
std::vector<ColumnGroup> column_groups(const Table& table);

/// The unit of every field, such as "%"; empty where a number has none. `rgb_scale` is the value of
/// a full channel of RGB, 0 when it is not known.
std::vector<std::string> units_of(const Table& table, double rgb_scale);

/// Takes out the fields that are not selected, and those that no answer uses unless
/// `keeps_unknown`; the latter are told.
void choose_columns(Table& table, std::span<const ColumnGroup> select, bool keeps_unknown,
                    std::vector<std::string>& left_behind);

/// Names as far as they fit into a sentence: "A, B and 3 more".
std::string name_list(std::span<const std::string> names);

}  // namespace measkit

#endif  // MEASDATA_KIT_CONVERT_COLUMNS_H
