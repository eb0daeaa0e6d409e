// Tables as JSON that reads back, and as JSON Lines.
#ifndef MEASDATA_KIT_CONVERT_JSON_FORM_H
#define MEASDATA_KIT_CONVERT_JSON_FORM_H

#include "kit/preflight/table.h"

#include <string>
#include <string_view>
#include <vector>

namespace measkit {

/// The texts around the charts of an object.
std::string json_start();
std::string json_end();
/// Appends a chart to `before`: its name, identifier and header, the names and units of its fields,
/// and its patches, each a list of as many cells. Numbers keep their digits.
std::string json_of(std::string before, Table& table, std::string_view name,
                    const std::vector<std::string>& units);

/// An object a patch, with a key for each field.
std::string json_lines_of(Table& table);

}  // namespace measkit

#endif  // MEASDATA_KIT_CONVERT_JSON_FORM_H
